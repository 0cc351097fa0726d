#include "app/manual_contents.h"

#include <QPdfBookmarkModel>
#include <QPdfSelection>
#include <QStringList>

#include <map>

namespace tamberline {
namespace {

struct Target {
  int page = 0;
  QPointF place;
};

/// In points: the clickable area around a line's letters.
constexpr double lineMargin = 3;

/// By the line of each in the table of contents.
using Targets = std::map<QString, Target>;

/// Bookmarks of the document's start are skipped. They are its title, which is also in the footer
/// of the first page with a number, and the contents themselves.
Targets targetsOf(QPdfDocument& document) {
  QPdfBookmarkModel bookmarks;
  bookmarks.setDocument(&document);
  Targets targets;
  for (int row = 0; row < bookmarks.rowCount(); ++row) {
    const auto value = [&](QPdfBookmarkModel::Role role) {
      return bookmarks.data(bookmarks.index(row, 0), static_cast<int>(role));
    };
    const Target target{value(QPdfBookmarkModel::Role::Page).toInt(),
                        value(QPdfBookmarkModel::Role::Location).toPointF()};
    if (target.page > 0 || !target.place.isNull()) {
      const QString title = value(QPdfBookmarkModel::Role::Title).toString();
      targets[title + QLatin1Char(' ') + QString::number(target.page + 1)] = target;
    }
  }
  return targets;
}

} // namespace

std::vector<ContentsEntry> contentsOf(QPdfDocument& document) {
  const Targets targets = targetsOf(document);
  const QString lineBreak = QStringLiteral("\r\n");
  std::vector<ContentsEntry> entries;
  for (int page = 0; page < document.pageCount() && entries.empty(); ++page) {
    qsizetype start = 0;
    for (const QString& line : document.getAllText(page).text().split(lineBreak)) {
      const auto found = targets.find(line);
      if (found != targets.end()) {
        const QPdfSelection selection = document.getSelectionAtIndex(page, static_cast<int>(start),
                                                                     static_cast<int>(line.size()));
        const QRectF place = selection.boundingRectangle().marginsAdded(
            {lineMargin, lineMargin, lineMargin, lineMargin});
        entries.push_back({page, place, found->second.page, found->second.place});
      }
      start += line.size() + lineBreak.size();
    }
  }
  return entries;
}

} // namespace tamberline
