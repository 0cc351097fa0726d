#include "views/panel_rows.h"

#include "base/look_up.h"
#include "base/overloaded.h"

#include <tuple>
#include <type_traits>
#include <utility>

namespace tamberline {
namespace {

PanelRow::Kind kindOf(const ExpandableRow& row) {
  return std::visit(Overloaded{
                        [](const TBDeviceRow&) { return PanelRow::Kind::tbDevice; },
                        [](const USBBusHeaderRow&) { return PanelRow::Kind::usbBus; },
                        [](const USBDeviceDetailRow&) { return PanelRow::Kind::usbDevice; },
                        [](const ChargerRow&) { return PanelRow::Kind::charger; },
                        [](const ChargingOnlyRow&) { return PanelRow::Kind::chargingOnly; },
                    },
                    row.content);
}

/// Writes the lines of one card after another.
class RowWriter {
public:
  explicit RowWriter(const RowStates& states) : states_(states) {}

  void write(const PortCard& card) {
    PanelRow header{.kind = PanelRow::Kind::portHeader, .id = card.id, .source = &card};
    header.canExpand = true;
    header.isExpanded = states_.expansion.isExpanded(card.id, /*startsExpanded=*/false,
                                                     states_.expandedOverrideIDs);
    const bool isOpen = header.isExpanded;
    begin(std::move(header));
    if (isOpen && (card.measuredPower || card.agreedPower || card.portPowerBar)) {
      append({.kind = PanelRow::Kind::portPower, .id = card.id + "//power", .source = &card});
    }
    if (isOpen) {
      write(card.rows);
    }
    if (isOpen && card.partner) {
      append({.kind = PanelRow::Kind::partner, .id = card.id + "//partner", .source = &card});
    }
    if (isOpen) {
      writeNothingAttached(card);
    }
    end();
  }

  void write(const StandaloneUSBCard& card) {
    begin({.kind = PanelRow::Kind::busHeader, .id = card.id, .source = &card});
    write(card.rows);
    writeNothingAttached(card);
    end();
  }

  void write(const ChargerCard& card) {
    begin({.kind = PanelRow::Kind::chargerHeader, .id = card.id, .source = &card});
    append({.kind = PanelRow::Kind::chargerBody, .id = card.id + "//adapter", .source = &card});
    end();
  }

  std::vector<PanelRow> take() { return std::move(rows_); }

private:
  void begin(PanelRow header) {
    header.isFirstOfCard = true;
    append(std::move(header));
  }

  void end() { rows_.back().isLastOfCard = true; }

  template <typename Card>
  void writeNothingAttached(const Card& card) {
    if (card.nothingAttached) {
      append({.kind = PanelRow::Kind::nothingAttached, .id = card.id + "//empty", .source = &card});
    }
  }

  void append(PanelRow row) {
    row.pulse = lookUp(states_.pulses, row.id).value_or(Pulse::none);
    rows_.push_back(std::move(row));
  }

  void write(const std::vector<ExpandableRow>& siblings) {
    for (const ExpandableRow& sibling : siblings) {
      append(describe(sibling));
      if (rows_.back().isExpanded) {
        write(sibling.children);
      }
    }
  }

  PanelRow describe(const ExpandableRow& row) const {
    PanelRow described{.kind = kindOf(row), .id = row.id, .source = &row};
    described.canExpand = !row.children.empty();
    described.isExpanded =
        described.canExpand &&
        states_.expansion.isExpanded(row.id, row.startsExpanded, states_.expandedOverrideIDs);
    if (const auto* device = std::get_if<USBDeviceDetailRow>(&row.content)) {
      described.volumeTools = toolsOfDrive(
          device->volumes, {states_.benchmarks, states_.ejectStates, states_.testProgress});
    }
    return described;
  }

  const RowStates& states_;
  std::vector<PanelRow> rows_;
};

bool headersLookTheSame(const PortCard& left, const PortCard& right) {
  const auto shown = [](const PortCard& card) {
    return std::tie(card.inUse, card.dotTooltip, card.title, card.titleNote, card.itemCount,
                    card.itemCountTooltip, card.badges);
  };
  return shown(left) == shown(right);
}

bool bodiesLookTheSame(const PortCard& left, const PortCard& right) {
  const auto shown = [](const PortCard& card) {
    return std::tie(card.measuredPower, card.agreedPower, card.portPowerBar, card.partner,
                    card.nothingAttached);
  };
  return shown(left) == shown(right);
}

bool contentsLookTheSame(const ExpandableRow& left, const ExpandableRow& right) {
  return left.depth == right.depth && left.isLast == right.isLast && left.tint == right.tint &&
         left.content == right.content;
}

bool contentsLookTheSame(const StandaloneUSBCard& left, const StandaloneUSBCard& right) {
  return left.header == right.header && left.nothingAttached == right.nothingAttached;
}

bool contentsLookTheSame(const ChargerCard& left, const ChargerCard& right) {
  const auto shown = [](const ChargerCard& card) {
    return std::tie(card.icon, card.title, card.port, card.portTooltip, card.row);
  };
  return shown(left) == shown(right);
}

bool contentsLookTheSame(const PanelRow& left, const PanelRow& right) {
  return std::visit(
      [&]<typename Source>(const Source* source) {
        const Source* other = std::get<const Source*>(right.source);
        if (source == other) {
          return true;
        }
        if constexpr (std::is_same_v<Source, PortCard>) {
          return left.kind == PanelRow::Kind::portHeader ? headersLookTheSame(*source, *other)
                                                         : bodiesLookTheSame(*source, *other);
        } else {
          return contentsLookTheSame(*source, *other);
        }
      },
      left.source);
}

} // namespace

std::vector<PanelRow> panelRows(const Panel& panel, const RowStates& states) {
  RowWriter writer(states);
  for (const Card& card : panel.cards) {
    std::visit([&](const auto& shown) { writer.write(shown); }, card);
  }
  return writer.take();
}

bool lookTheSame(const PanelRow& left, const PanelRow& right) {
  const auto state = [](const PanelRow& row) {
    return std::tie(row.kind, row.isFirstOfCard, row.isLastOfCard, row.canExpand, row.isExpanded,
                    row.pulse, row.volumeTools);
  };
  return state(left) == state(right) && contentsLookTheSame(left, right);
}

} // namespace tamberline
