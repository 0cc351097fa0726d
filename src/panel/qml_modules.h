#pragma once

class QQmlEngine;

namespace tamberline {

/// Makes the panel's QML modules known to an engine. They are in static libraries, which do not
/// register themselves.
void useQmlModules(QQmlEngine& engine);

} // namespace tamberline
