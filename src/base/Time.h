#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The wall clock: seconds since 1970-01-01T00:00:00Z, with their fraction.
double wallClockSeconds();

/// The moment `seconds` after 1970 as internet date-time text in UTC without a fraction, such as
/// "2026-11-22T23:01:10Z". Moments outside the years 0 to 9999 give the nearest moment inside.
std::string iso8601(std::int64_t seconds);

/// The present moment in the form of `iso8601`.
std::string iso8601Now();

/// Whether a date-time text has digits behind its seconds.
enum class FractionalSeconds { forbidden, required, allowed };

/// The moment that an internet date-time text names, in seconds since 1970: four-digit year, month and day
/// with hyphens, "T", hours, minutes and seconds with colons, a fraction as `fraction` says, and "Z" or an
/// offset from UTC as "+hh:mm" or "-hh:mm". Nothing for any other text and for dates and times that do not
/// exist.
std::optional<double> parseIso8601(std::string_view text,
                                   FractionalSeconds fraction = FractionalSeconds::forbidden);

} // namespace quillon
