#include "base/shared_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

struct Branch {
  std::string name;
  SharedList<Branch> children = {};
};

TEST(SharedList, IsEmptyWithoutElements) {
  const SharedList<int> none;
  EXPECT_TRUE(none.empty());
  EXPECT_EQ(none.size(), 0U);
  EXPECT_EQ(none.begin(), none.end());
}

TEST(SharedList, OfAnEmptyVectorIsEmpty) {
  const SharedList<int> none = std::vector<int>{};
  EXPECT_TRUE(none.empty());
  EXPECT_EQ(none.begin(), none.end());
}

TEST(SharedList, KeepsTheOrderOfItsElements) {
  const SharedList<int> list = {3, 1, 2};
  EXPECT_EQ(std::vector<int>(list.begin(), list.end()), (std::vector<int>{3, 1, 2}));
  EXPECT_EQ(list.size(), 3U);
  EXPECT_EQ(list[1], 1);
}

TEST(SharedList, CopiesShareTheirElements) {
  const SharedList<int> list = {1, 2};
  const SharedList<int> copy = list;
  EXPECT_EQ(copy.begin(), list.begin());
}

TEST(SharedList, OutlivesTheListItWasCopiedFrom) {
  SharedList<Branch> list = {Branch{"hub", {Branch{"disk"}}}};
  const SharedList<Branch> copy = list;
  list = {};
  EXPECT_TRUE(list.empty());
  ASSERT_EQ(copy.size(), 1U);
  EXPECT_EQ(copy[0].children[0].name, "disk");
}

TEST(SharedList, DoesNotFollowTheVectorItWasMadeFrom) {
  std::vector<int> elements = {1, 2};
  const SharedList<int> list = elements;
  elements.push_back(3);
  EXPECT_EQ(list.size(), 2U);
}

} // namespace
} // namespace tamberline
