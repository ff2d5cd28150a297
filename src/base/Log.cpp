#include "base/Log.h"

#include "base/Time.h"

#include <array>
#include <atomic>
#include <charconv>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>

#include <spdlog/sinks/base_sink.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

namespace quillon {

namespace {

using LoggerHandle = std::shared_ptr<spdlog::logger>;

constexpr const char* subsystem = "com.tarnwell.quillon";
constexpr const char* linePattern = "%Y-%m-%d %H:%M:%S.%f%z com.tarnwell.quillon:Performance %l %v";
constexpr std::size_t longestDuration = 400; // DBL_MAX has 309 digits before its point

class FunctionSink final : public spdlog::sinks::base_sink<std::mutex> {
public:
    explicit FunctionSink(std::function<void(std::string_view)> receive) : receive_(std::move(receive)) {}

private:
    void sink_it_(const spdlog::details::log_msg& message) override {
        receive_({message.payload.data(), message.payload.size()});
    }

    void flush_() override {}

    std::function<void(std::string_view)> receive_;
};

LoggerHandle makeLogger(spdlog::sink_ptr sink) {
    auto logger = std::make_shared<spdlog::logger>(subsystem, std::move(sink));
    logger->set_pattern(linePattern);
    logger->set_level(spdlog::level::debug);
    logger->flush_on(spdlog::level::debug);
    return logger;
}

/// The logger that QUILLON_LOG asks for; none when it is to be silent.
LoggerHandle environmentLogger() {
    const char* const variable = std::getenv("QUILLON_LOG");
    const std::string_view wish = variable ? variable : "";
    const bool isPath = wish.find('/') != std::string_view::npos;
    if (!isPath && wish != "performance" && wish != "1")
        return nullptr;
    if (isPath) {
        try {
            return makeLogger(std::make_shared<spdlog::sinks::basic_file_sink_mt>(std::string(wish), true));
        } catch (const spdlog::spdlog_ex&) {
            // A file that cannot be written must not swallow the lines that were asked for.
        }
    }
    return makeLogger(std::make_shared<spdlog::sinks::stderr_sink_mt>());
}

class Channel {
public:
    Channel() { set(environmentLogger()); }

    bool isEnabled() const { return isEnabled_.load(std::memory_order_relaxed); }

    void set(LoggerHandle logger) {
        const bool enable = logger != nullptr;
        logger_.store(std::move(logger));
        isEnabled_.store(enable);
    }

    void write(std::string_view line) {
        if (const LoggerHandle logger = logger_.load())
            logger->log(spdlog::level::debug, spdlog::string_view_t(line.data(), line.size()));
    }

private:
    std::atomic<bool> isEnabled_ = false;
    std::atomic<LoggerHandle> logger_;
};

Channel& channel() {
    // Never destroyed: threads that outlive main may still log.
    static Channel& instance = *new Channel;
    return instance;
}

void append(std::string& line, std::string_view detail) {
    if (detail.empty())
        return;
    line += ' ';
    line += detail;
}

} // namespace

double logClock() {
    return wallClockSeconds();
}

void logEvent(std::string_view name, std::string_view detail) {
    if (!channel().isEnabled())
        return;
    std::string line(name);
    append(line, detail);
    channel().write(line);
}

void logDuration(std::string_view name, double start, std::string_view detail) {
    const double milliseconds = (logClock() - start) * 1000.0;
    if (!channel().isEnabled())
        return;
    std::array<char, longestDuration> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), milliseconds,
                                       std::chars_format::fixed, 2);
    std::string line(name);
    line += " completed in ";
    line.append(digits.data(), written.ptr);
    line += " ms";
    append(line, detail);
    channel().write(line);
}

void setLogSink(std::function<void(std::string_view)> sink) {
    channel().set(sink ? makeLogger(std::make_shared<FunctionSink>(std::move(sink))) : environmentLogger());
}

} // namespace quillon
