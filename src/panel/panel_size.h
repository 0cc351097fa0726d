#pragma once

/// The size of the content of the panel's window, in points.
namespace tamberline::PanelSize {

inline constexpr double width = 400;
inline constexpr double minimumHeight = 200;
inline constexpr double initialHeight = 490; // until the content is measured

} // namespace tamberline::PanelSize
