#include "inspect/text_columns.h"
#include "inspect/text_line.h"

#include <cstddef>
#include <utility>

namespace tamberline {
namespace {

struct Cell {
  Grapheme grapheme;
  /// The span whose style it has, as an index into the line.
  std::size_t span = 0;

  bool isSpace() const { return grapheme.text == " "; }
};

using Cells = std::vector<Cell>;

Cells cellsOf(const TextLine& line) {
  Cells cells;
  for (std::size_t span = 0; span < line.size(); ++span) {
    for (Grapheme& grapheme : graphemesOf(line[span].text)) {
      cells.push_back({std::move(grapheme), span});
    }
  }
  return cells;
}

/// Where a line that starts at `start` ends if there is no space to break at.
std::size_t fullEnd(const Cells& cells, std::size_t start, int columns) {
  std::size_t end = start;
  for (; end < cells.size() && cells[end].grapheme.columns <= columns; ++end) {
    columns -= cells[end].grapheme.columns;
  }
  return end == start ? start + 1 : end;
}

bool isBetweenEntries(const Cells& cells, std::size_t space) {
  const bool isGap = space + 1 < cells.size() && cells[space + 1].isSpace();
  return isGap || cells[space - 1].grapheme.text == "·";
}

/// A dash or a dot between two words stays with the first word.
bool isBeforeDash(const Cells& cells, std::size_t space) {
  if (space + 1 >= cells.size()) {
    return false;
  }
  const std::string& next = cells[space + 1].grapheme.text;
  return next == "·" || next == "—";
}

/// A break between two entries is better than one between two words, unless it leaves more than
/// half of the line empty.
std::size_t endOfLine(const Cells& cells, std::size_t start, int columns) {
  const std::size_t full = fullEnd(cells, start, columns);
  if (full == cells.size()) {
    return full;
  }
  std::size_t afterWord = start;
  std::size_t afterEntry = start;
  for (std::size_t end = start + 1; end <= full; ++end) {
    if (!cells[end].isSpace() || cells[end - 1].isSpace() || isBeforeDash(cells, end)) {
      continue;
    }
    afterWord = end;
    afterEntry = isBetweenEntries(cells, end) ? end : afterEntry;
  }
  if (afterEntry - start > (full - start) / 2) {
    return afterEntry;
  }
  return afterWord > start ? afterWord : full;
}

std::size_t skipSpaces(const Cells& cells, std::size_t start) {
  while (start < cells.size() && cells[start].isSpace()) {
    ++start;
  }
  return start;
}

TextLine lineOf(const Cells& cells, std::size_t start, std::size_t end, const TextLine& styles) {
  TextLine line;
  for (std::size_t index = start; index < end; ++index) {
    const Cell& cell = cells[index];
    if (index == start || cell.span != cells[index - 1].span) {
      line.push_back({"", styles[cell.span].color, styles[cell.span].isBold});
    }
    line.back().text += cell.grapheme.text;
  }
  return line;
}

} // namespace

std::vector<TextLine> wrapLine(const TextLine& line, int firstColumns, int nextColumns) {
  const Cells cells = cellsOf(line);
  if (cells.empty()) {
    return {line};
  }
  std::vector<TextLine> lines;
  int columns = firstColumns;
  for (std::size_t start = 0; start < cells.size();) {
    const std::size_t end = endOfLine(cells, start, columns);
    lines.push_back(lineOf(cells, start, end, line));
    start = skipSpaces(cells, end);
    columns = nextColumns;
  }
  return lines;
}

} // namespace tamberline
