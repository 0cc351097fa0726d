#include "app/qt_notices.h"

#include <QString>
#include <QtGlobal>

namespace tamberline {
namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): the handlers are plain functions
QtMessageHandler besidesEncoding = nullptr;
QtMessageHandler besidesDesktop = nullptr;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

void handleBesidesEncoding(QtMsgType type, const QMessageLogContext& context,
                           const QString& message) {
  const bool isNotice = message.startsWith(QLatin1String("Detected locale")) &&
                        message.contains(QLatin1String("has switched to"));
  if (!isNotice) {
    besidesEncoding(type, context, message);
  }
}

void handleBesidesDesktop(QtMsgType type, const QMessageLogContext& context,
                          const QString& message) {
  const bool isNotice = message.startsWith(QLatin1String("This plugin does not support")) ||
                        message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"));
  if (!isNotice) {
    besidesDesktop(type, context, message);
  }
}

} // namespace

void leaveOutEncodingNotice() {
  besidesEncoding = qInstallMessageHandler(handleBesidesEncoding);
}

void leaveOutDesktopNotices() {
  besidesDesktop = qInstallMessageHandler(handleBesidesDesktop);
}

} // namespace tamberline
