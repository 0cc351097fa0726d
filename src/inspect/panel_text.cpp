#include "inspect/panel_text.h"

#include "base/overloaded.h"
#include "base/shown_text.h"
#include "i18n/loc.h"
#include "inspect/text_tree.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

constexpr int barWidth = 20;

TextSpan gap() {
  return {"  "};
}

void append(TextLine& line, TextSpan span) {
  if (span.text.empty()) {
    return;
  }
  if (!line.empty()) {
    line.push_back(gap());
  }
  line.push_back(std::move(span));
}

void appendIfShown(TextLine& line, const std::optional<std::string>& text,
                   Color color = Color::Secondary) {
  if (text) {
    append(line, {*text, color});
  }
}

std::string repeated(std::string_view piece, int count) {
  std::string text;
  for (int index = 0; index < count; ++index) {
    text += piece;
  }
  return text;
}

/// A layer of the bar that is not empty has at least one cell.
int cellsOf(double fraction) {
  const int cells = static_cast<int>(std::lround(fraction * barWidth));
  return fraction > 0 && cells == 0 ? 1 : cells;
}

void appendBar(TextLine& line, const TriBar& bar, Color color) {
  const int used = cellsOf(bar.usedFraction);
  const int unusedCells = std::max(cellsOf(bar.cableFraction) - used, 1);
  const int cable = bar.showsCableLayer() ? std::min(unusedCells, barWidth - used) : 0;
  append(line, {repeated("█", used), color});
  line.push_back({repeated("▒", cable), color});
  line.push_back({repeated("░", barWidth - used - cable), Color::Grey});
}

/// A name from outside; an empty one still has a place in its row.
std::string shownName(std::string_view name) {
  std::string shown = shownText(name);
  return shown.empty() ? "—" : shown;
}

TextSpan badgeSpan(const Badge& badge) {
  if (!badge.color) {
    return {badge.text, Color::Secondary};
  }
  return {"[" + shownName(badge.text) + "]", *badge.color};
}

TextLine speedLine(const SpeedBarRow& bar) {
  TextLine line;
  appendBar(line, {bar.ratio, 0}, bar.color);
  append(line, {bar.speedLabel, bar.color});
  append(line, {bar.portMaxLabel, Color::Secondary});
  return line;
}

TextLine powerLine(const PowerBarRow& row) {
  TextLine line;
  appendBar(line, row.bar, row.color);
  append(line, {row.used});
  if (row.allocated) {
    line.push_back({" " + *row.allocated, Color::Secondary});
  }
  appendIfShown(line, row.portMax);
  return line;
}

TextLine measuredLine(const MeasuredPower& power) {
  TextLine line;
  appendBar(line, power.bar, Color::Blue);
  append(line, {power.used});
  if (power.allocated) {
    line.push_back({" · " + *power.allocated, Color::Secondary});
  }
  append(line, {power.voltageCurrent, Color::Secondary});
  return line;
}

TextLine volumeLine(const VolumeRow& volume) {
  TextLine line = {{volume.label, Color::Secondary}};
  append(line, {shownName(volume.name)});
  append(line, {shownText(volume.mountPoint), Color::Secondary});
  return line;
}

/// Whether the link's speed differs from the bar's, or there is no bar.
bool differsFromBar(const LinkNote& note, const std::optional<SpeedBarRow>& bar) {
  return !bar || note.link.transmitGbps != bar->usedGbps || note.link.receiveGbps != bar->usedGbps;
}

std::vector<TextLine> linesOf(const TBDeviceRow& row) {
  TextLine first = {{shownName(row.name)}};
  for (const auto& badge : {row.modeBadge, row.warningBadge}) {
    if (badge) {
      append(first, badgeSpan(*badge));
    }
  }
  appendIfShown(first, row.ratedDraw);
  std::vector<TextLine> lines = {std::move(first)};
  if (row.speedBar) {
    lines.push_back(speedLine(*row.speedBar));
  }
  if (row.link && differsFromBar(*row.link, row.speedBar)) {
    lines.push_back({{row.link->text, Color::Secondary}});
  }
  return lines;
}

std::vector<TextLine> linesOf(const USBBusHeaderRow& row) {
  TextLine first = {{row.name}};
  appendIfShown(first, row.ratedDraw);
  return {std::move(first)};
}

std::vector<TextLine> linesOf(const USBDeviceDetailRow& row) {
  TextLine first = {{shownName(row.name)}};
  append(first, {shownText(row.speedText), row.speedColor});
  if (row.hubTotal) {
    append(first, {row.hubTotal->text, Color::Secondary});
  }
  std::vector<TextLine> lines = {std::move(first)};
  if (row.speedBar) {
    lines.push_back(speedLine(*row.speedBar));
  }
  if (row.speedNote) {
    lines.push_back({{"↑ " + row.speedNote->note, Color::Orange}});
  }
  if (row.powerBar) {
    lines.push_back(powerLine(*row.powerBar));
  }
  for (const VolumeRow& volume : row.volumes) {
    lines.push_back(volumeLine(volume));
  }
  return lines;
}

std::vector<TextLine> linesOf(const ChargerRow& row) {
  TextLine line = {{"⚡ ", Color::Yellow}, {shownName(row.name)}};
  if (row.rated) {
    append(line, {(row.isCharging ? "▲ " : "") + *row.rated,
                  row.isCharging ? Color::Green : Color::Secondary});
  }
  return {std::move(line)};
}

std::vector<TextLine> linesOf(const ChargingOnlyRow& row) {
  TextLine first = {{"⚡ ", Color::Yellow}, {row.title}};
  append(first, badgeSpan(row.badge));
  return {std::move(first), {{row.detail, Color::Secondary}}};
}

std::vector<TextTree> treesOf(const std::vector<ExpandableRow>& rows) {
  std::vector<TextTree> trees;
  trees.reserve(rows.size());
  for (const ExpandableRow& row : rows) {
    trees.push_back({std::visit([](const auto& content) { return linesOf(content); }, row.content),
                     treesOf(row.children)});
  }
  return trees;
}

void appendIfEmpty(const std::optional<std::string>& nothingAttached, TextTree& tree) {
  if (nothingAttached) {
    tree.lines.push_back({{*nothingAttached, Color::Secondary}});
  }
}

TextTree treeOf(const PortCard& card) {
  TextLine header = {
      {card.header.inUse ? "● " : "○ ", card.header.inUse ? Color::Green : Color::Grey},
      {card.header.title, Color::Primary, /*isBold=*/true}};
  appendIfShown(header, card.header.itemCount);
  for (const PortBadge& badge : card.header.badges) {
    append(header, badgeSpan(badge.badge));
    if (badge.kind == PortBadge::Kind::capacity) { // the panel says this in the tooltip
      header.push_back({" " + std::string(Loc::portMax()), Color::Secondary});
    }
  }
  TextTree tree{{std::move(header)}, treesOf(card.rows)};
  if (card.power.measured) {
    tree.lines.push_back(measuredLine(*card.power.measured));
  }
  if (card.power.agreed) {
    TextLine line = {{"⚡ ", Color::Secondary}, {card.power.agreed->watts}};
    append(line, {card.power.agreed->voltageCurrent, Color::Secondary});
    tree.lines.push_back(std::move(line));
  }
  if (card.power.ratedBar) {
    tree.lines.push_back(powerLine(*card.power.ratedBar));
  }
  for (const DetailLine& detail : card.header.details) {
    tree.lines.push_back({{detail.label(), Color::Secondary}});
  }
  if (card.partner) {
    tree.lines.push_back({{card.partner->title}});
    tree.lines.push_back({{card.partner->detail, Color::Secondary}});
  }
  appendIfEmpty(card.nothingAttached, tree);
  return tree;
}

TextTree treeOf(const StandaloneUSBCard& card) {
  TextTree tree{linesOf(card.header), treesOf(card.rows)};
  tree.lines.front().front().isBold = true;
  appendIfEmpty(card.nothingAttached, tree);
  return tree;
}

TextTree treeOf(const ChargerCard& card) {
  TextLine header = {{card.header.title, Color::Primary, /*isBold=*/true}};
  append(header, {card.header.port, Color::Secondary});
  return {{std::move(header)}, {TextTree{linesOf(card.row), {}}}};
}

} // namespace

std::string panelText(const Panel& panel, bool useColors, std::optional<int> columns) {
  std::vector<TextTree> trees;
  if (panel.message) {
    const Color color = panel.state == Panel::State::Error ? Color::Orange : Color::Secondary;
    trees.push_back({{{{shownText(*panel.message), color}}}, {}});
  }
  for (const Card& card : panel.cards) {
    trees.push_back(std::visit([](const auto& one) { return treeOf(one); }, card));
  }
  return renderTextTrees(trees, useColors, columns);
}

} // namespace tamberline
