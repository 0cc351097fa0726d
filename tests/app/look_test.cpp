#include "app/look.h"
#include "controls/color_math.h"
#include "controls/theme.h"
#include "panel/status_colors.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

/// The application's look is restored after each test.
class LookTest : public testing::Test {
protected:
  ~LookTest() override {
    QApplication::setPalette(QPalette());
    QApplication::setFont(fontBefore);
  }

  const QFont fontBefore = QApplication::font();
};

TEST_F(LookTest, IsLightOrDark) {
  QApplication::setPalette(lightPalette());
  EXPECT_FALSE(Theme(1).isDark());
  QApplication::setPalette(darkPalette());
  EXPECT_TRUE(Theme(1).isDark());
}

TEST_F(LookTest, HasReadableTextAndInksOnACard) {
  for (const QPalette& palette : {lightPalette(), darkPalette()}) {
    QApplication::setPalette(palette);
    const Theme theme(1);
    const auto card = theme.property("card").value<QColor>();
    SCOPED_TRACE("on " + card.name().toStdString());
    EXPECT_GE(contrastRatio(theme.property("text").value<QColor>(), card), 4.5);
    EXPECT_GE(contrastRatio(theme.property("secondary").value<QColor>(), card), 4.5);
    const ColorSet inks = StatusColors(theme).inks();
    for (std::size_t index = 0; index < ColorSet::size; ++index) {
      EXPECT_GE(contrastRatio(inks.of(static_cast<Color>(index)), card), 4.5) << index;
    }
  }
}

TEST_F(LookTest, HasThePanelsDesignTextSize) {
  QApplication::setFont(ownFont());
  EXPECT_EQ(Theme(1).scale(), 1);
}

TEST_F(LookTest, IsUsedWithoutADesktop) {
  QApplication::setPalette(darkPalette());
  applyDefaultLookWithoutDesktop();
  EXPECT_EQ(QApplication::palette().color(QPalette::Window),
            lightPalette().color(QPalette::Window));
  EXPECT_EQ(QApplication::font().pixelSize(), 13);
}

} // namespace
} // namespace tamberline
