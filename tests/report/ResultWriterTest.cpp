// The results writer: JSON numbers, strings and nesting, and CSV quoting. The
// expected texts follow RFC 8259 (JSON) and RFC 4180 (CSV); the numbers' shortest
// forms are the decimal literals that name those doubles.
#include "report/ResultWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

namespace {

struct JsonCase {
    const char* what;
    ResultValue value;
    const char* expected;
};

ResultValue Pair() { return ResultValue::Object().Set("b", 2).Set("a", ResultValue::List()); }

TEST(ResultWriter, JsonTexts) {
    const double inf = std::numeric_limits<double>::infinity();
    const JsonCase cases[] = {
        {"a tenth, shortest", 0.1, "0.1"},
        {"a third: 16 digits read back", 1.0 / 3.0, "0.3333333333333333"},
        {"0.1 + 0.2 is not 0.3", 0.1 + 0.2, "0.30000000000000004"},
        {"whole number", 120, "120"},
        {"large", 1e21, "1e+21"},
        {"smallest subnormal", std::numeric_limits<double>::denorm_min(), "5e-324"},
        {"negative zero", -0.0, "-0"},
        {"NaN", std::nan(""), "null"},
        {"infinity", inf, "null"},
        {"minus infinity", -inf, "null"},
        {"null", ResultValue(), "null"},
        {"boolean", true, "true"},
        {"quote, backslash, line end, tab", "a\"b\\c\nd\te", R"("a\"b\\c\nd\te")"},
        {"control character", std::string("x\x01y"), R"("x\u0001y")"},
        {"UTF-8 kept", "caf\xc3\xa9", "\"caf\xc3\xa9\""},
        {"stray Latin-1 byte", "caf\xe9", R"("caf\u00e9")"},
        {"truncated UTF-8 sequence", "\xe2\x82", R"("\u00e2\u0082")"},
        {"object keeps insertion order", Pair(), R"({"b":2,"a":[]})"},
        {"a key set again keeps its place", Pair().Set("b", 3), R"({"b":3,"a":[]})"},
    };
    for (const JsonCase& c : cases) EXPECT_EQ(res_JsonText(c.value, false), c.expected) << c.what;
}

TEST(ResultWriter, PrettyJsonKeepsScalarRowsOnOneLine) {
    ResultValue rows = ResultValue::List();
    rows.Append(ResultValue::Object().Set("n", 5).Set("mean", 3));
    ResultValue doc = ResultValue::Object().Set("command", "interval").Set("entries", rows);
    EXPECT_EQ(res_JsonText(doc, true),
              "{\n"
              "  \"command\": \"interval\",\n"
              "  \"entries\": [\n"
              "    {\"n\": 5, \"mean\": 3}\n"
              "  ]\n"
              "}");
}

TEST(ResultWriter, CsvQuotingAndMissingFields) {
    ResultValue rows = ResultValue::List();
    rows.Append(ResultValue::Object().Set("file", "a,b.dat").Set("mean", 2.5).Set("ok", true));
    rows.Append(ResultValue::Object().Set("file", "say \"hi\"").Set("mean", std::nan("")).Set("extra", "x\ny"));
    rows.Append(ResultValue::Object().Set("file", "plain"));
    std::ostringstream out;
    res_WriteCsv(out, rows);
    EXPECT_EQ(out.str(),
              "file,mean,ok,extra\r\n"
              "\"a,b.dat\",2.5,true,\r\n"
              "\"say \"\"hi\"\"\",,,\"x\ny\"\r\n"
              "plain,,,\r\n");

    ResultValue column = ResultValue::List();
    column.Append(1.5);
    std::ostringstream scalars;
    res_WriteCsv(scalars, column);
    EXPECT_EQ(scalars.str(), "value\r\n1.5\r\n");
}

}  // namespace
