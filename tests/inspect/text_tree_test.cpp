#include "inspect/text_tree.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TextTree entry(const std::vector<std::string>& lines, std::vector<TextTree> children = {}) {
  TextTree tree{{}, std::move(children)};
  for (const std::string& line : lines) {
    tree.lines.push_back({{line}});
  }
  return tree;
}

TEST(TextTree, IsEmptyWithoutEntries) {
  EXPECT_EQ(renderTextTrees({}, false), "");
}

TEST(TextTree, SeparatesEntriesByABlankLine) {
  EXPECT_EQ(renderTextTrees({entry({"first"}), entry({"second"})}, false), "first\n\nsecond\n");
}

TEST(TextTree, ConnectsWhatIsBelowAnEntry) {
  const TextTree root =
      entry({"root"}, {entry({"first"}, {entry({"leaf"}, {entry({"deepest"})}), entry({"leaf"})}),
                       entry({"last"}, {entry({"leaf"})})});

  EXPECT_EQ(renderTextTrees({root}, false), R"(root
├─ first
│  ├─ leaf
│  │  └─ deepest
│  └─ leaf
└─ last
   └─ leaf
)");
}

TEST(TextTree, KeepsTheGuideLinesBesideFurtherLines) {
  const TextTree root =
      entry({"root", "more"}, {entry({"first", "more"}, {entry({"leaf", "more"})}),
                               entry({"last", "more"}, {entry({"leaf", "more"})})});

  EXPECT_EQ(renderTextTrees({root}, false), R"(root
│  more
├─ first
│  │  more
│  └─ leaf
│        more
└─ last
   │  more
   └─ leaf
         more
)");
}

TEST(TextTree, JoinsTheSpansOfALine) {
  const TextTree tree{{{{"a", Color::Red}, {"b", Color::Primary, true}, {"c"}}}, {}};

  EXPECT_EQ(renderTextTrees({tree}, false), "abc\n");
  EXPECT_EQ(renderTextTrees({tree}, true), "\x1b[31ma\x1b[0m\x1b[1mb\x1b[0mc\n");
}

TEST(TextTree, StylesASpanByItsColour) {
  const struct {
    Color color;
    bool isBold;
    const char* rendered;
  } rows[] = {
      {Color::Green, false, "\x1b[32mx\x1b[0m\n"},
      {Color::Amber, false, "\x1b[33mx\x1b[0m\n"},
      {Color::Orange, false, "\x1b[38;5;208mx\x1b[0m\n"},
      {Color::Red, false, "\x1b[31mx\x1b[0m\n"},
      {Color::Blue, false, "\x1b[34mx\x1b[0m\n"},
      {Color::Purple, false, "\x1b[35mx\x1b[0m\n"},
      {Color::Yellow, false, "\x1b[33mx\x1b[0m\n"},
      {Color::Grey, false, "\x1b[90mx\x1b[0m\n"},
      {Color::Accent, false, "\x1b[36mx\x1b[0m\n"},
      {Color::Secondary, false, "\x1b[2mx\x1b[0m\n"},
      {Color::Primary, false, "x\n"},
      {Color::TextBackground, false, "x\n"},
      {Color::Clear, false, "x\n"},
      {Color::Primary, true, "\x1b[1mx\x1b[0m\n"},
      {Color::Red, true, "\x1b[1;31mx\x1b[0m\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(nameOf(row.color));
    const TextTree tree{{{{"x", row.color, row.isBold}}}, {}};
    EXPECT_EQ(renderTextTrees({tree}, true), row.rendered);
    EXPECT_EQ(renderTextTrees({tree}, false), "x\n");
  }
}

TEST(TextTree, StylesNothingWhereThereIsNoText) {
  const TextTree tree{{{{"", Color::Red, true}}}, {}};

  EXPECT_EQ(renderTextTrees({tree}, true), "\n");
}

TEST(TextTree, DrawsItsConnectorsInGrey) {
  EXPECT_EQ(renderTextTrees({entry({"root"}, {entry({"leaf"})})}, true),
            "root\n\x1b[90m└─ \x1b[0mleaf\n");
}

TEST(TextTree, WrapsLinesBesideTheConnectors) {
  const TextTree root =
      entry({"a root that is wider than that", "and another line of this kind"},
            {entry({"a leaf that is wider than that"}, {entry({"the deepest leaf of them all"})}),
             entry({"the last one, and the widest"})});

  EXPECT_EQ(renderTextTrees({root}, false, 27), R"(a root that is wider than
│    that
│  and another line of this
│    kind
├─ a leaf that is wider
│  │    than that
│  └─ the deepest leaf of them
│          all
└─ the last one, and the
        widest
)");
}

TEST(TextTree, LeavesRoomForABarInTheDeepestEntry) {
  TextTree tree = entry({"████████████████████  at port max"});
  for (int level = 0; level < 10; ++level) {
    tree = entry({"hub"}, {std::move(tree)});
  }
  const std::string text = renderTextTrees({tree}, false, 20);
  EXPECT_NE(text.find("└─ ████████████████████\n"), std::string::npos) << text;
  EXPECT_NE(text.find("     at port max\n"), std::string::npos) << text;
}

} // namespace
} // namespace tamberline
