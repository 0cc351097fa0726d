#include "reports/report_decoding.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace tamberline {
namespace {

/// An object whose innermost value is inside `depth` brackets.
std::string nestedReport(int depth) {
  const auto inner = static_cast<std::size_t>(depth - 1);
  return R"({"a": )" + std::string(inner, '[') + "1" + std::string(inner, ']') + "}";
}

TEST(ReportDecoding, GivesTheWholeTopLevelObject) {
  const auto report = decodeReport(R"({"SPUSBDataType": [], "other": {"n": 1}})");
  ASSERT_TRUE(report);
  EXPECT_EQ(*report, nlohmann::json::parse(R"({"SPUSBDataType": [], "other": {"n": 1}})"));
}

TEST(ReportDecoding, GivesAnObjectThatLacksTheSection) {
  const auto report = decodeReport("{}");
  ASSERT_TRUE(report);
  EXPECT_TRUE(report->empty());
}

TEST(ReportDecoding, AcceptsWhiteSpaceAroundTheObject) {
  EXPECT_TRUE(decodeReport(" \r\n\t{}\n\n"));
}

struct Refused {
  const char* what;
  std::string_view bytes;
};

TEST(ReportDecoding, RejectsOtherText) {
  constexpr Refused outputs[] = {
      {"empty output", ""},
      {"white space", " \n"},
      {"no JSON", "system_profiler: no such section"},
      {"an array at the top", R"([{"SPUSBDataType": []}])"},
      {"a text at the top", R"("SPUSBDataType")"},
      {"a number at the top", "1"},
      {"null at the top", "null"},
      {"a truncated object", R"({"SPUSBDataType": [)"},
      {"a truncated text", R"({"SPUSBDataType": "US)"},
      {"a truncated escape", R"({"SPUSBDataType": "\)"},
      {"an object and something else", "{} {}"},
      {"a text before the object", "warning {}"},
      {"a trailing comma", R"({"a": 1,})"},
      {"a key without quotation marks", "{a: 1}"},
      {"a comment", "{} // comment"},
      {"too many closing brackets", "{}}"},
      {"closing brackets first", "}}}}{{{{"},
      {"brackets that do not match", R"({"a": [})"},
      {"a line break in a text", "{\"a\": \"b\nc\"}"},
      {"half of a surrogate pair", R"({"a": "\ud800"})"},
  };
  for (const auto& [what, bytes] : outputs) {
    SCOPED_TRACE(what);
    EXPECT_FALSE(decodeReport(bytes));
  }
}

TEST(ReportDecoding, RefusesInvalidUtf8) {
  EXPECT_FALSE(decodeReport("{\"a\": \"\xFF\"}"));
  EXPECT_FALSE(decodeReport("{\"a\": \"\xC3\"}"));
  EXPECT_FALSE(decodeReport("{\"a\": \"\xED\xA0\x80\"}"));
  EXPECT_FALSE(decodeReport("{\"\xC0\xAF\": 1}"));
}

TEST(ReportDecoding, RefusesNulBytes) {
  EXPECT_FALSE(decodeReport(std::string_view("{\"a\": \"b\0c\"}", 12)));
  EXPECT_FALSE(decodeReport(std::string_view("\0{}", 3)));
}

TEST(ReportDecoding, ANulByteIsNotTheEndOfAReport) {
  EXPECT_FALSE(decodeReport(std::string_view("{}\0", 3)));
  EXPECT_FALSE(decodeReport(std::string_view("{}\0garbage", 10)));
}

TEST(ReportDecoding, AcceptsTheDeepestNesting) {
  EXPECT_TRUE(decodeReport(nestedReport(maxReportNesting)));
}

TEST(ReportDecoding, RefusesDeeperNesting) {
  EXPECT_FALSE(decodeReport(nestedReport(maxReportNesting + 1)));
  EXPECT_FALSE(decodeReport(nestedReport(100'000)));
}

TEST(ReportDecoding, RefusesObjectsNestedTooDeeply) {
  std::string bytes;
  for (int depth = 0; depth < 100'000; ++depth) {
    bytes += R"({"_items": )";
  }
  bytes += "1" + std::string(100'000, '}');
  EXPECT_FALSE(decodeReport(bytes));
}

/// A report with `count` copies of `entry`.
std::string reportOf(const std::string& entry, std::size_t count) {
  std::string bytes = R"({"SPUSBDataType":[)";
  for (std::size_t index = 0; index < count; ++index) {
    bytes += (index == 0 ? "" : ",") + entry;
  }
  return bytes + "]}";
}

TEST(ReportDecoding, RefusesMoreObjectsThanAnyMachineHas) {
  EXPECT_TRUE(decodeReport(reportOf("{}", maxReportObjects - 1))) << "and the one around them";
  EXPECT_FALSE(decodeReport(reportOf("{}", maxReportObjects)));
  EXPECT_FALSE(decodeReport(reportOf(R"({"_items":[{}]})", maxReportObjects / 2)));
  EXPECT_TRUE(decodeReport(reportOf(R"({"_items":["{}{}{}"]})", maxReportObjects / 2)));
}

TEST(ReportDecoding, RefusesMoreValuesThanAnyMachineHas) {
  EXPECT_TRUE(decodeReport(reportOf("1", maxReportValues - 2)));
  for (const char* value : {"1", "[]", R"("a")"}) {
    SCOPED_TRACE(value);
    EXPECT_FALSE(decodeReport(reportOf(value, maxReportValues)));
  }
}

TEST(ReportDecoding, RefusesALongerReportThanAnyMachineGives) {
  std::string bytes = "{}" + std::string(maxReportBytes - 2, ' ');
  EXPECT_TRUE(decodeReport(bytes));
  bytes += ' ';
  EXPECT_FALSE(decodeReport(bytes));
  EXPECT_TRUE(isTooLargeReport(bytes));
}

TEST(ReportDecoding, DistinguishesTooLargeReportsFromInvalidOnes) {
  EXPECT_TRUE(isTooLargeReport(reportOf("{}", maxReportObjects)));
  EXPECT_TRUE(isTooLargeReport(nestedReport(maxReportNesting + 1)));
  EXPECT_FALSE(isTooLargeReport(""));
  EXPECT_FALSE(isTooLargeReport("no report {"));
}

TEST(ReportDecoding, RefusesTruncatedDeepNesting) {
  EXPECT_FALSE(decodeReport(R"({"a": )" + std::string(100'000, '[')));
}

TEST(ReportDecoding, CountsNestingAndNotNeighbours) {
  std::string bytes = R"({"a": [1)";
  for (int count = 0; count < 1000; ++count) {
    bytes += ", [{}]";
  }
  EXPECT_TRUE(decodeReport(bytes + "]}"));
}

TEST(ReportDecoding, DoesNotCountBracketsInTexts) {
  const std::string brackets(1000, '[');
  EXPECT_TRUE(decodeReport(R"({"a": ")" + brackets + "\"}"));
  EXPECT_TRUE(decodeReport(R"({"a": "\")" + brackets + "\"}"));
  EXPECT_TRUE(decodeReport(R"({"a\\": "\\\")" + brackets + "\"}"));
}

TEST(ReportDecoding, CountsBracketsAfterATextThatEndsInABackslash) {
  const std::string nested = std::string(1000, '[') + std::string(1000, ']');
  EXPECT_FALSE(decodeReport(R"({"a": "\\", "b": )" + nested + "}"));
}

TEST(ReportDecoding, TakesTheLastOfEqualKeys) {
  const auto report = decodeReport(R"({"a": 1, "a": 2})");
  ASSERT_TRUE(report);
  EXPECT_EQ(*report, nlohmann::json::parse(R"({"a": 2})"));
}

} // namespace
} // namespace tamberline
