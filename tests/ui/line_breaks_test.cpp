// How the lines of rows break when text is large.
#include "support/language_scope.h"
#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

#include <cmath>
#include <stdexcept>

namespace tamberline {
namespace {

class PanelBreaks : public PanelFixture {
protected:
  void open(double fontScale) {
    openPanel({.fontScale = fontScale, .isBoundByScreen = false});
    expandAll();
  }

  QQuickItem& part(const QString& row, const char* type) {
    return drawnItem(*rowItem(indexOfRowNamed(row)), type);
  }

  QRectF placeOfText(const QString& row, const QString& text) {
    for (const QQuickItem* item : visibleItems(window())) {
      if (item->property("text").toString() == text &&
          rowItem(indexOfRowNamed(row))->isAncestorOf(item)) {
        return placeInWindow(*item);
      }
    }
    throw std::runtime_error("the row does not show " + text.toStdString());
  }

  static bool isSameLine(const QRectF& first, const QRectF& second) {
    return std::abs(first.center().y() - second.center().y()) < first.height() / 2;
  }
};

TEST_F(PanelBreaks, HaveNoSeparatorWhereTheLineBreaks) {
  const LanguageScope german(AppLanguage::de);
  useSample("desk");
  open(1);
  EXPECT_EQ(part("Quarry Portable SSD", "Separator").opacity(), 1);
  closePanel();
  open(2);
  EXPECT_EQ(part("Quarry Portable SSD", "Separator").opacity(), 0);
  const QRectF used = placeOfText("Quarry Portable SSD", "4.5 W nominal");
  const QRectF allocated = placeOfText("Quarry Portable SSD", "4.5 W zugewiesen");
  EXPECT_FALSE(isSameLine(used, allocated));
  EXPECT_EQ(allocated.left(), used.left());
}

TEST_F(PanelBreaks, KeepTheResultsAndButtonsOfAVolumeTogether) {
  answerWithDisk(*machine);
  scanner->benchmarks.set({{"/Volumes/Data", {BenchmarkPhase::Done{412.4, 1021.7}}}});
  open(2);
  const QRectF write = placeOfText("Quarry SSD", "W 412");
  EXPECT_TRUE(isSameLine(write, placeOfText("Quarry SSD", "R 1022 MB/s")));
  EXPECT_TRUE(
      isSameLine(write, placeInWindow(*find(QAccessible::Button, "Eject this drive").item())));
  EXPECT_FALSE(isSameLine(write, placeOfText("Quarry SSD", "Data")));
  EXPECT_EQ(write.left(), placeOfText("Quarry SSD", "Volume").left());
}

TEST_F(PanelBreaks, PutAllBadgesOfAHeaderBelowItsTitle) {
  useSample("desk");
  open(1);
  const QRectF title = placeOfText("Thunderbolt Port 2", "Thunderbolt Port 2");
  const QRectF capacity = placeOfText("Thunderbolt Port 2", "≤ 15 W");
  EXPECT_FALSE(isSameLine(title, capacity));
  EXPECT_EQ(capacity.left(), title.left());
  for (const char* badge : {"video", "active cable", "40 Gb/s"}) {
    EXPECT_TRUE(isSameLine(capacity, placeOfText("Thunderbolt Port 2", badge))) << badge;
  }
  const QRectF chevron = placeInWindow(part("Thunderbolt Port 2", "Chevron"));
  EXPECT_NEAR(chevron.center().y(), (title.top() + capacity.bottom()) / 2, 2);
}

TEST_F(PanelBreaks, KeepTheButtonsOfTheFooterBesideEachOther) {
  const LanguageScope german(AppLanguage::de);
  open(2);
  const QRectF quit = placeInWindow(*find(QAccessible::Button, "Beenden").item());
  const QRectF manual =
      placeInWindow(*find(QAccessible::Button, "Bedienungsanleitung öffnen").item());
  EXPECT_TRUE(isSameLine(quit, manual));
}

} // namespace
} // namespace tamberline
