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

/// A document with this many empty lists in its tree.
std::string documentOfLists(std::size_t count) {
  std::string bytes = R"({"portTree": [)";
  for (std::size_t index = 0; index < count; ++index) {
    bytes += index == 0 ? "[]" : ",[]";
  }
  return bytes + "]}";
}

TEST(DocumentDecoding, RejectsMoreValuesThanAnyMachineMakes) {
  EXPECT_TRUE(decodeDocument(documentOfLists(100'000)));
  EXPECT_FALSE(decodeDocument(documentOfLists(maxDocumentValues)));
  const std::string deep = R"({"portTree": [)" + std::string(maxDocumentValues, '[');
  EXPECT_FALSE(decodeDocument(deep + std::string(maxDocumentValues, ']') + "]}"));
  EXPECT_TRUE(
      decodeDocument(R"({"portTree": [], "a": ")" + std::string(maxDocumentValues, '[') + "\"}"))
      << "a text is one value";
}

} // namespace
} // namespace tamberline
