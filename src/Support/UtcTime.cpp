#include "Support/UtcTime.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numeric>

namespace kerlune {

namespace {

constexpr std::int64_t kMicrosecond = 1'000'000; // of a second
constexpr std::int64_t kNanosecond = 1'000'000'000;
constexpr std::int64_t kDay = 86'400;
constexpr std::int64_t kEnd = 253'402'300'800; // 10000-01-01

// Takes a number of exactly `digits` digits from the beginning; −1 when there is none.
int takeNumber(std::string_view &text, std::size_t digits)
{
    const std::string_view taken = text.substr(0, digits);
    if (taken.size() < digits || taken.find_first_not_of("0123456789") != std::string_view::npos)
        return -1;
    text.remove_prefix(digits);
    return std::accumulate(taken.begin(), taken.end(), 0, [](int sum, char digit) { return sum * 10 + (digit - '0'); });
}

bool takeMark(std::string_view &text, char mark)
{
    if (!text.starts_with(mark))
        return false;
    text.remove_prefix(1);
    return true;
}

int takeNumberAfter(std::string_view &text, char mark)
{
    return takeMark(text, mark) ? takeNumber(text, 2) : -1;
}

// Nanoseconds; 0 where there is no fraction, −1 when it is none.
int takeFraction(std::string_view &text)
{
    if (!takeMark(text, '.'))
        return 0;
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    if (digits == 0 || digits > 9)
        return -1;
    int fraction = takeNumber(text, digits);
    for (std::size_t i = digits; i < 9; ++i)
        fraction *= 10;
    return fraction;
}

} // namespace

std::string utcTimeText(double seconds)
{
    namespace chrono = std::chrono;
    const double inRange = std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, static_cast<double>(kEnd));
    // Whole seconds and fraction apart: together they have more digits than a double.
    const double whole = std::floor(inRange);
    const std::int64_t fraction = std::llround((inRange - whole) * static_cast<double>(kMicrosecond));
    const std::int64_t total =
        std::min(static_cast<std::int64_t>(whole) * kMicrosecond + fraction, kEnd * kMicrosecond - 1);
    const std::int64_t second = total / kMicrosecond;
    const chrono::year_month_day day{chrono::sys_days(chrono::days(second / kDay))};
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%06dZ", static_cast<int>(day.year()),
        static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()), static_cast<int>(second % kDay / 3600),
        static_cast<int>(second % 3600 / 60), static_cast<int>(second % 60), static_cast<int>(total % kMicrosecond));
    return {text.data(), static_cast<std::size_t>(length)};
}

std::optional<double> utcTimeFromText(std::string_view text)
{
    namespace chrono = std::chrono;
    const int year = takeNumber(text, 4);
    const int month = takeNumberAfter(text, '-');
    const int day = takeNumberAfter(text, '-');
    const int hour = takeNumberAfter(text, 'T');
    const int minute = takeNumberAfter(text, ':');
    const int second = takeNumberAfter(text, ':');
    const int fraction = takeFraction(text);
    if (year < 1970 || month < 0 || day < 0 || hour < 0 || minute < 0 || second < 0 || fraction < 0 || text != "Z")
        return std::nullopt;
    const chrono::year_month_day date(chrono::year(year), chrono::month(static_cast<unsigned>(month)),
                                      chrono::day(static_cast<unsigned>(day)));
    if (!date.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    const std::int64_t days = chrono::sys_days(date).time_since_epoch().count();
    const int secondOfDay = (hour * 60 + minute) * 60 + second;
    return static_cast<double>(days * kDay + secondOfDay) +
           static_cast<double>(fraction) / static_cast<double>(kNanosecond);
}

} // namespace kerlune
