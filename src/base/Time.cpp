#include "base/Time.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace quillon {

namespace {

using namespace std::chrono;

constexpr std::int64_t firstSecond = sys_seconds(sys_days(year(0) / 1 / 1)).time_since_epoch().count();
constexpr std::int64_t lastSecond = sys_seconds(sys_days(year(10000) / 1 / 1)).time_since_epoch().count() - 1;

/// Takes the parts of a text from its front; once a part is missing, every later one is too.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    int digits(std::size_t count) {
        int value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (i >= rest_.size() || rest_[i] < '0' || rest_[i] > '9') {
                isIntact_ = false;
                return 0;
            }
            value = value * 10 + (rest_[i] - '0');
        }
        rest_.remove_prefix(count);
        return value;
    }

    bool accept(char expected) {
        if (!rest_.starts_with(expected))
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    void expect(char expected) { isIntact_ = accept(expected) && isIntact_; }

    /// The value of the digits behind a decimal point, at least one.
    double fraction() {
        double value = digits(1) / 10.0;
        for (double place = 0.01; !rest_.empty() && rest_[0] >= '0' && rest_[0] <= '9'; place /= 10)
            value += digits(1) * place;
        return value;
    }

    bool reachedEnd() const { return isIntact_ && rest_.empty(); }

private:
    std::string_view rest_;
    bool isIntact_ = true;
};

void appendPadded(std::string& out, unsigned value, int width) {
    unsigned divisor = 1;
    for (int i = 1; i < width; ++i)
        divisor *= 10;
    for (; divisor > 0; divisor /= 10)
        out += static_cast<char>('0' + value / divisor % 10);
}

} // namespace

double wallClockSeconds() {
    return duration<double>(system_clock::now().time_since_epoch()).count();
}

std::string iso8601(std::int64_t seconds) {
    const sys_seconds moment{std::chrono::seconds(std::clamp(seconds, firstSecond, lastSecond))};
    const sys_days midnight = floor<days>(moment);
    const year_month_day date(midnight);
    const hh_mm_ss time(moment - midnight);
    std::string text;
    text.reserve(20);
    appendPadded(text, static_cast<unsigned>(static_cast<int>(date.year())), 4);
    text += '-';
    appendPadded(text, static_cast<unsigned>(date.month()), 2);
    text += '-';
    appendPadded(text, static_cast<unsigned>(date.day()), 2);
    text += 'T';
    appendPadded(text, static_cast<unsigned>(time.hours().count()), 2);
    text += ':';
    appendPadded(text, static_cast<unsigned>(time.minutes().count()), 2);
    text += ':';
    appendPadded(text, static_cast<unsigned>(time.seconds().count()), 2);
    text += 'Z';
    return text;
}

std::string iso8601Now() {
    return iso8601(static_cast<std::int64_t>(std::floor(wallClockSeconds())));
}

std::optional<double> parseIso8601(std::string_view text, FractionalSeconds fraction) {
    Scanner scanner(text);
    const int yearNumber = scanner.digits(4);
    scanner.expect('-');
    const int monthNumber = scanner.digits(2);
    scanner.expect('-');
    const int dayNumber = scanner.digits(2);
    scanner.expect('T');
    const int hourNumber = scanner.digits(2);
    scanner.expect(':');
    const int minuteNumber = scanner.digits(2);
    scanner.expect(':');
    const int secondNumber = scanner.digits(2);

    double partOfSecond = 0;
    if (fraction == FractionalSeconds::required) {
        scanner.expect('.');
        partOfSecond = scanner.fraction();
    } else if (fraction == FractionalSeconds::allowed && scanner.accept('.')) {
        partOfSecond = scanner.fraction();
    }

    int offsetMinutes = 0;
    if (!scanner.accept('Z')) {
        const bool isBehind = scanner.accept('-');
        if (!isBehind)
            scanner.expect('+');
        const int offsetHour = scanner.digits(2);
        scanner.expect(':');
        const int offsetMinute = scanner.digits(2);
        if (offsetHour > 23 || offsetMinute > 59)
            return std::nullopt;
        offsetMinutes = (offsetHour * 60 + offsetMinute) * (isBehind ? -1 : 1);
    }
    const year_month_day date = year(yearNumber) / monthNumber / dayNumber;
    if (!scanner.reachedEnd() || !date.ok() || hourNumber > 23 || minuteNumber > 59 || secondNumber > 59)
        return std::nullopt;
    const auto midnight = sys_seconds(sys_days(date)).time_since_epoch();
    const auto whole = midnight + hours(hourNumber) + minutes(minuteNumber - offsetMinutes) +
                       std::chrono::seconds(secondNumber);
    return static_cast<double>(whole.count()) + partOfSecond;
}

} // namespace quillon
