#include "ArticleMaker.h"
#include "BareWindow.h"
#include "FreshProgram.h"
#include "Measure.h"
#include "Packages.h"

#include <QCoreApplication>

/// The program from its start to its painted window and to its page, beside a web view alone with that page.
namespace quillon::bench {

namespace {

constexpr int runs = 7;

struct Times {
    std::vector<double> painted;
    std::vector<double> page;

    void add(const QString& path, const QStringList& arguments) {
        FreshProgram program(path, arguments);
        page.push_back(program.timeOf(FreshProgram::pageShown));
        painted.push_back(program.timeOf(FreshProgram::painted));
    }
};

void printBeside(const std::string& title, const std::vector<double>& ours, const std::vector<double>& bare) {
    const double our = percentile(ours, 0.5);
    const double other = percentile(bare, 0.5);
    print("start of the program to its " + title + ": ms (median of 7)", our * 1e3);
    print("  web view alone: ms", other * 1e3);
    print("  / web view alone", our / other);
}

} // namespace

void measureStart() {
    for (const std::size_t components : {10U, 1000U}) {
        const Packages packages(1, components);
        Times ours;
        Times bare;
        for (int run = 0; run < runs; ++run) {
            ours.add(QUILLON_PROGRAM, packages.paths());
            bare.add(QCoreApplication::applicationFilePath(), bareArguments(packages.pages()));
        }
        const std::string name = ", " + std::to_string(components) + " components";
        printBeside("painted window" + name, ours.painted, bare.painted);
        printBeside("page" + name, ours.page, bare.page);
    }
}

} // namespace quillon::bench
