#include "BareWindow.h"
#include "Measure.h"

#include "desktop/WebEngine.h"
#include "desktop/theme/Theme.h"

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

void printCount(const std::string& title, int count, int wanted) {
    everyLineHolds = everyLineHolds && count == wanted;
    std::printf("%s = %d (wanted %d)%s\n", title.c_str(), count, wanted, count == wanted ? "" : "  MISSED");
    std::fflush(stdout);
}

bool allHold() {
    return everyLineHolds;
}

} // namespace quillon::bench

/// Measures the subjects that its arguments name; without any, all of them.
int main(int argc, char** argv) {
    using namespace quillon::bench;
    if (const auto status = runAsBareWindows(argc, argv)) {
        return *status;
    }
    struct Subject {
        const char* name;
        void (*measure)();
    };
    constexpr Subject subjects[] = {
        {"start", measureStart},       {"memory", measureMemory}, {"switch", measureSwitch},
        {"drag", measureDrags},        {"pages", measurePages},   {"gaps", measureGaps},
        {"recovery", measureRecovery}, {"json", measureJson},     {"outline", measureOutline}};
    quillon::prepareWebEngine();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    quillon::theme().install();
    const QStringList wanted = application.arguments().mid(1);
    for (const Subject& subject : subjects) {
        if (wanted.isEmpty() || wanted.contains(QLatin1String(subject.name))) {
            subject.measure();
        }
    }
    return allHold() ? 0 : 1;
}
