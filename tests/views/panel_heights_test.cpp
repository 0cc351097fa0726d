#include "views/panel_heights.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(PanelHeights, FitTheWindowToTheList) {
  const struct {
    const char* description;
    double chromeBaseline;
    double listHeight;
    std::optional<double> screenHeight;
    double total;
  } rows[] = {
      {"chrome, two dividers and list", 130, 300, 1080, 432},
      {"an empty list", 130, 0, 1080, 132},
      {"just fits the screen", 130, 908, 1080, 1040},
      {"one point too many", 130, 909, 1080, 1040},
      {"far too many", 130, 1e9, 1080, 1040},
      {"just fits without a screen", 130, 1228, std::nullopt, 1360},
      {"far too many without a screen", 130, 1e9, std::nullopt, 1360},
      {"a large screen", 130, 1500, 2160, 1632},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(windowTotalHeight(row.chromeBaseline, row.listHeight, row.screenHeight), row.total);
  }
}

TEST(PanelHeights, GiveTheListTheRestOfTheWindow) {
  const struct {
    double total;
    double chrome;
    double listArea;
  } rows[] = {{432, 130, 300}, {432, 370, 60}, {432, 371, 60}, {432, 1000, 60}, {0, 0, 60}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.chrome << " of " << row.total);
    EXPECT_EQ(listAreaHeight(row.total, row.chrome), row.listArea);
  }
}

TEST(PanelHeights, KeepALittleOfTheListBelowTheSuggestions) {
  const struct {
    double total;
    double baseline;
    double suggestions;
  } rows[] = {{432, 130, 240}, {252, 130, 60}, {250, 130, 60}, {100, 130, 60}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.total);
    EXPECT_EQ(maxSuggestionsHeight(row.total, row.baseline), row.suggestions);
  }
}

} // namespace
} // namespace tamberline
