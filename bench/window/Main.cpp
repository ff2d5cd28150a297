#include "Measure.h"

#include "desktop/WebEngine.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>

namespace quillon::bench {

namespace {

bool everyLineHolds = true;

} // namespace

double percentile(std::vector<double> values, double share) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1) + 0.5)];
}

void print(const std::string& title, double value, double atMost) {
    const bool holds = atMost <= 0 || value <= atMost;
    everyLineHolds = everyLineHolds && holds;
    std::printf("%s = %.4g", title.c_str(), value);
    if (atMost > 0) {
        std::printf(" (wanted at most %.4g)%s", atMost, holds ? "" : "  MISSED");
    }
    std::printf("\n");
    std::fflush(stdout);
}

bool allHold() {
    return everyLineHolds;
}

} // namespace quillon::bench

int main(int argc, char** argv) {
    quillon::prepareWebEngine();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    quillon::bench::measureStart();
    quillon::bench::measurePages();
    quillon::bench::measureGaps();
    quillon::bench::measureRecovery();
    return quillon::bench::allHold() ? 0 : 1;
}
