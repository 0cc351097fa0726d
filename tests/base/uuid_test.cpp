#include "base/uuid.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tamberline {
namespace {

TEST(Uuid, IsDifferentEveryTime) {
  std::set<Uuid> drawn;
  for (int count = 0; count < 1000; ++count) {
    drawn.insert(Uuid::random());
  }
  EXPECT_EQ(drawn.size(), 1000U);
}

TEST(Uuid, IsARandomOneInItsText) {
  const std::string text = Uuid::random().text();
  ASSERT_EQ(text.size(), 36U);
  EXPECT_EQ(text.find_first_not_of("0123456789abcdef-"), std::string::npos);
  EXPECT_EQ(text[8], '-');
  EXPECT_EQ(text[13], '-');
  EXPECT_EQ(text[14], '4');
  EXPECT_EQ(text[18], '-');
  EXPECT_NE(std::string("89ab").find(text[19]), std::string::npos);
  EXPECT_EQ(text[23], '-');
}

TEST(Uuid, ACopyIsTheSameIdentity) {
  const Uuid original = Uuid::random();
  const Uuid copy = original;
  EXPECT_EQ(copy, original);
  EXPECT_EQ(copy.text(), original.text());
}

} // namespace
} // namespace tamberline
