#include "metrics/open_metrics_text.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(OpenMetricsText, EndsWithItsMark) {
  EXPECT_EQ(openMetricsText({}), "# EOF\n");
  EXPECT_EQ(openMetricsText({{.name = "empty"}}), "# EOF\n");
}

TEST(OpenMetricsText, DescribesEachFamilyOnce) {
  EXPECT_EQ(openMetricsText({{.name = "power_watts",
                              .unit = "watts",
                              .help = "Power.",
                              .samples = {{{{"port", "1"}}, 7.5}, {{{"port", "2"}}, 0}}},
                             {.name = "plain", .help = "Plain.", .samples = {{{}, 3}}}}),
            "# HELP power_watts Power.\n# TYPE power_watts gauge\n# UNIT power_watts watts\n"
            "power_watts{port=\"1\"} 7.5\npower_watts{port=\"2\"} 0\n"
            "# HELP plain Plain.\n# TYPE plain gauge\nplain 3\n# EOF\n");
}

TEST(OpenMetricsText, WritesSpeedsInFull) {
  const auto text = [](double value) {
    return openMetricsText({{.name = "n", .help = "", .samples = {{{}, value}}}});
  };
  EXPECT_NE(text(10e9).find("\nn 10000000000\n"), std::string::npos);
  EXPECT_NE(text(1.5e6).find("\nn 1500000\n"), std::string::npos);
  EXPECT_NE(text(0.125).find("\nn 0.125\n"), std::string::npos);
}

TEST(OpenMetricsText, KeepsLabelsInTheirLine) {
  const std::string text = openMetricsText(
      {{.name = "n", .samples = {{{{"device", "a \"b\" \\ \n# EOF\x1b\u202e"}}, 1}}}});
  EXPECT_NE(text.find("n{device=\"a \\\"b\\\" \\\\ \uFFFD# EOF\uFFFD\uFFFD\"} 1\n"),
            std::string::npos)
      << text;
}

TEST(OpenMetricsText, LimitsTheLengthOfLabels) {
  const std::string text =
      openMetricsText({{.name = "n", .samples = {{{{"device", std::string(100'000, 'x')}}, 1}}}});
  EXPECT_LT(text.size(), 300U);
}

} // namespace
} // namespace tamberline
