// The enumerations of the panel's description, available to QML as in `Views.Green`. QML requires
// enumerators that begin with a capital letter and have the size of an int.
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <string_view>

namespace tamberline::views {
Q_NAMESPACE
QML_NAMED_ELEMENT(Views)

/// Colours by meaning; StatusColors defines how they are drawn on light and dark backgrounds.
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
  /// For a device's speed; slightly darker than the amber of the bars.
  SpeedTextAmber,
};
Q_ENUM_NS(Color)

/// `Cards`, or what the panel shows instead of cards.
enum class PanelState { Error, Scanning, Empty, Cards };
Q_ENUM_NS(PanelState)

/// What a line of the panel's list shows. Different kinds may have content of the same type.
enum class RowKind {
  PortHeader,
  PortPower,
  NothingAttached,
  Partner,
  BusHeader,
  ChargerCard,
  TbDevice,
  UsbBus,
  UsbDevice,
  Charger,
  ChargingOnly,
};
Q_ENUM_NS(RowKind)

/// The animation of a row that a search jumped to: it throbs, then fades.
enum class Pulse { None, Throbbing, Fading };
Q_ENUM_NS(Pulse)

/// The colour's name in the inspect document.
std::string_view nameOf(Color color);

} // namespace tamberline::views

namespace tamberline {

using views::Color;
using views::Pulse;

} // namespace tamberline
