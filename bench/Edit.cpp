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

void edit(benchmark::State& state, const ArticleDocument& article, const Uuid& id) {
    for (auto _ : state) {
        const ArticleDocument after = edited(article, id);
        benchmark::DoNotOptimize(after == article);
    }
}
BENCHMARK_CAPTURE(edit, flat, large(ArticleShape::flat).article, large(ArticleShape::flat).flat);
BENCHMARK_CAPTURE(edit, nested, large(ArticleShape::mixed).article, large(ArticleShape::mixed).nested);

void readFlat(benchmark::State& state) {
    const std::string json = makeArticle(10'000, ArticleShape::flat);
    for (auto _ : state) {
        auto article = sharedArticleDecoder.decode(json);
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

const Ratio flat{"edit and compare, flat, 10,000 components: / reading it", "edit/flat", "readFlat", 0.01};
const Ratio nested{"edit and compare, nested, 10,000 components: / reading it", "edit/nested", "read/ours",
                   0.01};
const Figure bytes1000{"edit: bytes allocated, 1,000 components", [] { return bytesOfEdit(1'000); }, 4096};
const Figure bytes10000{"edit: bytes allocated, 10,000 components", [] { return bytesOfEdit(10'000); }, 4096};
const Figure bytes100000{"edit: bytes allocated, 100,000 components", [] { return bytesOfEdit(100'000); },
                         4096};

} // namespace

} // namespace quillon::bench
