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

const ArticleDocument& article(size_t components) {
    static const ArticleDocument small =
        *sharedArticleDecoder.decode(makeArticle(1'000, ArticleShape::mixed));
    static const ArticleDocument large =
        *sharedArticleDecoder.decode(makeArticle(10'000, ArticleShape::mixed));
    return components == 1'000 ? small : large;
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

void page(benchmark::State& state, size_t components) {
    const ArticleDocument& subject = article(components);
    for (auto _ : state) {
        benchmark::DoNotOptimize(pageOf(subject));
    }
}
BENCHMARK_CAPTURE(page, thousand, 1'000);
BENCHMARK_CAPTURE(page, tenThousand, 10'000);

void textsAlone(benchmark::State& state) {
    std::vector<std::string> texts;
    collectTexts(article(10'000).components, texts);
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
    const std::string text = pageOf(article(10'000));
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
    const ArticleDocument& subject = article(10'000);
    pageOf(subject);
    const size_t before = bytesAllocated();
    const std::string text = pageOf(subject);
    const double allocated = static_cast<double>(bytesAllocated() - before);
    return (allocated - static_cast<double>(text.size())) / static_cast<double>(countOf(subject.components));
}

const Ratio texts{"page, 10,000 components: / md4c on its texts alone", "page/tenThousand", "textsAlone", 2};
const Ratio copying{"page, 10,000 components: / memcpy of its bytes", "page/tenThousand", "copyOfPage", 100};
const Ratio growth{"page: 10,000 components / 1,000", "page/tenThousand", "page/thousand", 11};
const Figure allocations{"page: bytes allocated for each component beyond the text", bytesPerComponent, 2048};

} // namespace

} // namespace quillon::bench
