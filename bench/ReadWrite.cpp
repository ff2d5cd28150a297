#include "ArticleMaker.h"
#include "Baseline.h"
#include "Report.h"

#include "model/ArticleDocument.h"

#include <benchmark/benchmark.h>

/// Reading and writing whole articles beside a library that reads them into an untyped tree.
namespace quillon::bench {

namespace {

const std::string& largeArticle() {
    static const std::string json = makeArticle(10'000, ArticleShape::mixed);
    return json;
}

void read(benchmark::State& state) {
    for (auto _ : state) {
        // The copy, which the other library does not need, counts as ours.
        auto article = sharedArticleDecoder.decode(JsonText::roomyCopy(largeArticle()));
        benchmark::DoNotOptimize(article);
    }
}
BENCHMARK(read);

void readBaseline(benchmark::State& state) {
    for (auto _ : state) {
        auto tree = BaselineTree::parse(largeArticle());
        benchmark::DoNotOptimize(tree);
    }
}
BENCHMARK(readBaseline);

void write(benchmark::State& state) {
    const ArticleDocument article = sharedArticleDecoder.decode(largeArticle()).value();
    for (auto _ : state) {
        auto json = sharedArticleEncoder.encode(article);
        benchmark::DoNotOptimize(json);
    }
}
BENCHMARK(write);

void writeBaseline(benchmark::State& state) {
    const BaselineTree tree = BaselineTree::parse(largeArticle());
    for (auto _ : state) {
        auto json = tree.dump();
        benchmark::DoNotOptimize(json);
    }
}
BENCHMARK(writeBaseline);

const Ratio reading{"read 10,000 components: ours / nlohmann", "read", "readBaseline", 0.5};
const Ratio writing{"write 10,000 components: ours / nlohmann", "write", "writeBaseline", 1};

} // namespace

} // namespace quillon::bench
