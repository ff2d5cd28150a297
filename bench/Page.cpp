#include "Allocations.h"
#include "ArticleMaker.h"
#include "MarkdownBaseline.h"
#include "Report.h"

#include "model/ArticleDocument.h"
#include "render/Page.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

/// The page of a large article, beside what turning its texts alone into HTML costs and what copying its
/// bytes costs.
namespace quillon::bench {

namespace {

const ArticleDocument& largeArticle() {
    static const ArticleDocument large =
        *sharedArticleDecoder.decode(makeArticle(10'000, ArticleShape::mixed));
    return large;
}

/// Ten articles of 1,000 components. Rendered in turn they leave the processor's inner cache as the large one
/// does; one alone would stay in it, and the growth would be the cache's.
const std::vector<ArticleDocument>& smallArticles() {
    static const std::vector<ArticleDocument> small = [] {
        std::vector<ArticleDocument> made;
        for (int count = 0; count < 10; ++count) {
            made.push_back(*sharedArticleDecoder.decode(makeArticle(1'000, ArticleShape::mixed)));
        }
        return made;
    }();
    return small;
}

std::string pageOf(const ArticleDocument& subject) {
    static const PreviewEnvironment environment =
        previewEnvironment(PreviewDevice::iPad, PreviewOrientation::portrait, 1024, 768);
    return HTMLRenderer::renderPage(subject, environment, 0);
}

void collectTexts(const List<Component>& components, std::vector<std::string>& texts) {
    for (const Component& component : components) {
        if (component.text) {
            texts.push_back(*component.text);
        }
        if (component.components) {
            collectTexts(*component.components, texts);
        }
    }
}

size_t countOf(const List<Component>& components) {
    size_t count = components.size();
    for (const Component& component : components) {
        count += component.components ? countOf(*component.components) : 0;
    }
    return count;
}

void pageOfTenThousand(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(pageOf(largeArticle()));
    }
}
BENCHMARK(pageOfTenThousand);

void pageOfThousand(benchmark::State& state) {
    size_t turn = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(pageOf(smallArticles()[turn++ % smallArticles().size()]));
    }
}
BENCHMARK(pageOfThousand);

void textsAlone(benchmark::State& state) {
    std::vector<std::string> texts;
    collectTexts(largeArticle().components, texts);
    for (auto _ : state) {
        std::string html;
        for (const std::string& text : texts) {
            appendBaselineHtml(html, text);
        }
        benchmark::DoNotOptimize(html);
    }
}
BENCHMARK(textsAlone);

void copyOfPage(benchmark::State& state) {
    const std::string text = pageOf(largeArticle());
    for (auto _ : state) {
        std::vector<char> copy(text.size());
        std::memcpy(copy.data(), text.data(), text.size());
        benchmark::DoNotOptimize(copy);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copyOfPage);

/// What a repeated render allocates beyond its text, for each component, in bytes.
double bytesPerComponent() {
    const ArticleDocument& subject = largeArticle();
    pageOf(subject);
    const size_t before = bytesAllocated();
    const std::string text = pageOf(subject);
    const double allocated = static_cast<double>(bytesAllocated() - before);
    return (allocated - static_cast<double>(text.size())) / static_cast<double>(countOf(subject.components));
}

const Ratio texts{"page, 10,000 components: / md4c on its texts alone", "pageOfTenThousand", "textsAlone", 2};
const Ratio copying{"page, 10,000 components: / memcpy of its bytes", "pageOfTenThousand", "copyOfPage", 100};
const Ratio growth{"page: 10,000 components / 1,000", "pageOfTenThousand", "pageOfThousand", 11};
const Figure allocations{"page: bytes allocated for each component beyond the text", bytesPerComponent, 2048};

} // namespace

} // namespace quillon::bench
