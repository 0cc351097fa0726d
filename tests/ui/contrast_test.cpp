// Measures contrasts in pictures of the panel, at double size, where strokes have their full
// colour.
#include "app/look.h"
#include "controls/color_math.h"
#include "controls/dot.h"
#include "controls/symbol.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

#include <QGuiApplication>

#include <algorithm>
#include <map>
#include <string>

namespace tamberline {
namespace {

constexpr double textContrast = 4.5;
constexpr double symbolContrast = 3;
/// What a picture of 8 bits for each colour can differ from the calculation.
constexpr double rounding = 0.05;

class Contrast : public PanelFixture, public testing::WithParamInterface<const char*> {
protected:
  ~Contrast() override { QGuiApplication::setPalette(lightPalette()); }

  static bool isText(const QQuickItem& item) {
    return (item.inherits("QQuickText") || item.inherits("QQuickTextInput")) &&
           !item.property("text").toString().isEmpty();
  }

  /// Without the connectors' and bars' rectangles. A dot of a port without devices is faint on
  /// purpose: the card says in words that nothing is attached.
  static bool isSymbol(const QQuickItem& item) {
    return qobject_cast<const Symbol*>(&item) != nullptr ||
           (qobject_cast<const Dot*>(&item) != nullptr && item.opacity() == 1);
  }

  /// Of the colour that contrasts most with the most frequent one.
  static double measured(const QImage& picture, const QRect& place) {
    std::map<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y) {
      for (int x = place.left(); x <= place.right(); ++x) {
        ++counts[picture.pixel(x, y)];
      }
    }
    const auto isLess = [](const auto& left, const auto& right) {
      return left.second < right.second;
    };
    const QRgb ground = std::max_element(counts.begin(), counts.end(), isLess)->first;
    double greatest = 1;
    for (const auto& [color, count] : counts) {
      greatest = std::max(greatest, contrastRatio(QColor(color), QColor(ground)));
    }
    return greatest;
  }

  /// Rows that the list has scrolled away are below the header or the footer.
  bool isSeen(const QQuickItem& item) { return !listView()->isAncestorOf(&item) || isInView(item); }

  void checkAll(const std::string& look) {
    const QImage picture = window().grabWindow().convertToFormat(QImage::Format_RGB32);
    int texts = 0;
    for (const QQuickItem* item : visibleItems(window())) {
      const QRect place = placeInWindow(*item).toAlignedRect() & picture.rect();
      if (place.isEmpty() || !isSeen(*item) || (!isText(*item) && !isSymbol(*item))) {
        continue;
      }
      texts += isText(*item) ? 1 : 0;
      EXPECT_GE(measured(picture, place),
                (isText(*item) ? textContrast : symbolContrast) - rounding)
          << look << ": "
          << item->property(isText(*item) ? "text" : "name").toString().toStdString();
    }
    EXPECT_GE(texts, 10);
  }
};

TEST_P(Contrast, IsEnoughInEveryLook) {
  useSample(GetParam());
  openPanel({.fontScale = 2, .isBoundByScreen = false});
  expandAll();
  for (const QPalette& palette : {lightPalette(), darkPalette()}) {
    QGuiApplication::setPalette(palette);
    settle();
    checkAll(palette == darkPalette() ? "dark" : "light");
  }
}

std::string nameOfSample(const testing::TestParamInfo<const char*>& sample) {
  std::string name = sample.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Samples, Contrast,
                         testing::Values("bare", "desk", "desktop", "laptop", "not-charging",
                                         "road", "slow", "studio"),
                         nameOfSample);

} // namespace
} // namespace tamberline
