#include "framework/IntField.h"

#include <gtest/gtest.h>

namespace {

TEST(IntField, TextsTheFrameworkTakesAndRefuses) {
    const std::string notInteger = "Please enter an integer.";
    const std::string outside = "Please enter an integer between 0 and 9999.";
    struct Case {
        const char* text;
        int value;                // when taken
        const std::string* text_;  // the message, null when taken
    } cases[] = {
        {"5", 5, nullptr},           {" 5\t", 5, nullptr},        {"00012", 12, nullptr},
        {"+7", 7, nullptr},          {"0", 0, nullptr},           {"9999", 9999, nullptr},
        {"", 0, &notInteger},        {"abc", 0, &notInteger},     {"5.0", 0, &notInteger},
        {"1e3", 0, &notInteger},     {"12x", 0, &notInteger},     {"-0", 0, &notInteger},
        {"+0", 0, &notInteger},      {"- 5", 0, &notInteger},     {"0x10", 0, &notInteger},
        {"10000", 0, &outside},      {"-1", 0, &outside},         {"99999999999999999999", 0, &outside},
    };
    for (const Case& c : cases) {
        int value = -42;
        std::string message;
        bool taken = ddx_IntField(c.text, 0, 9999, &value, &message);
        EXPECT_EQ(taken, c.text_ == nullptr) << '"' << c.text << '"';
        if (c.text_) {
            EXPECT_EQ(message, *c.text_) << '"' << c.text << '"';
        } else {
            EXPECT_EQ(value, c.value) << '"' << c.text << '"';
        }
    }
}

}  // namespace
