#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace tamberline {
namespace {

/// The application as a process, while it writes a file. Writing takes far longer than a signal
/// takes to arrive.
class EndDuringTest : public testing::Test {
protected:
  void SetUp() override {
    app.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    app.start(APP_UNDER_TEST, {QString::fromStdString(folder.path().string()), "2000"});
    ASSERT_TRUE(runEventsUntil([this] { return hasWrittenSomething() || hasEnded(); }));
    ASSERT_FALSE(hasEnded()) << "there must be 2.2 GB of free space";
  }

  void TearDown() override {
    app.kill();
    app.waitForFinished();
  }

  bool hasWrittenSomething() const {
    std::error_code error;
    const std::uintmax_t size =
        std::filesystem::file_size(folder.path() / ".tamberline_benchmark.tmp", error);
    return !error && size > 0;
  }

  bool hasEnded() const { return app.state() == QProcess::NotRunning; }

  void send(int signal) {
    if (!hasEnded()) {
      kill(static_cast<pid_t>(app.processId()), signal);
    }
  }

  void expectToEndInOrder() {
    EXPECT_TRUE(runEventsUntil([this] { return hasEnded(); }));
    EXPECT_EQ(app.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(app.exitCode(), 0);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  }

  TemporaryFolder folder;
  QProcess app;
};

TEST_F(EndDuringTest, RemovesTheFileWhenTheUserQuits) {
  app.write("quit\n");
  expectToEndInOrder();
}

TEST_F(EndDuringTest, RemovesTheFileWhenTheOnlyWindowIsClosed) {
  app.write("close\n");
  expectToEndInOrder();
}

TEST_F(EndDuringTest, RemovesTheFileWhenTheSystemAsksTheProgramToEnd) {
  send(SIGTERM);
  expectToEndInOrder();
}

TEST_F(EndDuringTest, RemovesTheFileOnAnInterruptFromTheKeyboard) {
  send(SIGINT);
  expectToEndInOrder();
}

TEST_F(EndDuringTest, RemovesTheFileWhenItsTerminalCloses) {
  send(SIGHUP);
  expectToEndInOrder();
}

TEST_F(EndDuringTest, RemovesTheFileHoweverOftenItIsAsked) {
  EXPECT_TRUE(runEventsUntil([this] {
    send(SIGTERM);
    send(SIGINT);
    return hasEnded();
  }));
  expectToEndInOrder();
}

} // namespace
} // namespace tamberline
