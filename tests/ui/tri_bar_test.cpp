#include "ui/lone_component.h"
#include "views/bars.h"

#include <QColor>
#include <QImage>

namespace tamberline {
namespace {

constexpr int barWidth = 200;

// The share of the bar's colour where these layers overlap, in hundredths.
constexpr double trackShare = 10;
constexpr double cableShare = 100 * (1 - 0.9 * 0.7);
constexpr double usedShare = 100 * (1 - 0.9 * 0.15);
constexpr double usedOverCableShare = 100 * (1 - 0.9 * 0.7 * 0.15);

/// A black bar on white, checked point by point.
class TriBarPicture : public LoneComponent {
protected:
  void show(double usedFraction, double cableFraction = 0, int width = barWidth) {
    showComponent("TriBar",
                  {{"bar", QVariant::fromValue(TriBar{usedFraction, cableFraction})},
                   {"color", QColor(Qt::black)}},
                  width);
    view->setColor(Qt::white);
    picture = view->grabWindow();
  }

  double shareAt(int x, int y) const { return 100 * (1 - picture.pixelColor(x, y).lightnessF()); }

  /// At half the bar's height, from `first` up to but not including `end`.
  void expectShare(double share, int first, int end) const {
    for (int x = first; x < end; ++x) {
      EXPECT_NEAR(shareAt(x, 3), share, 1) << x;
    }
  }

  QImage picture;
};

TEST_F(TriBarPicture, HasThreeLayersFromTheLeft) {
  show(0.5, 0.75);
  expectShare(usedOverCableShare, 3, 97);
  expectShare(cableShare, 101, 147);
  expectShare(trackShare, 151, 197);
}

TEST_F(TriBarPicture, OmitsTheCableLayerIfItIsNotShown) {
  show(0.5, 0.51);
  expectShare(usedShare, 3, 97);
  expectShare(trackShare, 101, 197);
}

TEST_F(TriBarPicture, ShowsOnlyTheTrackIfNothingIsUsed) {
  show(0);
  expectShare(trackShare, 3, 197);
  EXPECT_LT(shareAt(1, 3), trackShare + 1);
}

TEST_F(TriBarPicture, ShowsASliverOfTheSmallestUse) {
  show(0.001);
  expectShare(usedShare, 1, 3);
  expectShare(trackShare, 4, 197);
}

TEST_F(TriBarPicture, ShowsASliverOfTheSmallestCableLayer) {
  show(0, 0.021, 100);
  expectShare(cableShare, 1, 3);
  expectShare(trackShare, 4, 97);
}

TEST_F(TriBarPicture, IsSixPointsHighWithRoundEnds) {
  show(1);
  EXPECT_EQ(picture.height(), 6);
  for (const int y : {0, 5}) {
    EXPECT_NEAR(shareAt(100, y), usedShare, 1);
    for (const int x : {0, barWidth - 1}) {
      EXPECT_LT(shareAt(x, y), 30) << x << " " << y;
      EXPECT_GT(shareAt(x, 3), 50) << x;
    }
    EXPECT_NEAR(shareAt(3, y), usedShare, 12); // the ends are not rounder than that
  }
}

} // namespace
} // namespace tamberline
