#include "inspect/text_tree.h"

#include <array>
#include <string_view>

namespace tamberline {
namespace {

std::string_view escapeCodeOf(Color color) {
  // In the order of Color; empty: the terminal's own foreground.
  static constexpr std::array<std::string_view, 13> codes = {
      "32", "33", "38;5;208", "31", "34", "35", "33", "90", "36", "2", "", "", ""};
  return codes[static_cast<std::size_t>(color)];
}

class Renderer {
public:
  explicit Renderer(bool useColors) : useColors_(useColors) {}

  void appendTree(const TextTree& tree, const std::string& firstPrefix,
                  const std::string& nextPrefix) {
    const std::string continuation = nextPrefix + (tree.children.empty() ? "   " : "│  ");
    for (const TextLine& line : tree.lines) {
      const bool isFirst = &line == &tree.lines.front();
      appendLine(line, isFirst ? firstPrefix : continuation);
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
  void appendLine(const TextLine& line, const std::string& prefix) {
    appendSpan({prefix, Color::grey});
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
  std::string output_;
};

} // namespace

std::string renderTextTrees(const std::vector<TextTree>& trees, bool useColors) {
  Renderer renderer(useColors);
  for (const TextTree& tree : trees) {
    if (&tree != &trees.front()) {
      renderer.appendBlankLine();
    }
    renderer.appendTree(tree, "", "");
  }
  return renderer.takeOutput();
}

} // namespace tamberline
