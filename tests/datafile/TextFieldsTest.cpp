#include <gtest/gtest.h>

#include <string>

#include "datafile/DataFile.h"

namespace {

TEST(TextFields, ParseRepTreatment) {
    struct Case {
        const char* text;
        int expected;
    } cases[] = {{"", 1},          {"lumped", -4},      {"Lumped", -4},     {"L", -4},       {"All", -1},
                 {"all", -1},      {"r", -1},           {"Reps", -1},       {"x", -3},       {"12", 12},
                 {"0", 0},         {"123456789", 123456789}, {"1234567890", -3}, {"3a", -3},  {" 3", -3},
                 {"-1", -3},       {"+2", -3},          {"All ", -3}};
    for (const Case& c : cases) EXPECT_EQ(op_ParseRepTreatment(c.text), c.expected) << '"' << c.text << '"';
}

TEST(TextFields, ParseNumber) {
    struct Case {
        const char* text;
        int rc;
        double value;
    } cases[] = {{"-0", 15927, 0.0}, {"-0.0", 15927, 0.0}, {"-1.5", 0, -1.5}, {"1.5 ", 15927, 0.0},
                 {" 1.5", 0, 1.5},   {"", 0, 0.0},         {"0", 0, 0.0},     {"95", 0, 95.0},
                 {"1e3", 0, 1000.0}, {"abc", 15927, 0.0},  {"1,5", 15927, 0.0}};
    for (const Case& c : cases) {
        double out = -99;
        EXPECT_EQ(op_ParseNumber(c.text, &out), c.rc) << c.text;
        EXPECT_EQ(out, c.value) << c.text;
    }
}

TEST(TextFields, TrimAndClassify) {
    char a[] = "abc \t\r\n";
    op_TrimRight(a);
    EXPECT_STREQ(a, "abc");
    char b[] = "   ";
    op_TrimRight(b);
    EXPECT_STREQ(b, "");
    EXPECT_TRUE(op_IsAlpha(""));
    EXPECT_TRUE(op_IsDigits(""));
    EXPECT_TRUE(op_IsAlpha("Lumped"));
    EXPECT_FALSE(op_IsAlpha("L1"));
    EXPECT_TRUE(op_IsDigits("0123"));
    EXPECT_FALSE(op_IsDigits("1.0"));
}

TEST(TextFields, PickNonEmpty) {
    struct Case {
        std::string target, first, second, expected;
    } cases[] = {{"keep", "a", "b", "keep"}, {"", "a", "b", "b"}, {"", "a", "", "a"}, {"", "", "", ""}};
    for (Case c : cases) {
        op_PickNonEmpty(c.target, c.first, c.second);
        EXPECT_EQ(c.target, c.expected);
    }
}

}  // namespace
