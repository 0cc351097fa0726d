#include "app/display_guard.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tamberline {
namespace {

QString named(const char* variable, const QString& value) {
  return QLatin1String(variable) +
         (value.isEmpty() ? QStringLiteral(" is not set") : QStringLiteral(" is '%1'").arg(value));
}

} // namespace

QString displayFailureText(const QString& program, const QString& waylandDisplay,
                           const QString& x11Display) {
  QString facts =
      QStringLiteral("%1: no display can be opened (%2, %3)")
          .arg(program, named("WAYLAND_DISPLAY", waylandDisplay), named("DISPLAY", x11Display));
  if (waylandDisplay.isEmpty()) {
    return facts;
  }
  return facts + QStringLiteral("; Wayland needs Qt's plugin for it (package qt6-wayland)");
}

// The handler is a plain function.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
DisplayGuard* DisplayGuard::current = nullptr;

DisplayGuard::DisplayGuard(QString program)
    : program_(std::move(program)), formerHandler_(redirectMessagesTo(this)) {}

QtMessageHandler DisplayGuard::redirectMessagesTo(DisplayGuard* guard) {
  current = guard;
  return qInstallMessageHandler(take);
}

DisplayGuard::~DisplayGuard() {
  qInstallMessageHandler(formerHandler_);
  current = nullptr;
  for (const Message& message : heldBackMessages_) {
    qt_message_output(message.type, QMessageLogContext(), message.text);
  }
}

void DisplayGuard::take(QtMsgType type, const QMessageLogContext& /*context*/,
                        const QString& text) {
  const QMutexLocker lock(&current->mutex_); // Qt's threads write messages too
  if (type == QtFatalMsg) {
    current->fail();
  }
  current->heldBackMessages_.append({type, text});
}

/// Nothing that needs an orderly shutdown has been started yet. If the user chose the platform
/// explicitly, it failed for another reason, which Qt has already printed.
void DisplayGuard::fail() const {
  if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    for (const Message& message : heldBackMessages_) {
      std::fprintf(stderr, "%s\n", qUtf8Printable(message.text));
    }
  }
  const QString text = displayFailureText(program_, qEnvironmentVariable("WAYLAND_DISPLAY"),
                                          qEnvironmentVariable("DISPLAY"));
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
  std::_Exit(EXIT_FAILURE);
}

} // namespace tamberline
