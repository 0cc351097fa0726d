#include "ui/layout_check.h"

#include "controls/popup.h"
#include "controls/symbol.h"
#include "ui/visible_items.h"

#include <QString>
#include <QVariant>

#include <algorithm>
#include <string_view>

namespace tamberline {
namespace {

constexpr double tolerance = 0.5;
constexpr int plainText = 0; // Text.PlainText

/// An item whose position is checked.
struct Shown {
  const QQuickItem* item = nullptr;
  QRectF place = {};
  QRectF seen = {}; // the visible part of the area
  bool isText = false;
  const Popup* popup = nullptr; // the popup that contains it
};

bool isInput(const QQuickItem& item) {
  return item.inherits("QQuickTextInput");
}

bool showsText(const QQuickItem& item) {
  return (item.inherits("QQuickText") || isInput(item)) &&
         !item.property("text").toString().isEmpty();
}

const Popup* popupAround(const QQuickItem* item) {
  while (item != nullptr && qobject_cast<const Popup*>(item) == nullptr) {
    item = item->parentItem();
  }
  return qobject_cast<const Popup*>(item);
}

/// Without rotation, because a symbol may be turning.
QRectF placeOf(const QQuickItem& item) {
  return item.parentItem()->mapRectToScene(QRectF(item.position(), item.size()));
}

QRectF seenOf(const QQuickItem& item) {
  QRectF seen = placeOf(item);
  for (const QQuickItem* around = item.parentItem(); around->parentItem() != nullptr;
       around = around->parentItem()) {
    if (around->clip()) {
      seen &= placeOf(*around);
    }
  }
  return seen;
}

std::string quoted(const QQuickItem& item) {
  const QString text =
      item.property(qobject_cast<const Symbol*>(&item) ? "name" : "text").toString();
  return '"' + text.toStdString() + '"';
}

class Faults {
public:
  explicit Faults(QQuickWindow& window) : window_(window) {
    for (QQuickItem* item : visibleItems(window)) {
      const bool isText = showsText(*item);
      if (isText || (qobject_cast<Symbol*>(item) != nullptr && item->width() > 0)) {
        shown_.push_back({item, placeOf(*item), seenOf(*item), isText, popupAround(item)});
      }
    }
  }

  std::vector<std::string> find() {
    for (const Shown& shown : shown_) {
      if (shown.isText) {
        checkFormat(*shown.item);
        checkSize(*shown.item);
      }
      checkBounds(shown);
    }
    checkOverlaps();
    return std::move(faults_);
  }

private:
  void add(const QQuickItem& item, std::string_view fault) {
    faults_.push_back(quoted(item).append(" ").append(fault));
  }

  void checkFormat(const QQuickItem& item) {
    if (!isInput(item) && item.property("textFormat").toInt() != plainText) {
      add(item, "is no plain text");
    }
  }

  void checkSize(const QQuickItem& item) {
    if (item.property("truncated").toBool() && !isWholeInTooltip(item)) {
      add(item, "is cut, and no tooltip holds the whole of it");
    }
    const bool scrolls = isInput(item);
    if ((!scrolls && item.property("contentWidth").toDouble() > item.width() + tolerance) ||
        item.property("contentHeight").toDouble() > item.height() + tolerance) {
      add(item, "is larger than its item");
    }
  }

  /// The report may already contain an ellipsis. The tooltip may have more text after it.
  static bool isWholeInTooltip(const QQuickItem& item) {
    const QString tooltip = tooltipOf(item);
    const QStringList parts = item.property("text").toString().split(QChar(0x2026));
    const qsizetype lastPart = parts.size() == 1 ? 0 : parts.constFirst().size();
    return tooltip.startsWith(parts.constFirst()) &&
           tooltip.indexOf(parts.constLast(), lastPart) >= lastPart;
  }

  static QString tooltipOf(const QQuickItem& item) {
    for (const QObject* child : item.children()) {
      if (child->inherits("QQuickHoverHandler")) {
        return child->property("text").toString();
      }
    }
    return {};
  }

  /// Against all its backgrounds; a list is longer than its visible part.
  void checkBounds(const Shown& shown) {
    bool isInList = false;
    for (const QQuickItem* around = shown.item->parentItem(); around != window_.contentItem();
         around = around->parentItem()) {
      isInList = isInList || around->inherits("QQuickListView");
      const QRectF room = placeOf(*around);
      const bool fitsAcross =
          around->width() <= 0 || (shown.place.left() >= room.left() - tolerance &&
                                   shown.place.right() <= room.right() + tolerance);
      const bool fitsDown = isInList || around->height() <= 0 ||
                            (shown.place.top() >= room.top() - tolerance &&
                             shown.place.bottom() <= room.bottom() + tolerance);
      if (!fitsAcross || !fitsDown) {
        add(*shown.item, std::string("reaches beyond a ") + around->metaObject()->className());
        return;
      }
    }
  }

  void checkOverlaps() {
    for (std::size_t first = 0; first < shown_.size(); ++first) {
      for (std::size_t second = first + 1; second < shown_.size(); ++second) {
        checkOverlap(shown_[first], shown_[second]);
      }
    }
  }

  void checkOverlap(const Shown& first, const Shown& second) {
    const QRectF common = first.seen & second.seen;
    if (first.popup == second.popup && (first.isText || second.isText) &&
        common.width() > tolerance && common.height() > tolerance) {
      add(*first.item, "overlaps " + quoted(*second.item));
    }
  }

  QQuickWindow& window_;
  std::vector<Shown> shown_;
  std::vector<std::string> faults_;
};

} // namespace

std::vector<std::string> layoutFaults(QQuickWindow& window) {
  return Faults(window).find();
}

} // namespace tamberline
