#include "inspect/text_columns.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(TextColumns, CountsTheTerminalColumnsOfEachCharacter) {
  const struct {
    const char* text;
    int columns;
  } rows[] = {
      {"", 0},
      {"Port 1", 6},
      {"Küste", 5},
      {"Ku\u0308ste", 5}, // the dots are a separate character
      {"●○ █▒░ ▲↑ ×·—…", 14},
      {"├─ │  └─ ", 9},
      {"\uFFFD", 1},
      {"⚡ 96W", 6},
      {"外付けSSD", 9},
      {"디스크", 6},
      {"\u1112\u1161\u11AB", 2}, // the same kind of syllable, from separate letters
      {"ＵＳＢ", 6},
      {"\U00020BB7", 2},
      {"🎧", 2},
      {"👩‍💻", 2}, // two characters joined
      {"👍🏽", 2},
      {"🇨🇭", 2},
      {"❤\uFE0F", 2},
      {"❤", 1},
      {"שלום", 4},
      {"मि", 1},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(columnsOf(row.text), row.columns) << row.text;
  }
}

TEST(TextColumns, KeepsGraphemesTogether) {
  std::vector<std::string> texts;
  for (const Grapheme& grapheme : graphemesOf("u\u0308外👩‍💻x🇨🇭🇩🇪")) {
    texts.push_back(grapheme.text);
  }
  EXPECT_EQ(texts, (std::vector<std::string>{"u\u0308", "外", "👩‍💻", "x", "🇨🇭", "🇩🇪"}));
}

} // namespace
} // namespace tamberline
