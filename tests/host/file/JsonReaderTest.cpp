#include "host/file/JsonReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using fen::JsonValue;
using Kind = JsonValue::Kind;

constexpr fen::JsonLimits limits{4, 5};

/// "line:column message" of the first error; empty for good JSON.
std::string problemOf(std::string_view text)
{
    JsonValue value;
    auto const problem = fen::readJson(text, limits, value);
    if (!problem) return {};
    fen::TextPlace const at = fen::placeOf(text, problem->offset);
    return std::to_string(at.line) + ':' + std::to_string(at.column) + ' ' + problem->message.toStdString();
}

} // namespace

TEST(JsonReader, TellsWhatIsWrongAndWhere)
{
    struct Row {
        std::string_view text;
        char const* problem; ///< begins so; empty: none
    };
    using namespace std::string_view_literals;
    Row const rows[] = {
        {"{\"a\": [1, -2.5e+3, null, \"x\"], \"b\": {}}", ""},
        {"\xEF\xBB\xBF[]", ""},
        {" \t\r\n-0 ", ""},
        {"\"\\u00e9\\ud83d\\ude00\\\"\\/\"", ""},
        {"[[[[]]]]", ""},
        {"[1,2,3,4,5]", ""},
        {"", "1:1 expected a value, found the end of the file"},
        {"[1,2,3,4,5,6]", "1:12 more than 5 numbers"},
        {"[[[[[]]]]]", "1:5 lists and objects more than 4 deep"},
        {"{\"a\": 1,\n \"b\": 2,\n \"a\": 3}", "3:2 the key stands here a second time"},
        {"{\"a\": 1, \"\\u0061\": 3}", "1:10 the key stands here a second time"},
        {"{}\n x", "2:2 there is more behind the end"},
        {"[1, 2", "1:6 expected a comma or ], found the end"},
        {"[1 2]", "1:4 expected a comma or ], found 2"},
        {"[1,]", "1:4 expected a value, found ]"},
        {"{\"\xC3\xA9\" 1}", "1:6 expected a colon, found 1"},
        {"{a: 1}", "1:2 expected a key in quotes, found a"},
        {"{\"a\": 1,}", "1:9 expected a key in quotes, found }"},
        {"[\"a\nb\"]", "1:4 a line end or control character"},
        {"[\"a", "1:4 the text in quotes has no end"},
        {"\"\\x\"", "1:2 no such escape"},
        {"\"\\u12g4\"", "1:2 no such escape"},
        {"\"\\ud800\"", "1:8 half a surrogate pair"},
        {"\"\\ud800\\n\"", "1:8 half a surrogate pair"},
        {"\"\\udc00\"", "1:2 half a surrogate pair"},
        {"[01]", "1:2 expected a value"},
        {"[+1]", "1:2 expected a value"},
        {"[1.]", "1:2 expected a value"},
        {"[.5]", "1:2 expected a value"},
        {"[1e]", "1:2 expected a value"},
        {"[1e999]", "1:2 the number is beyond the range"},
        {"[nan]", "1:2 expected a value"},
        {"[tru]", "1:2 expected a value"},
        {"[\"\xFF\"]", "1:3 byte 0xff is no UTF-8"},
        {"[\"\xED\xA0\x80\"]", "1:3 byte 0xed is no UTF-8"},
        {"[1]\0"sv, "1:4 there is more"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(std::string(row.text));
        std::string const problem = problemOf(row.text);
        std::string const expected = row.problem;
        EXPECT_EQ(expected, problem.substr(0, expected.empty() ? problem.size() : expected.size()));
    }
}

TEST(JsonReader, KeepsOrderTextsAndNumbers)
{
    std::string_view const text =
        "{\"z\": \"\\u00e9\\n\\\"\", \"a\": [1, null, \"inf\", 0.1], \"m\": [1, {}]}";
    JsonValue value;
    ASSERT_FALSE(fen::readJson(text, limits, value));
    ASSERT_EQ(3U, value.members.size());
    EXPECT_EQ(QStringLiteral("z"), value.members[0].key);
    EXPECT_EQ(QString::fromUtf8("\xC3\xA9\n\""), value.members[0].value.text());
    std::vector<double> numbers;
    EXPECT_FALSE(fen::readNumbers(*value.find("a"), numbers));
    ASSERT_EQ(4U, numbers.size());
    EXPECT_TRUE(std::isnan(numbers[1]) && std::isinf(numbers[2]));
    EXPECT_EQ(0.1, numbers[3]);
    EXPECT_TRUE(value.find("m")->mixed);
    EXPECT_EQ("{\"z\":\"\\u00e9\\n\\\"\",\"a\":[1,null,\"inf\",0.1],\"m\":[1,{}]}",
              fen::compactJson(text).toStdString());
}
