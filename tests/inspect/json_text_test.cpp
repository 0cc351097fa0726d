#include "inspect/json_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;

TEST(JsonText, EscapesControlAndInvisibleCharacters) {
  const struct {
    const char* description;
    const char* text;
    const char* written;
  } rows[] = {
      {"an escape", "a\x1b[31m", R"("a\u001b[31m")"},
      {"DEL", "a\x7f", R"("a\u007f")"},
      {"the first of C1", "\u0080", R"("\u0080")"},
      {"a control sequence in C1", "\u009b31m", R"("\u009b31m")"},
      {"the last of C1", "\u009f", R"("\u009f")"},
      {"turned directions", "\u202e\u2066\u2069\u200f\u061c",
       R"("\u202e\u2066\u2069\u200f\u061c")"},
      {"no width", "\u200b\u200c\u200d\u2060\ufeff\u00ad",
       R"("\u200b\u200c\u200d\u2060\ufeff\u00ad")"},
      {"line ends of Unicode", "\u2028\u2029", R"("\u2028\u2029")"},
      {"tags, beyond sixteen bits", "\U000e0041", R"("\udb40\udc41")"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(jsonText(Document(row.text), -1), row.written);
    EXPECT_EQ(Document::parse(row.written), Document(row.text));
  }
}

TEST(JsonText, LeavesEverythingElseAsItIs) {
  for (const char* text : {"", "Küste", "\u00a0", "\u00ae", "10 Gb/s ×2", "电缆", "\U0001F44D", "~",
                           "a\\u202e \"b\" / \t"}) {
    const Document document = text;
    EXPECT_EQ(jsonText(document, -1), document.dump());
  }
}

TEST(JsonText, EscapesKeysToo) {
  EXPECT_EQ(jsonText(Document{{"a\u202e", 1}}, -1), R"({"a\u202e":1})");
}

TEST(JsonText, IndentsOnRequest) {
  EXPECT_EQ(jsonText(Document{{"a", "\u009b"}}, 2), "{\n  \"a\": \"\\u009b\"\n}");
}

TEST(JsonText, ReplacesInvalidUtf8) {
  EXPECT_EQ(jsonText(Document("a\xff"), -1), "\"a\uFFFD\"");
}

} // namespace
} // namespace tamberline
