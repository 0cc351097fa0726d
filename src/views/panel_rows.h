#pragma once

#include "base/shared_value.h"
#include "model/volume_states.h"
#include "views/panel.h"
#include "views/panel_answers.h"
#include "views/row_expansion.h"
#include "views/view_enums.h"
#include "views/volume_row.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace tamberline {

/// The text of a card that has nothing else to show below its header.
struct NothingAttachedRow {
  Q_GADGET
  QML_VALUE_TYPE(nothingAttachedRow)
  Q_PROPERTY(QString text READ textLabel CONSTANT)

public:
  std::string text = {};

  QString textLabel() const { return shownLabel(text); }

  friend bool operator==(const NothingAttachedRow&, const NothingAttachedRow&) = default;
};

/// One line of the panel's list: a card's header, a part of its body, a row of its tree, or the
/// whole card of an adapter. Rows
/// that are equal look the same.
struct PanelRow {
  using Kind = views::RowKind;

  /// Parts of the panel are shared with it.
  using Content =
      std::variant<SharedValue<PortHeader>, SharedValue<PortPower>, SharedValue<NothingAttachedRow>,
                   SharedValue<PartnerNotice>, SharedValue<ChargerCard>, SharedValue<ChargerRow>,
                   SharedValue<TBDeviceRow>, SharedValue<USBBusHeaderRow>,
                   SharedValue<USBDeviceDetailRow>, SharedValue<ChargingOnlyRow>>;

  /// The position of a row in the tree, and its look there.
  struct TreePlace {
    int depth = 0;
    bool isLast = false;
    bool startsExpanded = false;
    Tint tint = {};

    friend bool operator==(const TreePlace&, const TreePlace&) = default;
  };

  Kind kind = Kind::PortHeader;
  /// A node's stable identifier; for a part of a card's body, with a suffix that no node's
  /// identifier has.
  std::string id = {};
  Content content = PortHeader{};
  std::optional<TreePlace> place = {};
  bool isFirstOfCard = false;
  bool isLastOfCard = false;
  bool canExpand = false;
  bool isExpanded = false;
  Pulse pulse = Pulse::None;
  /// Absent if no answer concerns the row.
  std::optional<SharedValue<RowAnswer>> answer = {};

  friend bool operator==(const PanelRow&, const PanelRow&) = default;
};

/// The state that the rows show in addition to the panel's description.
struct RowStates {
  const RowExpansion& expansion;
  const std::set<std::string>& expandedOverrideIDs;
  const std::map<std::string, BenchmarkPhase>& benchmarks;
  const std::map<std::string, EjectState>& ejectStates;
  const std::map<std::string, Pulse>& pulses;
  /// The progress of the current phase of a test, in percent.
  std::map<std::string, int> testProgress = {};
  /// Null if there are none.
  const PanelAnswers* answers = nullptr;
};

/// The visible lines: those of all cards, and the contents of expanded cards and rows.
std::vector<PanelRow> panelRows(const std::shared_ptr<const Panel>& panel, const RowStates& states);

} // namespace tamberline
