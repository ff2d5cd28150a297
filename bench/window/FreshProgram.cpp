#include "FreshProgram.h"

#include "Measure.h"

#include <cstdlib>
#include <fstream>
#include <limits>

namespace quillon::bench {

namespace {

HeldMemory memoryOf(const std::string& process) {
    HeldMemory memory;
    std::ifstream rollup("/proc/" + process + "/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        const std::size_t colon = line.find(':');
        if (colon == std::string::npos) {
            continue;
        }
        const std::string_view name(line.data(), colon);
        const double megabytes = std::strtod(line.c_str() + colon + 1, nullptr) / 1024;
        memory.whole += name == "Pss" ? megabytes : 0;
        memory.withoutFiles += name == "Pss_Anon" || name == "Pss_Shmem" ? megabytes : 0;
    }
    return memory;
}

void addTree(const std::string& process, TreeMemory& memory) {
    memory.tree += memoryOf(process);
    ++memory.processes;
    std::ifstream children("/proc/" + process + "/task/" + process + "/children");
    for (std::string child; children >> child;) {
        addTree(child, memory);
    }
}

} // namespace

HeldMemory& HeldMemory::operator+=(const HeldMemory& other) {
    whole += other.whole;
    withoutFiles += other.withoutFiles;
    return *this;
}

FreshProgram::FreshProgram(const QString& path, const QStringList& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_STATE_HOME", m_folder.filePath("state"));
    environment.insert("XDG_CONFIG_HOME", m_folder.filePath("config"));
    environment.insert("QUILLON_LOG", "performance");
    environment.insert("QT_LOGGING_RULES", "*=false;qt.widgets.painting.info=true");
    m_process.setProcessEnvironment(environment);
    QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_process, [this] { read(); });
    m_clock.start();
    m_process.start(path, arguments);
}

FreshProgram::~FreshProgram() {
    m_process.kill();
    m_process.waitForFinished();
}

void FreshProgram::read() {
    const double now = static_cast<double>(m_clock.nsecsElapsed()) * 1e-9;
    m_rest += m_process.readAllStandardError();
    QList<QByteArray> lines = m_rest.split('\n');
    m_rest = lines.takeLast();
    for (QByteArray& line : lines) {
        m_lines.emplace_back(now, std::move(line));
    }
    if (m_onLines) {
        m_onLines();
    }
}

double FreshProgram::timeOf(const char* text, int count) {
    double time = std::numeric_limits<double>::infinity();
    std::size_t next = 0;
    const auto isFound = [&] {
        for (; count > 0 && next < m_lines.size(); ++next) {
            count -= m_lines[next].second.contains(text) ? 1 : 0;
            time = count == 0 ? m_lines[next].first : time;
        }
        return count == 0;
    };
    if (!isFound()) {
        timed([&](const auto& finish) {
            m_onLines = [&isFound, finish] {
                if (isFound()) {
                    finish();
                }
            };
        });
        m_onLines = {};
    }
    return time;
}

TreeMemory FreshProgram::memory() const {
    const std::string process = std::to_string(m_process.processId());
    TreeMemory memory{.own = memoryOf(process)};
    addTree(process, memory);
    return memory;
}

} // namespace quillon::bench
