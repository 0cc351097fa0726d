#include "reports/json_values.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace tamberline {
namespace {

using nlohmann::json;

const json everyType = json::parse(R"({
  "text": "x", "number text": "60", "empty": "", "integer": 5, "negative": -5, "real": 1.0,
  "true": true, "false": false, "null": null, "object": {"a": 1}, "objects": [{}, {"a": 1}],
  "mixed": [{}, 1], "texts": ["x"], "nothing in it": []
})");

constexpr const char* notTexts[] = {"integer", "real",    "true",  "null",
                                    "object",  "objects", "texts", "missing"};
constexpr const char* notIntegers[] = {"text", "number text", "empty",   "real",  "true",   "false",
                                       "null", "object",      "objects", "texts", "missing"};
constexpr const char* notObjects[] = {"text", "integer", "true", "null", "objects", "missing"};
constexpr const char* notArraysOfObjects[] = {"text",   "integer", "true",  "null",
                                              "object", "mixed",   "texts", "missing"};

TEST(JsonValues, TextIsTakenOnlyFromTexts) {
  EXPECT_EQ(textMember(everyType, "text"), "x");
  EXPECT_EQ(textMember(everyType, "empty"), "");
  for (const char* key : notTexts) {
    SCOPED_TRACE(key);
    EXPECT_EQ(textMember(everyType, key), std::nullopt);
  }
}

TEST(JsonValues, TextFallsBackWhereThereIsNone) {
  EXPECT_EQ(textMember(everyType, "text", "fallback"), "x");
  EXPECT_EQ(textMember(everyType, "empty", "fallback"), "");
  for (const char* key : notTexts) {
    SCOPED_TRACE(key);
    EXPECT_EQ(textMember(everyType, key, "fallback"), "fallback");
  }
}

TEST(JsonValues, IntegerIsTakenOnlyFromIntegers) {
  EXPECT_EQ(integerMember(everyType, "integer"), 5);
  EXPECT_EQ(integerMember(everyType, "negative"), -5);
  for (const char* key : notIntegers) {
    SCOPED_TRACE(key);
    EXPECT_EQ(integerMember(everyType, key), std::nullopt);
  }
}

std::optional<std::int64_t> integerWritten(const std::string& number) {
  return integerMember(json::parse("{\"n\": " + number + "}"), "n");
}

TEST(JsonValues, IntegersFitSixtyFourSignedBits) {
  EXPECT_EQ(integerWritten("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(integerWritten("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(integerWritten("0"), 0);
  EXPECT_EQ(integerWritten("-0"), 0);
}

TEST(JsonValues, OtherNumbersAreAbsent) {
  for (const char* number :
       {"9223372036854775808", "-9223372036854775809", "18446744073709551615",
        "18446744073709551616", "99999999999999999999999999", "5.0", "5e0", "5E2", "0.5"}) {
    SCOPED_TRACE(number);
    EXPECT_EQ(integerWritten(number), std::nullopt);
  }
}

std::optional<std::int64_t> integerInText(const std::string& text) {
  return integerTextMember(json{{"n", text}}, "n");
}

TEST(JsonValues, IntegerInATextIsASignAndDigits) {
  EXPECT_EQ(integerInText("500"), 500);
  EXPECT_EQ(integerInText("-1"), -1);
  EXPECT_EQ(integerInText("+1"), 1);
  for (const char* text :
       {"", "n/a", "500 mA", " 500", "500 ", "5.0", "0x10", "1e3", "9223372036854775808"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(integerInText(text), std::nullopt);
  }
}

TEST(JsonValues, IntegerInATextIsNotTakenFromNumbers) {
  EXPECT_EQ(integerTextMember(everyType, "number text"), 60);
  EXPECT_EQ(integerTextMember(everyType, "integer"), std::nullopt);
  EXPECT_EQ(integerTextMember(everyType, "missing"), std::nullopt);
}

TEST(JsonValues, FlagIsSetOnlyByOneText) {
  const json flags = json::parse(R"({"TRUE": "TRUE", "true": "true", "True": "True", "Yes": "Yes",
    "blank": "TRUE ", "FALSE": "FALSE", "boolean": true, "one": 1, "empty": ""})");
  EXPECT_TRUE(flagMember(flags, "TRUE"));
  for (const char* key :
       {"true", "True", "Yes", "blank", "FALSE", "boolean", "one", "empty", "missing"}) {
    SCOPED_TRACE(key);
    EXPECT_FALSE(flagMember(flags, key));
  }
}

TEST(JsonValues, ObjectIsEmptyWhereThereIsNone) {
  EXPECT_EQ(objectMember(everyType, "object"), json::parse(R"({"a": 1})"));
  for (const char* key : notObjects) {
    SCOPED_TRACE(key);
    EXPECT_EQ(objectMember(everyType, key), json::object());
  }
}

TEST(JsonValues, ArrayOfObjectsHoldsNothingElse) {
  EXPECT_EQ(objectsMember(everyType, "objects"), json::parse(R"([{}, {"a": 1}])"));
  EXPECT_EQ(objectsMember(everyType, "nothing in it"), json::array());
  for (const char* key : notArraysOfObjects) {
    SCOPED_TRACE(key);
    EXPECT_EQ(objectsMember(everyType, key), json::array());
  }
}

TEST(JsonValues, OtherValuesThanObjectsHaveNoMembers) {
  for (const json& value : {json(), json(1), json("x"), json(true), json::array({1})}) {
    SCOPED_TRACE(value.type_name());
    EXPECT_EQ(textMember(value, "a"), std::nullopt);
    EXPECT_EQ(integerMember(value, "a"), std::nullopt);
    EXPECT_FALSE(flagMember(value, "a"));
    EXPECT_EQ(objectMember(value, "a"), json::object());
    EXPECT_EQ(objectsMember(value, "a"), json::array());
  }
}

} // namespace
} // namespace tamberline
