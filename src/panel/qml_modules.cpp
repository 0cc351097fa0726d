#include "panel/qml_modules.h"

#include "controls/qml_module.h"

#include <QQmlEngine>

// NOLINTBEGIN(readability-identifier-naming): Qt's tools give the names.
extern void qml_register_types_Tamberline();
extern void qml_register_types_Tamberline_Views();
// NOLINTEND(readability-identifier-naming)

// As for the controls, see useControlsModule.
static void useCompiledQml() {
  Q_INIT_RESOURCE(qmlcache_tamberline_panel);
}

namespace tamberline {

void useQmlModules(QQmlEngine& engine) {
  useControlsModule(engine);
  qml_register_types_Tamberline();
  qml_register_types_Tamberline_Views();
  useCompiledQml();
}

} // namespace tamberline
