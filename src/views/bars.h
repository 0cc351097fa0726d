#pragma once

#include "views/shown_labels.h"
#include "views/view_enums.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline {

// Shares of a maximum above which colours change, of bars and of the speed of devices.
constexpr double nearlyFull = 0.92;
constexpr double nearlyHalf = 0.45;

/// A thin bar of two layers. Both fractions are between 0 and 1.
struct TriBar {
  Q_GADGET
  QML_VALUE_TYPE(triBar)
  Q_PROPERTY(double usedFraction MEMBER usedFraction CONSTANT)
  Q_PROPERTY(double cableFraction MEMBER cableFraction CONSTANT)
  Q_PROPERTY(bool showsCableLayer READ showsCableLayer CONSTANT)

public:
  double usedFraction = 0;
  double cableFraction = 0;

  /// The cable layer is drawn only if it is visibly longer than the used one.
  bool showsCableLayer() const;

  friend bool operator==(const TriBar&, const TriBar&) = default;
};

TriBar triBar(double usedFraction, double cableFraction);

/// A bar for a negotiated speed in relation to the max speed.
struct SpeedBarRow {
  Q_GADGET
  QML_VALUE_TYPE(speedBarRow)
  Q_PROPERTY(tamberline::TriBar bar READ bar CONSTANT)
  Q_PROPERTY(tamberline::views::Color color MEMBER color CONSTANT)
  Q_PROPERTY(QString speedLabel READ shownSpeedLabel CONSTANT)
  Q_PROPERTY(QString portMaxLabel READ shownPortMaxLabel CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipLabel CONSTANT)

public:
  double usedGbps = 0;
  double portMaxGbps = 0;
  double ratio = 0; // 0 to 1
  Color color = Color::Orange;
  std::string speedLabel = {};
  std::string portMaxLabel = {};
  std::string tooltip = {};

  TriBar bar() const { return triBar(ratio, 0); }
  QString shownSpeedLabel() const { return shownLabel(speedLabel); }
  QString shownPortMaxLabel() const { return shownLabel(portMaxLabel); }
  QString tooltipLabel() const { return shownTooltip(tooltip); }

  friend bool operator==(const SpeedBarRow&, const SpeedBarRow&) = default;
};

SpeedBarRow speedBarRow(double usedGbps, double portMaxGbps, std::string speedLabel,
                        std::string portMaxLabel);

/// A bar for the rated draw in relation to a port's budget. Texts that are not shown are absent.
struct PowerBarRow {
  Q_GADGET
  QML_VALUE_TYPE(powerBarRow)
  Q_PROPERTY(tamberline::TriBar bar MEMBER bar CONSTANT)
  Q_PROPERTY(tamberline::views::Color color MEMBER color CONSTANT)
  Q_PROPERTY(QString used READ usedLabel CONSTANT)
  Q_PROPERTY(QString allocated READ allocatedLabel CONSTANT)
  Q_PROPERTY(QString portMax READ portMaxLabel CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipLabel CONSTANT)

public:
  std::int64_t usedMa = 0;
  std::int64_t allocatedMa = 0;
  std::int64_t portMaxMa = 0;
  std::string used = {};
  std::optional<std::string> allocated = {};
  std::optional<std::string> portMax = {};
  Color color = Color::Blue; // red: the max is exceeded; grey: the max is unknown
  TriBar bar = {};
  std::string tooltip = {};

  QString usedLabel() const { return shownLabel(used); }
  QString allocatedLabel() const;
  QString portMaxLabel() const { return labelOrEmpty(portMax); }
  QString tooltipLabel() const { return shownTooltip(tooltip); }

  friend bool operator==(const PowerBarRow&, const PowerBarRow&) = default;
};

struct PowerBarFacts {
  std::int64_t usedMa = 0;
  std::int64_t allocatedMa = 0;
  std::int64_t portMaxMa = 0;
  std::string_view usedLabel = {};
  bool showPortMax = true;
};

PowerBarRow powerBarRow(const PowerBarFacts& facts);

/// Such as "7.5 W".
std::string wattsText(double watts);

} // namespace tamberline
