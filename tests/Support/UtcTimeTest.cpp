#include "Support/UtcTime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace kerlune {
namespace {

TEST(UtcTime, WritesIso8601ToTheMicrosecond)
{
    struct Case {
        double seconds;
        const char *text;
    };
    for (const auto &[seconds, text] : {
             Case{0, "1970-01-01T00:00:00.000000Z"},
             {951'782'400, "2000-02-29T00:00:00.000000Z"},
             {1'795'267'080.123456, "2026-11-21T13:18:00.123456Z"},
             {1'795'267'079.9999999, "2026-11-21T13:18:00.000000Z"}, // rounded up
             {253'402'300'799, "9999-12-31T23:59:59.000000Z"},
             {1e300, "9999-12-31T23:59:59.999999Z"},
             {std::numeric_limits<double>::infinity(), "9999-12-31T23:59:59.999999Z"},
             {-1, "1970-01-01T00:00:00.000000Z"},
             {std::nan(""), "1970-01-01T00:00:00.000000Z"},
         })
        EXPECT_EQ(utcTimeText(seconds), text) << seconds;
}

TEST(UtcTime, ReadsWhatIsADate)
{
    EXPECT_EQ(utcTimeFromText("2026-11-21T13:18:00Z"), 1'795'267'080);
    EXPECT_EQ(utcTimeFromText("2026-11-21T13:18:00.5Z"), 1'795'267'080.5);
    EXPECT_EQ(utcTimeFromText("1970-01-01T00:00:00.123456789Z"), 0.123456789);
    EXPECT_EQ(utcTimeFromText("9999-12-31T23:59:59Z"), 253'402'300'799);
    for (const char *wrong : {"",
                              "Z",
                              "2026-11-21",
                              "2026-11-21T13:18:00",
                              "2026-11-21T13:18:00+00:00",
                              "2026-11-21T13:18:00.Z",
                              "2026-11-21T13:18:00.1234567890Z",
                              "2026-11-21T13:18:00,5Z",
                              "2026-11-21T13:18Z",
                              "2026-11-21 13:18:00Z",
                              "2026-11-21T13:18:00Z ",
                              "026-11-21T13:18:00Z",
                              "2026-02-29T00:00:00Z",
                              "2026-13-01T00:00:00Z",
                              "2026-00-01T00:00:00Z",
                              "2026-01-00T00:00:00Z",
                              "2026-01-01T24:00:00Z",
                              "2026-01-01T00:60:00Z",
                              "2026-01-01T00:00:60Z",
                              "1969-12-31T23:59:59Z",
                              "-026-01-01T00:00:00Z",
                              "2026-1 -01T00:00:00Z",
                              "12026-01-01T00:00:00Z",
                              "2026-01-01T00:00:00.-5Z"})
        EXPECT_EQ(utcTimeFromText(wrong), std::nullopt) << wrong;
}

TEST(UtcTime, IsExactFromTheSecondTimeOn)
{
    std::mt19937_64 random(1);              // NOLINT(cert-msc51-cpp): the same dates in every run
    for (const double end : {4e9, 253e9}) { // of this century, and of all
        for (int i = 0; i < 100'000; ++i) {
            const double seconds = end * static_cast<double>(random()) / 0x1p64;
            const auto once = utcTimeFromText(utcTimeText(seconds));
            ASSERT_TRUE(once);
            ASSERT_NEAR(*once, seconds, end == 4e9 ? 1e-6 : 2e-5);
            ASSERT_EQ(utcTimeFromText(utcTimeText(*once)), once) << seconds;
        }
    }
}

} // namespace
} // namespace kerlune
