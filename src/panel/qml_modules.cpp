#include "panel/qml_modules.h"

#include <QQmlEngine>
#include <QString>

// NOLINTBEGIN(readability-identifier-naming): Qt's tools give the names.
extern void qml_register_types_Tamberline();
extern void qml_register_types_Tamberline_Views();
// NOLINTEND(readability-identifier-naming)

// Some versions of Qt leave the compiled QML to whoever links the module. Without it Qt compiles
// the panel at each start and caches the result in the home directory. The macro declares what it
// calls, so it cannot stand in a namespace.
static void useCompiledQml() {
  Q_INIT_RESOURCE(qmlcache_tamberline_panel);
}

namespace tamberline {

void useQmlModules(QQmlEngine& engine) {
  qml_register_types_Tamberline();
  qml_register_types_Tamberline_Views();
  useCompiledQml();
  engine.addImportPath(QStringLiteral(":/qml"));
}

} // namespace tamberline
