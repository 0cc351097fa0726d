// The drawings of the installed Breeze icon theme. They are read as files: asking Qt for a theme's
// icon takes longer, finds nothing on some platforms, and chooses by size between
// drawings that look different.
#pragma once

#include <QImage>

#include <string_view>

namespace tamberline {

/// A square in the theme's own colours; a null image when the theme does not have the drawing.
/// `icon` is folder, size and name, such as "devices/16/input-mouse".
QImage themeDrawing(std::string_view icon, int pixels);

} // namespace tamberline
