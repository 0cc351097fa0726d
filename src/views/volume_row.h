#pragma once

#include "model/usb_records.h"
#include "model/volume_states.h"
#include "views/shown_labels.h"
#include "views/view_enums.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// A piece of text with a colour.
struct ColoredText {
  Q_GADGET
  QML_VALUE_TYPE(coloredText)
  Q_PROPERTY(QString text READ textLabel CONSTANT)
  Q_PROPERTY(tamberline::views::Color color MEMBER color CONSTANT)

public:
  std::string text = {};
  Color color = Color::Primary;

  QString textLabel() const { return shownLabel(text); }

  friend bool operator==(const ColoredText&, const ColoredText&) = default;
};

/// A button that shows a symbol; its tooltip explains what it does. Not drawn if the symbol is
/// empty.
struct SymbolButton {
  Q_GADGET
  QML_VALUE_TYPE(symbolButton)
  Q_PROPERTY(QString symbol READ symbolName CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipLabel CONSTANT)
  Q_PROPERTY(tamberline::views::Color color MEMBER color CONSTANT)
  Q_PROPERTY(bool isEnabled MEMBER isEnabled CONSTANT)

public:
  std::string symbol = {};
  std::string tooltip = {};
  Color color = Color::Secondary;
  bool isEnabled = true;

  QString symbolName() const { return shownSymbol(symbol); }
  QString tooltipLabel() const { return shownTooltip(tooltip); }

  friend bool operator==(const SymbolButton&, const SymbolButton&) = default;
};

/// The state of a volume's speed test and ejection, as shown. Parts that are not shown are absent.
struct VolumeTools {
  Q_GADGET
  QML_VALUE_TYPE(volumeTools)
  Q_PROPERTY(bool showsTestProgress MEMBER showsTestProgress CONSTANT)
  Q_PROPERTY(QString testProgress READ testProgressLabel CONSTANT)
  Q_PROPERTY(QString stopTooltip READ stopTooltipLabel CONSTANT)
  Q_PROPERTY(QVariantList testTexts READ testTextList CONSTANT)
  Q_PROPERTY(tamberline::SymbolButton testButton READ shownTestButton CONSTANT)
  Q_PROPERTY(bool showsEjectProgress MEMBER showsEjectProgress CONSTANT)
  Q_PROPERTY(tamberline::SymbolButton ejectButton READ shownEjectButton CONSTANT)

public:
  bool showsTestProgress = false;
  /// The current phase of the test and its progress: "Writing… 40%".
  std::string testProgress = {};
  /// The same, with a note that pressing it stops the test.
  std::string stopTooltip = {};
  std::vector<ColoredText> testTexts = {};
  std::optional<SymbolButton> testButton = {};
  bool showsEjectProgress = false;
  std::optional<std::string> ejectFailure = {};
  std::optional<SymbolButton> ejectButton = {};

  QString testProgressLabel() const { return shownLabel(testProgress); }
  QString stopTooltipLabel() const { return shownTooltip(stopTooltip); }
  QVariantList testTextList() const { return asVariants(testTexts); }
  SymbolButton shownTestButton() const { return testButton.value_or(SymbolButton{}); }
  SymbolButton shownEjectButton() const { return ejectButton.value_or(SymbolButton{}); }

  friend bool operator==(const VolumeTools&, const VolumeTools&) = default;
};

/// A volume of a storage device.
struct VolumeRow {
  Q_GADGET
  QML_VALUE_TYPE(volumeRow)
  Q_PROPERTY(QString label READ shownLabelText CONSTANT)
  Q_PROPERTY(tamberline::NameLabel name READ nameText CONSTANT)
  Q_PROPERTY(QString mountPoint READ mountPointText CONSTANT)
  Q_PROPERTY(tamberline::VolumeTools tools MEMBER tools CONSTANT)

public:
  std::string label = {};
  std::string name = {};
  std::string mountPoint = {};
  VolumeTools tools = {}; // nothing is shown until addTools sets them

  QString shownLabelText() const { return shownLabel(label); }
  NameLabel nameText() const { return nameLabel(name); }
  QString mountPointText() const { return QString::fromStdString(mountPoint); }

  friend bool operator==(const VolumeRow&, const VolumeRow&) = default;
};

VolumeRow volumeRow(const USBVolume& volume);

VolumeTools volumeTools(const BenchmarkPhase& phase, const std::optional<EjectState>& eject,
                        std::optional<int> testPercent = std::nullopt);

/// The states of all volumes, by mount point.
struct VolumeStates {
  const std::map<std::string, BenchmarkPhase>& benchmarks;
  const std::map<std::string, EjectState>& ejectStates;
  const std::map<std::string, int>& testProgress;
};

/// Sets the tools of the volumes of one drive. None can be ejected while one is tested or ejected.
void addTools(const VolumeStates& states, std::vector<VolumeRow>& volumes);

} // namespace tamberline
