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
const std::string& smallArticle() {
    static const std::string json = makeArticle(1'000, ArticleShape::mixed);
    return json;
}

void read(benchmark::State& state, const std::string& json) {
    for (auto _ : state) {
        auto article = sharedArticleDecoder.decode(json);
        benchmark::DoNotOptimize(article);
    }
}
BENCHMARK_CAPTURE(read, ours, largeArticle());
BENCHMARK_CAPTURE(read, ours1000, smallArticle());

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

const Ratio reading{"read 10,000 components: ours / nlohmann", "read/ours", "readBaseline", 0.5};
const Ratio writing{"write 10,000 components: ours / nlohmann", "write", "writeBaseline", 1};
const Ratio linear{"read: 10,000 / 1,000 components", "read/ours", "read/ours1000", 11};

} // namespace

} // namespace quillon::bench
