#include "ui/qml_warnings.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>

namespace tamberline {
namespace {

std::string collected;

/// The offscreen platform cannot raise windows and warns about it.
bool isOfThePlatform(const QString& message) {
  return message.startsWith(QLatin1String("This plugin does not support "));
}

void collect(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtFatalMsg) {
    std::fprintf(stderr, "%s\n", qPrintable(message)); // otherwise the test would not report it
  }
  const bool isWarning = type != QtDebugMsg && type != QtInfoMsg;
  if (isWarning && !isOfThePlatform(message)) {
    collected += message.toStdString() + "\n";
  }
}

} // namespace

QmlWarnings::QmlWarnings() {
  collected.clear();
  qInstallMessageHandler(collect);
}

QmlWarnings::~QmlWarnings() {
  qInstallMessageHandler(nullptr);
}

std::string QmlWarnings::text() const {
  return collected;
}

} // namespace tamberline
