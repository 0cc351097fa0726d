#pragma once

class QQmlEngine;

namespace tamberline {

/// Registers the QML module Tamberline.Controls with an engine. The module is in a static library,
/// which does not register itself.
void useControlsModule(QQmlEngine& engine);

} // namespace tamberline
