#include "app/qt_notices.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

QStringList heard;

void hear(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
  heard.append(message);
}

/// Records the messages that are not suppressed. Qt's own handler is restored after each test.
class QtNotices : public testing::Test {
protected:
  QtNotices() : usual_(qInstallMessageHandler(hear)) { heard.clear(); }
  ~QtNotices() override { qInstallMessageHandler(usual_); }

private:
  QtMessageHandler usual_;
};

void sayEverything() {
  qWarning("Detected locale \"C\" with character encoding \"ANSI_X3.4-1968\", which is not UTF-8.\n"
           "Qt depends on a UTF-8 locale, and has switched to \"C.UTF-8\" instead.");
  qWarning("Detected locale \"C\" with character encoding \"ANSI_X3.4-1968\", which is not UTF-8.\n"
           "Qt depends on a UTF-8 locale, but has failed to switch to one.");
  qWarning("This plugin does not support raise()");
  qWarning("QStandardPaths: XDG_RUNTIME_DIR not set, defaulting to '/tmp/runtime-person'");
  qWarning("Something else");
}

QStringList firstWords() {
  QStringList words;
  for (const QString& message : heard) {
    words.append(message.section(QLatin1Char(' '), 0, 0));
  }
  return words;
}

TEST_F(QtNotices, AboutAReplacedEncodingAreSuppressed) {
  suppressEncodingNotice();
  sayEverything();
  EXPECT_EQ(firstWords(), QStringList({"Detected", "This", "QStandardPaths:", "Something"}));
  EXPECT_TRUE(heard.front().contains(QLatin1String("failed to switch")))
      << heard.front().toStdString();
}

TEST_F(QtNotices, AboutAMissingDesktopAreSuppressed) {
  suppressDesktopNotices();
  sayEverything();
  EXPECT_EQ(firstWords(), QStringList({"Detected", "Detected", "Something"}));
}

TEST_F(QtNotices, OfBothKindsAreSuppressed) {
  suppressEncodingNotice();
  suppressDesktopNotices();
  sayEverything();
  EXPECT_EQ(firstWords(), QStringList({"Detected", "Something"}));
}

} // namespace
} // namespace tamberline
