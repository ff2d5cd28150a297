#pragma once

#include <functional>
#include <string_view>

namespace quillon {

/// The channel of timing lines: subsystem "com.tarnwell.quillon", category "Performance", debug level. It is
/// silent unless the environment variable QUILLON_LOG turns it on at the first line: "performance" or "1"
/// writes to standard error, a value with a "/" in it is the path of a file that is written anew, its folders
/// made. Safe from any thread.

/// The clock of `logDuration`: seconds, as a caller notes them before the work.
double logClock();

/// Logs "name detail", or "name" when `detail` is empty.
void logEvent(std::string_view name, std::string_view detail = {});

/// Logs "name completed in 1.50 ms detail", the time counted from `start`, a value of `logClock`; without
/// `detail` the line ends behind "ms".
void logDuration(std::string_view name, double start, std::string_view detail = {});

/// Sends every line to `sink` in place of what the environment says; an empty function returns to that. The
/// text of a line comes without time, subsystem and category. `sink` is called by one thread at a time and
/// must not log.
void setLogSink(std::function<void(std::string_view)> sink);

} // namespace quillon
