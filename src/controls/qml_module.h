#pragma once

class QQmlEngine;

namespace tamberline {

/// Makes the QML module Tamberline.Controls known to an engine. It is in a static library, which
/// does not register itself.
void useControlsModule(QQmlEngine& engine);

} // namespace tamberline
