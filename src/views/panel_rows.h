#pragma once

#include "model/volume_states.h"
#include "views/panel.h"
#include "views/row_expansion.h"
#include "views/volume_row.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace tamberline {

/// How the highlight of a row that a search led to moves: it throbs, then fades.
enum class Pulse : std::uint8_t { none, throbbing, fading };

/// One line of the panel's list: a card's header, a part of its body, or a row of its tree.
struct PanelRow {
  enum class Kind : std::uint8_t {
    portHeader,
    portPower,
    nothingAttached,
    partner,
    busHeader,
    chargerHeader,
    chargerBody,
    tbDevice,
    usbBus,
    usbDevice,
    charger,
    chargingOnly,
  };

  /// Points into the panel that the row was made from.
  using Source = std::variant<const PortCard*, const StandaloneUSBCard*, const ChargerCard*,
                              const ExpandableRow*>;

  Kind kind = Kind::portHeader;
  /// A node's stable identifier, or one with a mark that no node has for the parts of a body.
  std::string id = {};
  Source source = {};
  bool isFirstOfCard = false;
  bool isLastOfCard = false;
  bool canExpand = false;
  bool isExpanded = false;
  Pulse pulse = Pulse::none;
  /// One for each volume of a USB device.
  std::vector<VolumeTools> volumeTools = {};
};

/// What the rows show beside the panel's description.
struct RowStates {
  const RowExpansion& expansion;
  const std::set<std::string>& expandedOverrideIDs;
  const std::map<std::string, BenchmarkPhase>& benchmarks;
  const std::map<std::string, EjectState>& ejectStates;
  const std::map<std::string, Pulse>& pulses;
  /// How much of a test's part is done, in percent.
  std::map<std::string, int> testProgress = {};
};

/// The lines of the open cards and rows. They point into `panel`, which must outlive them.
std::vector<PanelRow> panelRows(const Panel& panel, const RowStates& states);

/// Whether two rows look the same, wherever they stand.
bool lookTheSame(const PanelRow& left, const PanelRow& right);

} // namespace tamberline
