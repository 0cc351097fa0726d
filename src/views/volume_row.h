#pragma once

#include "model/usb_records.h"
#include "model/volume_states.h"
#include "views/colors.h"

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
  std::vector<ColoredText> testTexts = {};
  std::optional<SymbolButton> testButton = {};
  bool showsEjectProgress = false;
  std::optional<std::string> ejectFailure = {};
  std::optional<SymbolButton> ejectButton = {};

  friend bool operator==(const VolumeTools&, const VolumeTools&) = default;
};

VolumeTools volumeTools(const BenchmarkPhase& phase, const std::optional<EjectState>& eject);

} // namespace tamberline
