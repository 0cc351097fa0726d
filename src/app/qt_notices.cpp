#include "app/qt_notices.h"

#include <QString>
#include <QtGlobal>

namespace tamberline {
namespace {

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): the handlers are plain functions
QtMessageHandler handlerAfterEncodingFilter = nullptr;
QtMessageHandler handlerAfterDesktopFilter = nullptr;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

void filterEncodingNotice(QtMsgType type, const QMessageLogContext& context,
                          const QString& message) {
  const bool isNotice = message.startsWith(QLatin1String("Detected locale")) &&
                        message.contains(QLatin1String("has switched to"));
  if (!isNotice) {
    handlerAfterEncodingFilter(type, context, message);
  }
}

void filterDesktopNotices(QtMsgType type, const QMessageLogContext& context,
                          const QString& message) {
  const bool isNotice = message.startsWith(QLatin1String("This plugin does not support")) ||
                        message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"));
  if (!isNotice) {
    handlerAfterDesktopFilter(type, context, message);
  }
}

} // namespace

void suppressEncodingNotice() {
  handlerAfterEncodingFilter = qInstallMessageHandler(filterEncodingNotice);
}

void suppressDesktopNotices() {
  handlerAfterDesktopFilter = qInstallMessageHandler(filterDesktopNotices);
}

} // namespace tamberline
