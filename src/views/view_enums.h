// What the description of the panel says in words that QML knows too, as `Views.Green`. QML asks
// for enumerators that begin with a capital letter and have the size of an int.
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <string_view>

namespace tamberline::views {
Q_NAMESPACE
QML_NAMED_ELEMENT(Views)

/// Colours by meaning; the drawing code decides how they look in light and dark.
enum class Color {
  Green,
  Amber,
  Orange,
  Red,
  Blue,
  Purple,
  Yellow,
  Grey,
  Accent,
  Secondary,
  Primary,
  TextBackground,
  Clear,
  /// The amber of a device's speed is not quite that of the bars.
  SpeedTextAmber,
};
Q_ENUM_NS(Color)

/// What stands in place of the cards, if there are none.
enum class PanelState { Error, Scanning, Empty, Cards };
Q_ENUM_NS(PanelState)

/// What a line of the panel's list shows. Two kinds may have content of one type.
enum class RowKind {
  PortHeader,
  PortPower,
  NothingAttached,
  Partner,
  BusHeader,
  ChargerHeader,
  ChargerBody,
  TbDevice,
  UsbBus,
  UsbDevice,
  Charger,
  ChargingOnly,
};
Q_ENUM_NS(RowKind)

/// The animation of the row that a search led to: it throbs, then fades.
enum class Pulse { None, Throbbing, Fading };
Q_ENUM_NS(Pulse)

/// As the inspect document spells it.
std::string_view nameOf(Color color);

} // namespace tamberline::views

namespace tamberline {

using views::Color;
using views::Pulse;

} // namespace tamberline
