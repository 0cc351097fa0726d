#include "views/panel_rows.h"

#include "base/look_up.h"
#include "base/overloaded.h"

#include <utility>

namespace tamberline {
namespace {

PanelRow::Kind kindOf(const ExpandableRow& row) {
  return std::visit(Overloaded{
                        [](const TBDeviceRow&) { return PanelRow::Kind::TbDevice; },
                        [](const USBBusHeaderRow&) { return PanelRow::Kind::UsbBus; },
                        [](const USBDeviceDetailRow&) { return PanelRow::Kind::UsbDevice; },
                        [](const ChargerRow&) { return PanelRow::Kind::Charger; },
                        [](const ChargingOnlyRow&) { return PanelRow::Kind::ChargingOnly; },
                    },
                    row.content);
}

/// Collects the lines of one card after another.
class RowWriter {
public:
  RowWriter(const std::shared_ptr<const Panel>& panel, const RowStates& states)
      : panel_(panel), states_(states) {}

  void write(const PortCard& card) {
    PanelRow header{
        .kind = PanelRow::Kind::PortHeader, .id = card.id, .content = part(card.header)};
    header.canExpand = true;
    header.isExpanded = states_.expansion.isExpanded(card.id, /*startsExpanded=*/false,
                                                     states_.expandedOverrideIDs);
    const bool isOpen = header.isExpanded;
    begin(std::move(header));
    if (isOpen) {
      writeBody(card);
    }
    end();
  }

  void write(const StandaloneUSBCard& card) {
    begin({.kind = PanelRow::Kind::BusHeader, .id = card.id, .content = part(card.header)});
    write(card.rows);
    writeNothingAttached(card);
    end();
  }

  void write(const ChargerCard& card) {
    begin({.kind = PanelRow::Kind::ChargerCard, .id = card.id, .content = part(card)});
    end();
  }

  std::vector<PanelRow> take() { return std::move(rows_); }

private:
  void begin(PanelRow header) {
    header.isFirstOfCard = true;
    append(std::move(header));
  }

  void end() { rows_.back().isLastOfCard = true; }

  void writeBody(const PortCard& card) {
    if (!card.power.isEmpty()) {
      append({.kind = PanelRow::Kind::PortPower,
              .id = card.id + "//power",
              .content = part(card.power)});
    }
    write(card.rows);
    if (card.partner) {
      append({.kind = PanelRow::Kind::Partner,
              .id = card.id + "//partner",
              .content = part(*card.partner)});
    }
    writeNothingAttached(card);
  }

  template <typename Card>
  void writeNothingAttached(const Card& card) {
    if (card.nothingAttached) {
      append({.kind = PanelRow::Kind::NothingAttached,
              .id = card.id + "//empty",
              .content = NothingAttachedRow{*card.nothingAttached}});
    }
  }

  void append(PanelRow row) {
    row.pulse = lookUp(states_.pulses, row.id).value_or(Pulse::None);
    row.answer = answerOf(row);
    rows_.push_back(std::move(row));
  }

  std::optional<SharedValue<RowAnswer>> answerOf(const PanelRow& row) const {
    if (states_.answers == nullptr || states_.answers->empty()) {
      return std::nullopt;
    }
    auto answer = states_.answers->of(row.id, row.canExpand && !row.isExpanded);
    return answer ? std::optional(SharedValue<RowAnswer>(std::move(answer))) : std::nullopt;
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
    PanelRow described{.kind = kindOf(row), .id = row.id, .content = contentOf(row)};
    described.place = {row.depth, row.isLast, row.startsExpanded, row.tint};
    described.canExpand = !row.children.empty();
    described.isExpanded =
        described.canExpand &&
        states_.expansion.isExpanded(row.id, row.startsExpanded, states_.expandedOverrideIDs);
    return described;
  }

  PanelRow::Content contentOf(const ExpandableRow& row) const {
    const auto* device = std::get_if<USBDeviceDetailRow>(&row.content);
    if (device != nullptr && !device->volumes.empty()) {
      USBDeviceDetailRow withTools = *device;
      addTools({states_.benchmarks, states_.ejectStates, states_.testProgress}, withTools.volumes);
      return withTools;
    }
    return std::visit([this](const auto& content) { return PanelRow::Content(part(content)); },
                      row.content);
  }

  /// A part of the panel, which keeps the panel alive.
  template <typename Part>
  SharedValue<Part> part(const Part& part) const {
    return SharedValue<Part>(std::shared_ptr<const Part>(panel_, &part));
  }

  const std::shared_ptr<const Panel>& panel_;
  const RowStates& states_;
  std::vector<PanelRow> rows_;
};

} // namespace

std::vector<PanelRow> panelRows(const std::shared_ptr<const Panel>& panel,
                                const RowStates& states) {
  RowWriter writer(panel, states);
  for (const Card& card : panel->cards) {
    std::visit([&](const auto& shown) { writer.write(shown); }, card);
  }
  return writer.take();
}

} // namespace tamberline
