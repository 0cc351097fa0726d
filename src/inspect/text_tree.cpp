#include "inspect/text_tree.h"

#include "inspect/text_columns.h"
#include "inspect/text_line.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

std::string_view escapeCodeOf(Color color) {
  switch (color) {
  case Color::Green:
    return "32";
  case Color::Amber:
  case Color::SpeedTextAmber:
  case Color::Yellow:
    return "33";
  case Color::Orange:
    return "38;5;208";
  case Color::Red:
    return "31";
  case Color::Blue:
    return "34";
  case Color::Purple:
    return "35";
  case Color::Grey:
    return "90";
  case Color::Accent:
    return "36";
  case Color::Secondary:
    return "2";
  case Color::Primary:
  case Color::TextBackground:
  case Color::Clear:
    break;
  }
  return ""; // the terminal's own foreground
}

/// Enough for a bar at any indentation.
constexpr int minTextColumns = 24;
constexpr std::string_view hangingIndent = "  ";

class Renderer {
public:
  Renderer(bool useColors, std::optional<int> columns) : useColors_(useColors), columns_(columns) {}

  void appendTree(const TextTree& tree, const std::string& firstPrefix,
                  const std::string& nextPrefix) {
    const std::string continuation = nextPrefix + (tree.children.empty() ? "   " : "│  ");
    for (const TextLine& line : tree.lines) {
      const bool isFirst = &line == &tree.lines.front();
      appendWrapped(line, isFirst ? firstPrefix : continuation, continuation);
    }
    for (const TextTree& child : tree.children) {
      const bool isLast = &child == &tree.children.back();
      appendTree(child, nextPrefix + (isLast ? "└─ " : "├─ "),
                 nextPrefix + (isLast ? "   " : "│  "));
    }
  }

  void appendBlankLine() { output_ += "\n"; }

  std::string takeOutput() { return std::move(output_); }

private:
  void appendWrapped(const TextLine& line, const std::string& prefix,
                     const std::string& continuation) {
    if (!columns_) {
      appendLine(line, prefix);
      return;
    }
    const std::string indent = continuation + std::string(hangingIndent);
    const std::vector<TextLine> parts =
        wrapLine(line, columnsBeside(prefix), columnsBeside(indent));
    for (const TextLine& part : parts) {
      appendLine(part, &part == &parts.front() ? prefix : indent);
    }
  }

  int columnsBeside(const std::string& prefix) const {
    return std::max(*columns_ - columnsOf(prefix), minTextColumns);
  }

  void appendLine(const TextLine& line, const std::string& prefix) {
    appendSpan({prefix, Color::Grey});
    for (const TextSpan& span : line) {
      appendSpan(span);
    }
    output_ += "\n";
  }

  void appendSpan(const TextSpan& span) {
    const std::string_view code = escapeCodeOf(span.color);
    const bool isStyled = useColors_ && !span.text.empty() && (span.isBold || !code.empty());
    if (!isStyled) {
      output_ += span.text;
      return;
    }
    output_ += "\x1b[";
    output_ += span.isBold ? "1" : "";
    output_ += span.isBold && !code.empty() ? ";" : "";
    output_ += code;
    output_ += "m";
    output_ += span.text;
    output_ += "\x1b[0m";
  }

  bool useColors_;
  std::optional<int> columns_;
  std::string output_;
};

} // namespace

std::string renderTextTrees(const std::vector<TextTree>& trees, bool useColors,
                            std::optional<int> columns) {
  Renderer renderer(useColors, columns);
  for (const TextTree& tree : trees) {
    if (&tree != &trees.front()) {
      renderer.appendBlankLine();
    }
    renderer.appendTree(tree, "", "");
  }
  return renderer.takeOutput();
}

} // namespace tamberline
