#include "inspect/text_columns.h"

#include <QList>
#include <QString>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>

namespace tamberline {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

/// The characters that Unicode calls wide or full-width, in order. Unassigned ones between them
/// count like their neighbours. Terminals differ in characters that are newer than they are.
constexpr std::array wideCharacters = {
    Range{0x1100, 0x115F},   Range{0x231A, 0x231B},   Range{0x2329, 0x232A},
    Range{0x23E9, 0x23EC},   Range{0x23F0, 0x23F0},   Range{0x23F3, 0x23F3},
    Range{0x25FD, 0x25FE},   Range{0x2614, 0x2615},   Range{0x2648, 0x2653},
    Range{0x267F, 0x267F},   Range{0x2693, 0x2693},   Range{0x26A1, 0x26A1},
    Range{0x26AA, 0x26AB},   Range{0x26BD, 0x26BE},   Range{0x26C4, 0x26C5},
    Range{0x26CE, 0x26CE},   Range{0x26D4, 0x26D4},   Range{0x26EA, 0x26EA},
    Range{0x26F2, 0x26F3},   Range{0x26F5, 0x26F5},   Range{0x26FA, 0x26FA},
    Range{0x26FD, 0x26FD},   Range{0x2705, 0x2705},   Range{0x270A, 0x270B},
    Range{0x2728, 0x2728},   Range{0x274C, 0x274C},   Range{0x274E, 0x274E},
    Range{0x2753, 0x2755},   Range{0x2757, 0x2757},   Range{0x2795, 0x2797},
    Range{0x27B0, 0x27B0},   Range{0x27BF, 0x27BF},   Range{0x2B1B, 0x2B1C},
    Range{0x2B50, 0x2B50},   Range{0x2B55, 0x2B55},   Range{0x2E80, 0x303E},
    Range{0x3040, 0x3247},   Range{0x3250, 0x4DBF},   Range{0x4E00, 0xA4CF},
    Range{0xA960, 0xA97F},   Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},
    Range{0xFE10, 0xFE19},   Range{0xFE30, 0xFE6F},   Range{0xFF01, 0xFF60},
    Range{0xFFE0, 0xFFE6},   Range{0x16FE0, 0x18DFF}, Range{0x1AFF0, 0x1B2FF},
    Range{0x1F004, 0x1F004}, Range{0x1F0CF, 0x1F0CF}, Range{0x1F18E, 0x1F18E},
    Range{0x1F191, 0x1F19A}, Range{0x1F200, 0x1F320}, Range{0x1F32D, 0x1F335},
    Range{0x1F337, 0x1F37C}, Range{0x1F37E, 0x1F393}, Range{0x1F3A0, 0x1F3CA},
    Range{0x1F3CF, 0x1F3D3}, Range{0x1F3E0, 0x1F3F0}, Range{0x1F3F4, 0x1F3F4},
    Range{0x1F3F8, 0x1F43E}, Range{0x1F440, 0x1F440}, Range{0x1F442, 0x1F4FC},
    Range{0x1F4FF, 0x1F53D}, Range{0x1F54B, 0x1F54E}, Range{0x1F550, 0x1F567},
    Range{0x1F57A, 0x1F57A}, Range{0x1F595, 0x1F596}, Range{0x1F5A4, 0x1F5A4},
    Range{0x1F5FB, 0x1F64F}, Range{0x1F680, 0x1F6C5}, Range{0x1F6CC, 0x1F6CC},
    Range{0x1F6D0, 0x1F6D2}, Range{0x1F6D5, 0x1F6DF}, Range{0x1F6EB, 0x1F6EF},
    Range{0x1F6F4, 0x1F6FF}, Range{0x1F7E0, 0x1F7F0}, Range{0x1F90C, 0x1F93A},
    Range{0x1F93C, 0x1F945}, Range{0x1F947, 0x1F9FF}, Range{0x1FA70, 0x1FAFF},
    Range{0x20000, 0x3FFFD}};

constexpr char32_t emojiStyle = 0xFE0F;

bool isRegionalIndicator(char32_t character) {
  return character >= 0x1F1E6 && character <= 0x1F1FF;
}

bool isWide(char32_t character) {
  const auto* const range =
      std::lower_bound(wideCharacters.begin(), wideCharacters.end(), character,
                       [](const Range& one, char32_t value) { return one.last < value; });
  return range != wideCharacters.end() && range->first <= character;
}

/// Combining characters are drawn on the first one; two regional indicators are a flag.
int columnsOf(const QList<uint>& codePoints) {
  const char32_t first = codePoints.front();
  const bool isPair = codePoints.size() > 1;
  const bool isFlag = isPair && isRegionalIndicator(first);
  const bool isEmoji = isPair && codePoints[1] == emojiStyle;
  return isWide(first) || isFlag || isEmoji ? 2 : 1;
}

} // namespace

std::vector<Grapheme> graphemesOf(std::string_view text) {
  const QString all = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, all);
  std::vector<Grapheme> graphemes;
  qsizetype start = 0;
  for (qsizetype end = finder.toNextBoundary(); end >= 0; end = finder.toNextBoundary()) {
    const QString one = all.mid(start, end - start);
    graphemes.push_back({one.toStdString(), columnsOf(one.toUcs4())});
    start = end;
  }
  return graphemes;
}

int columnsOf(std::string_view text) {
  int columns = 0;
  for (const Grapheme& grapheme : graphemesOf(text)) {
    columns += grapheme.columns;
  }
  return columns;
}

} // namespace tamberline
