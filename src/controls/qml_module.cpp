#include "controls/qml_module.h"

#include <QQmlEngine>
#include <QString>

// NOLINTNEXTLINE(readability-identifier-naming): Qt's tools give the name.
extern void qml_register_types_Tamberline_Controls();

// Some versions of Qt leave the compiled QML to whoever links the module. Without it Qt compiles
// the QML at each start and caches the result in the home directory. The macro declares what it
// calls, so it cannot stand in a namespace.
static void useCompiledQml() {
  Q_INIT_RESOURCE(qmlcache_tamberline_controls);
}

namespace tamberline {

void useControlsModule(QQmlEngine& engine) {
  qml_register_types_Tamberline_Controls();
  useCompiledQml();
  engine.addImportPath(QStringLiteral(":/qml"));
}

} // namespace tamberline
