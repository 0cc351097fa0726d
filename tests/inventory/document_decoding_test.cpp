#include "inventory/document_decoding.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace tamberline {
namespace {

TEST(DocumentDecoding, AcceptsAnObjectWithAPortTree) {
  EXPECT_TRUE(decodeDocument(R"({"portTree": []})"));
}

TEST(DocumentDecoding, RejectsEverythingElse) {
  for (const std::string bytes : {"", "[]", "{}", "1", R"({"portTree": 1})", R"({"portTree": [)",
                                  R"({"portTree": []} {"portTree": []})", "\xff"}) {
    EXPECT_FALSE(decodeDocument(bytes)) << bytes;
  }
}

} // namespace
} // namespace tamberline
