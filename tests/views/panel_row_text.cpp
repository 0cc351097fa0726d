#include "panel_row_text.h"

#include <array>
#include <cstddef>

namespace tamberline {
namespace {

std::string kindText(PanelRow::Kind kind) {
  constexpr std::array names = {"port header", "port power",   "nothing attached", "partner",
                                "bus header",  "charger card", "tb device",        "usb bus",
                                "usb device",  "charger",      "charging only"};
  return names.at(static_cast<std::size_t>(kind));
}

std::string pulseText(Pulse pulse) {
  constexpr std::array texts = {"", ", throbs", ", fades"};
  return texts.at(static_cast<std::size_t>(pulse));
}

std::string indentOf(const PanelRow& row) {
  return row.place ? std::string(2 * static_cast<std::size_t>(row.place->depth + 1), ' ') : "";
}

} // namespace

std::string rowText(const std::vector<PanelRow>& rows) {
  std::string text;
  for (const PanelRow& row : rows) {
    text += indentOf(row) + kindText(row.kind) + " " + row.id;
    text += row.canExpand ? (row.isExpanded ? ", open" : ", closed") : "";
    text += row.isFirstOfCard ? ", first" : "";
    text += row.isLastOfCard ? ", last" : "";
    text += pulseText(row.pulse) + "\n";
  }
  return text;
}

} // namespace tamberline
