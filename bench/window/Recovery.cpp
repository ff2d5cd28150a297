#include "Measure.h"
#include "Subject.h"

#include "document/RecoveryKeeper.h"
#include "document/RecoveryStore.h"

#include <QCoreApplication>

#include <filesystem>

#include <sys/resource.h>

/// How long after an edit its recovery copy stands, and what it costs beside 200 MB of assets.
namespace quillon::bench {

namespace {

double processorTime() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto inSeconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return inSeconds(usage.ru_utime) + inSeconds(usage.ru_stime);
}

std::uint64_t bytesBelow(const std::string& folder) {
    std::uint64_t bytes = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        bytes += entry.is_regular_file() ? entry.file_size() : 0;
    }
    return bytes;
}

ArticleFileDocument document(std::size_t components, std::size_t assetMegabytes) {
    Assets assets;
    for (std::size_t index = 0; index < assetMegabytes; ++index) {
        assets.emplace("images/" + std::to_string(index) + ".jpg", Bytes(std::string(1U << 20U, 'x')));
    }
    return {sharedArticleDecoder.decode(makeArticle(components, ArticleShape::mixed)).value(), assets,
            assetsFingerprintText(assets)};
}

/// Seconds until the copy's folder has grown beyond `bytes`.
double untilGrown(const std::string& folder, std::uint64_t bytes) {
    return timed([&](const auto& finish) {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, [=] {
            if (bytesBelow(folder) > bytes) {
                timer->deleteLater();
                finish();
            }
        });
        timer->start(2);
    });
}

void measureCopies(std::size_t megabytes) {
    QTemporaryDir scratch;
    const std::string folder = scratch.filePath("recovery").toStdString();
    std::filesystem::create_directories(folder);
    QtScheduler scheduler;
    const RecoveryStore copies(folder);
    DocumentStore store(document(1000, megabytes), file::NeverSaved{}, seconds);
    RecoveryKeeper keeper(store, copies.newCopy(), scheduler);
    typeInto(store, "first");
    const double first = untilGrown(folder, 0);
    const std::uint64_t whole = bytesBelow(folder);
    const std::string name = ", 1,000 components, " + std::to_string(megabytes) + " MB of assets";
    std::vector<double> later;
    const double before = processorTime();
    constexpr int edits = 5;
    for (int index = 0; index < edits; ++index) {
        const std::uint64_t bytes = bytesBelow(folder);
        typeInto(store, "edit " + std::to_string(index));
        later.push_back(untilGrown(folder, bytes));
    }
    print("first edit to recovery copy" + name + ": s", first, 2);
    print("later edit to recovery copy" + name + ": s (slowest of 5)", percentile(later, 1), 2);
    print("  size of the whole copy: KiB", static_cast<double>(whole) / 1024);
    print("  bytes on disk for each later edit", static_cast<double>(bytesBelow(folder) - whole) / edits);
    print("  processor ms for each later edit, watching included", (processorTime() - before) / edits * 1e3);
}

} // namespace

void measureRecovery() {
    measureCopies(0);
    measureCopies(200);
}

} // namespace quillon::bench
