// The numbers of the conversions' text: what reads, what is refused, and that
// the written form of the awkward values reads back to the same bits.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "convert/TextNumbers.h"

namespace {

struct ParseCase {
    const char* text;
    bool ok;
    double value;      // when ok and not NaN
    std::size_t used;  // characters taken
};

TEST(TextNumbers, ParsesTheFormsUsersAndExportsWrite) {
    const double inf = std::numeric_limits<double>::infinity();
    const ParseCase cases[] = {
        {"1.5", true, 1.5, 3},       {"+1.5", true, 1.5, 4},      {"-2e3", true, -2000.0, 4},
        {".25", true, 0.25, 3},      {"7.", true, 7.0, 2},        {"1e", true, 1.0, 1},
        {"Infinity", true, inf, 8},  {"-INF", true, -inf, 4},     {"3,5", true, 3.0, 1},
        {"--1", false, 0, 0},        {"+-1", false, 0, 0},        {"", false, 0, 0},
        {"-", false, 0, 0},          {".", false, 0, 0},          {"e5", false, 0, 0},
        {"1e999", false, 0, 0},      {"nan(0x0)", false, 0, 0},   {"nan(0x)", false, 0, 0},
        {"nan(12)", false, 0, 0},    {"nan(0x10000000000000)", false, 0, 0},
    };
    for (const ParseCase& c : cases) {
        double v = 0.0;
        const char* end = c.text + std::strlen(c.text);
        const char* p = conv_ParseNumber(c.text, end, false, &v);
        ASSERT_EQ(p != nullptr, c.ok) << c.text;
        if (!c.ok) continue;
        EXPECT_EQ(v, c.value) << c.text;
        EXPECT_EQ(static_cast<std::size_t>(p - c.text), c.used) << c.text;
    }
}

TEST(TextNumbers, AwkwardValuesComeBackBitForBit) {
    // Bit patterns: zeros, NaNs with sign and payload, the extremes of doubles.
    const std::uint64_t doubles[] = {
        0x0000000000000000, 0x8000000000000000, 0x7FF8000000000000, 0xFFF8000000000000,
        0x7FF0000000000001, 0x7FFC000000000ABC, 0x7FF0000000000000, 0xFFF0000000000000,
        0x7FEFFFFFFFFFFFFF, 0x0000000000000001, 0x0010000000000000, 0x3FB999999999999A,
    };
    for (std::uint64_t bits : doubles) {
        char text[kNumberTextMax];
        const std::size_t n = conv_FormatNumber(text, std::bit_cast<double>(bits), false);
        double back = 0.0;
        ASSERT_EQ(conv_ParseNumber(text, text + n, false, &back), text + n) << std::string(text, n);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(back), bits) << std::string(text, n);
    }
    // Floats are written as the float, not as the widened double ("0.1", not
    // "0.10000000149011612"), and read back to it.
    const float floats[] = {0.1f, -0.0f, std::numeric_limits<float>::max(), std::numeric_limits<float>::denorm_min(),
                            16777217.0f, 1e-38f};
    for (float f : floats) {
        char text[kNumberTextMax];
        const std::size_t n = conv_FormatNumber(text, f, true);
        double back = 0.0;
        ASSERT_EQ(conv_ParseNumber(text, text + n, true, &back), text + n) << std::string(text, n);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(static_cast<float>(back)), std::bit_cast<std::uint32_t>(f))
            << std::string(text, n);
    }
    char text[kNumberTextMax];
    EXPECT_EQ(std::string(text, conv_FormatNumber(text, 0.1f, true)), "0.1");
}

}  // namespace
