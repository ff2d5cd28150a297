#include "Allocations.h"
#include "ArticleMaker.h"
#include "Report.h"

#include "model/ArticleDocument.h"
#include "model/ComponentTree.h"

#include <benchmark/benchmark.h>

/// One edit, as a keystroke in the inspector makes it: a component of a large article replaced, and the new
/// article compared with the old one.
namespace quillon::bench {

namespace {

struct Subject {
    ArticleDocument article;
    Uuid flat;   ///< a component in the middle of the top level
    Uuid nested; ///< one within a container in the middle; the same as `flat` where there is none
};

Subject subjectOf(size_t components, ArticleShape shape) {
    Subject subject{sharedArticleDecoder.decode(makeArticle(components, shape)).value(), {}, {}};
    const List<Component>& list = subject.article.components;
    size_t middle = list.size() / 2;
    subject.flat = list[middle].id;
    subject.nested = subject.flat;
    for (; middle < list.size(); ++middle) {
        if (list[middle].components && list[middle].components->size() > 1) {
            subject.nested = (*list[middle].components)[1].id;
            break;
        }
    }
    return subject;
}

const Subject& large(ArticleShape shape) {
    static const Subject mixed = subjectOf(10'000, ArticleShape::mixed);
    static const Subject flat = subjectOf(10'000, ArticleShape::flat);
    return shape == ArticleShape::mixed ? mixed : flat;
}

ArticleDocument edited(const ArticleDocument& article, const Uuid& id) {
    Component component = *findComponent(id, article.components);
    component.text = std::string("another text");
    ArticleDocument after = article;
    after.components = replaceComponent(id, std::move(component), article.components);
    return after;
}

// Subjects are made when a benchmark runs, never before main: a fresh process shall be one.
void editFlat(benchmark::State& state) {
    const Subject& subject = large(ArticleShape::flat);
    for (auto _ : state) {
        const ArticleDocument after = edited(subject.article, subject.flat);
        benchmark::DoNotOptimize(after == subject.article);
    }
}
BENCHMARK(editFlat);

void editNested(benchmark::State& state) {
    const Subject& subject = large(ArticleShape::mixed);
    for (auto _ : state) {
        const ArticleDocument after = edited(subject.article, subject.nested);
        benchmark::DoNotOptimize(after == subject.article);
    }
}
BENCHMARK(editNested);

void readFlat(benchmark::State& state) {
    const std::string json = makeArticle(10'000, ArticleShape::flat);
    for (auto _ : state) {
        auto article = sharedArticleDecoder.decode(JsonText::roomyCopy(json));
        benchmark::DoNotOptimize(article);
    }
}
BENCHMARK(readFlat);

double bytesOfEdit(size_t components) {
    const Subject subject = subjectOf(components, ArticleShape::flat);
    const size_t before = bytesAllocated();
    const ArticleDocument after = edited(subject.article, subject.flat);
    benchmark::DoNotOptimize(after == subject.article);
    return static_cast<double>(bytesAllocated() - before);
}

const Ratio flat{"edit and compare, flat, 10,000 components: / reading it", "editFlat", "readFlat", 0.01};
const Ratio nested{"edit and compare, nested, 10,000 components: / reading it", "editNested", "read", 0.01};
const Figure bytes1000{"edit: bytes allocated, 1,000 components", [] { return bytesOfEdit(1'000); }, 4096};
const Figure bytes10000{"edit: bytes allocated, 10,000 components", [] { return bytesOfEdit(10'000); }, 4096};
const Figure bytes100000{"edit: bytes allocated, 100,000 components", [] { return bytesOfEdit(100'000); },
                         4096};

} // namespace

} // namespace quillon::bench
