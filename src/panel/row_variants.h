// What QML reads: the description of a row as plain maps, with the names that the description has.
#pragma once

#include "views/panel_rows.h"
#include "views/power_card.h"

#include <QString>
#include <QVariantMap>

#include <cstddef>
#include <string_view>

namespace tamberline {

/// Enough for a tooltip; a line shows less.
constexpr std::size_t longestTooltip = 600;
constexpr std::size_t longestSentence = 2000;

/// A text fit to be drawn: see shownText.
QString displayText(std::string_view text, std::size_t mostCharacters = 120);

QString colorName(Color color);
QString nameOf(PanelRow::Kind kind);
QString nameOf(Pulse pulse);

/// The fields that the component for the row's kind reads. A part that is not
/// shown says so in `isShown`; a text that is not shown is empty.
QVariantMap contentVariant(const PanelRow& row);
QVariantMap powerCardVariant(const PowerCard& card);

} // namespace tamberline
