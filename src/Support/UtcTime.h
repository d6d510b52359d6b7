#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kerlune {

// Dates as ISO 8601 text in UTC: "2026-11-21T13:18:00.123456Z". Numbers are seconds since 1970-01-01 UTC; leap seconds
// do not exist.
//
// Thread: any.

// To the microsecond. What lies outside the years 1970 to 9999, or is no number, becomes the first or last moment of
// them.
std::string utcTimeText(double seconds);

// Takes the form above, with 1 to 9 digits of a fraction or none; years 1970 to 9999. Absent for anything else, such as
// a day that does not exist. What was written and read once is written and read the same again.
std::optional<double> utcTimeFromText(std::string_view text);

} // namespace kerlune
