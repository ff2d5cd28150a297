#include "BareWindow.h"
#include "FreshProgram.h"
#include "Measure.h"
#include "Packages.h"

#include <QCoreApplication>

/// What windows cost in memory, all processes together, beside web views alone with the same pages.
namespace quillon::bench {

namespace {

constexpr std::size_t components = 100;
constexpr int counts[] = {1, 2, 10};
constexpr auto settling = std::chrono::seconds(3);

TreeMemory settledMemory(const QString& path, const QStringList& arguments, int windows) {
    FreshProgram program(path, arguments);
    program.timeOf(FreshProgram::pageShown, windows);
    timed([](const auto& finish) { QTimer::singleShot(settling, finish); });
    return program.memory();
}

/// By `counts`.
using Memories = std::vector<TreeMemory>;

/// What each of the last eight windows adds.
double laterWindow(const Memories& memories) {
    return (memories[2].tree.withoutFiles - memories[1].tree.withoutFiles) / (counts[2] - counts[1]);
}

void printAll(const std::string& name, const Memories& memories) {
    for (std::size_t row = 0; row < memories.size(); ++row) {
        const TreeMemory& memory = memories[row];
        const std::string title = name + ", windows: " + std::to_string(counts[row]) +
                                  ", processes: " + std::to_string(memory.processes);
        print(title + ": MB", memory.tree.whole);
        print("  without pages of files: MB", memory.tree.withoutFiles);
        print("  the same for each window: MB", memory.tree.withoutFiles / counts[row]);
        print("  of that in the program's own process: MB", memory.own.withoutFiles);
    }
    print("  a window from the third to the tenth, without pages of files: MB", laterWindow(memories));
    print("  / the first window", laterWindow(memories) / memories[0].tree.withoutFiles);
}

} // namespace

void measureMemory() {
    Memories ours;
    Memories bare;
    for (const int windows : counts) {
        const Packages packages(windows, components);
        ours.push_back(settledMemory(QUILLON_PROGRAM, packages.paths(), windows));
        bare.push_back(
            settledMemory(QCoreApplication::applicationFilePath(), bareArguments(packages.pages()), windows));
    }
    printAll("memory of the program, 100 components", ours);
    printAll("memory of web views alone", bare);
    print("first window / web view alone", ours[0].tree.withoutFiles / bare[0].tree.withoutFiles);
    print("later window / web view alone", laterWindow(ours) / laterWindow(bare));
}

} // namespace quillon::bench
