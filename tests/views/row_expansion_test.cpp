#include "views/row_expansion.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(RowExpansion, IsTheInitialStateUntilARowIsShown) {
  const RowExpansion expansion;
  EXPECT_TRUE(expansion.isExpanded("dock", true, {}));
  EXPECT_FALSE(expansion.isExpanded("hub", false, {}));
}

TEST(RowExpansion, KeepsTheStateInWhichARowWasFirstShown) {
  RowExpansion expansion;
  expansion.see("dock without devices", false);
  EXPECT_FALSE(expansion.isExpanded("dock without devices", true, {}));
  expansion.see("dock", true);
  expansion.see("dock", false);
  EXPECT_TRUE(expansion.isExpanded("dock", false, {}));
  expansion.set("dock", false);
  expansion.see("dock", true);
  EXPECT_FALSE(expansion.isExpanded("dock", true, {}));
}

TEST(RowExpansion, RemembersChangesByTheUser) {
  RowExpansion expansion;
  expansion.set("dock", false);
  expansion.set("hub", true);
  EXPECT_FALSE(expansion.isExpanded("dock", true, {}));
  EXPECT_TRUE(expansion.isExpanded("hub", false, {}));
  EXPECT_FALSE(expansion.isExpanded("hub/other", false, {})) << "not the neighbours";
}

TEST(RowExpansion, CountsAnOverrideAsOpenWithoutRememberingIt) {
  RowExpansion expansion;
  expansion.set("dock", false);
  EXPECT_TRUE(expansion.isExpanded("dock", true, {"dock"}));
  EXPECT_FALSE(expansion.isExpanded("dock", true, {"hub"}));
}

TEST(RowExpansion, ClosesWhatStartsOpenToo) {
  RowExpansion expansion;
  expansion.set("hub", true);
  expansion.set("gone", true);
  expansion.collapseAll({"dock", "hub"});
  EXPECT_FALSE(expansion.isExpanded("dock", true, {}));
  EXPECT_FALSE(expansion.isExpanded("hub", false, {}));
  EXPECT_FALSE(expansion.isExpanded("gone", false, {}));
  EXPECT_TRUE(expansion.isExpanded("new dock", true, {})) << "what comes later starts as it does";
}

TEST(RowExpansion, ForgetsRowsThatAreGone) {
  RowExpansion expansion;
  expansion.set("dock", false);
  expansion.set("hub", true);
  expansion.keepOnly({"hub", "another"});
  EXPECT_TRUE(expansion.isExpanded("dock", true, {}));
  EXPECT_TRUE(expansion.isExpanded("hub", false, {}));
}

} // namespace
} // namespace tamberline
