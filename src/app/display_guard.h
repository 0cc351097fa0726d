#pragma once

#include <QMutex>
#include <QString>
#include <QStringList>

namespace tamberline {

/// Why there is no display, for the user who started the program. `waylandDisplay` and `x11Display`
/// come from the environment; empty if not set.
QString displayFailureText(const QString& program, const QString& waylandDisplay,
                           const QString& x11Display);

/// Lives while the application object is constructed. Qt aborts the program if it cannot open a
/// display. With a guard, one sentence says so, and the program ends with status 1. Qt's other
/// messages are held back, and printed if all goes well. Only one at a time.
class DisplayGuard {
public:
  explicit DisplayGuard(QString program);
  DisplayGuard(const DisplayGuard&) = delete;
  DisplayGuard& operator=(const DisplayGuard&) = delete;
  ~DisplayGuard();

private:
  struct Message {
    QtMsgType type;
    QString text;
  };

  static QtMessageHandler redirectMessagesTo(DisplayGuard* guard);
  static void take(QtMsgType type, const QMessageLogContext& context, const QString& text);
  [[noreturn]] void fail() const;

  // The handler is a plain function.
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  static DisplayGuard* current;

  QMutex mutex_;
  QString program_;
  QList<Message> heldBackMessages_;
  QtMessageHandler formerHandler_;
};

} // namespace tamberline
