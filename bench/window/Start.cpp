#include "Measure.h"

#include "ArticleMaker.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdlib>
#include <fstream>
#include <string>

/// The program from its start to the first page, and the memory of all its processes then.
namespace quillon::bench {

namespace {

/// Kilobytes of memory that a process and those below it hold, shared pages divided among their holders.
double treeKilobytes(qint64 process) {
    const std::string base = "/proc/" + std::to_string(process);
    double kilobytes = 0;
    std::ifstream rollup(base + "/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with("Pss:")) {
            kilobytes += std::strtod(line.c_str() + 4, nullptr);
        }
    }
    std::ifstream children(base + "/task/" + std::to_string(process) + "/children");
    for (qint64 child = 0; children >> child;) {
        kilobytes += treeKilobytes(child);
    }
    return kilobytes;
}

bool hasFinished(const std::string& log) {
    std::ifstream file(log);
    for (std::string line; std::getline(file, line);) {
        if (line.find("preview.webview.reload.finish") != std::string::npos) {
            return true;
        }
    }
    return false;
}

struct Start {
    double seconds = 0;
    double megabytes = 0;
};

Start start(std::size_t components) {
    QTemporaryDir scratch;
    const std::string package = scratch.filePath("package").toStdString();
    const std::string log = scratch.filePath("log/lines").toStdString();
    QDir().mkpath(QString::fromStdString(package));
    std::ofstream(package + "/article.json") << makeArticle(components, ArticleShape::mixed);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("XDG_STATE_HOME", scratch.filePath("state"));
    environment.insert("XDG_CONFIG_HOME", scratch.filePath("config"));
    environment.insert("QUILLON_LOG", QString::fromStdString(log));
    QProcess program;
    program.setProcessEnvironment(environment);
    Start result;
    result.seconds = timed([&](const auto& finish) {
        auto* timer = new QTimer(&program);
        QObject::connect(timer, &QTimer::timeout, [=] {
            if (hasFinished(log)) {
                timer->stop();
                finish();
            }
        });
        timer->start(2);
        program.start(QUILLON_PROGRAM, {QString::fromStdString(package)});
    });
    result.megabytes = treeKilobytes(program.processId()) / 1024;
    program.kill();
    program.waitForFinished();
    return result;
}

} // namespace

void measureStart() {
    for (const std::size_t components : {10U, 1000U}) {
        std::vector<double> times;
        Start last;
        for (int run = 0; run < 5; ++run) {
            last = start(components);
            times.push_back(last.seconds);
        }
        const std::string name = ", " + std::to_string(components) + " components";
        print("start of the program to its first page" + name + ": s (median of 5)", percentile(times, 0.5));
        print("memory of all its processes then" + name + ": MB", last.megabytes);
    }
}

} // namespace quillon::bench
