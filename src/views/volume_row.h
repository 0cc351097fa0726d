#pragma once

#include "model/usb_records.h"
#include "model/volume_states.h"
#include "views/colors.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// A volume of a storage device, as far as it does not change with the tools' states.
struct VolumeRow {
  std::string label = {};
  std::string name = {};
  std::string mountPoint = {};

  friend bool operator==(const VolumeRow&, const VolumeRow&) = default;
};

VolumeRow volumeRow(const USBVolume& volume);

/// A piece of text in its colour.
struct ColoredText {
  std::string text = {};
  Color color = Color::primary;

  friend bool operator==(const ColoredText&, const ColoredText&) = default;
};

/// A button that shows a symbol; its tooltip says what it does.
struct SymbolButton {
  std::string symbol = {};
  std::string tooltip = {};
  Color color = Color::secondary;
  bool isEnabled = true;

  friend bool operator==(const SymbolButton&, const SymbolButton&) = default;
};

/// What the speed test and the ejection of a volume show. Parts that are not shown are absent.
struct VolumeTools {
  bool showsTestProgress = false;
  /// What the test is at, and how far: "Writing… 40%".
  std::string testProgress = {};
  /// The same, and that a press stops the test.
  std::string stopTooltip = {};
  std::vector<ColoredText> testTexts = {};
  std::optional<SymbolButton> testButton = {};
  bool showsEjectProgress = false;
  std::optional<std::string> ejectFailure = {};
  std::optional<SymbolButton> ejectButton = {};

  friend bool operator==(const VolumeTools&, const VolumeTools&) = default;
};

VolumeTools volumeTools(const BenchmarkPhase& phase, const std::optional<EjectState>& eject,
                        std::optional<int> testPercent = std::nullopt);

/// The states of all volumes, by mount point.
struct VolumeStates {
  const std::map<std::string, BenchmarkPhase>& benchmarks;
  const std::map<std::string, EjectState>& ejectStates;
  const std::map<std::string, int>& testProgress;
};

/// The tools of the volumes of one drive, of which none is ejected while one is tested or ejected.
std::vector<VolumeTools> toolsOfDrive(const std::vector<VolumeRow>& volumes,
                                      const VolumeStates& states);

} // namespace tamberline
