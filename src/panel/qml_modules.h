#pragma once

class QQmlEngine;

namespace tamberline {

/// Registers the panel's QML modules with an engine. They are in static libraries, which do not
/// register themselves.
void useQmlModules(QQmlEngine& engine);

} // namespace tamberline
