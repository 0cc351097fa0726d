#include "platform/posix/termination_signals.h"
#include "support/event_loop.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <thread>

namespace tamberline {
namespace {

void (*treatmentOf(int signal))(int) {
  struct sigaction action = {};
  sigaction(signal, nullptr, &action);
  return action.sa_handler;
}

class TerminationSignalsTest : public testing::Test {
protected:
  void TearDown() override {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
      std::signal(signal, SIG_DFL);
    }
  }

  /// Whether all signals so far are reported once.
  bool isTold() {
    return runEventsUntil([this] { return askedCount > 0; });
  }

  int argc = 1;
  std::array<char, 5> name = {"test"};
  std::array<char*, 2> argv = {name.data(), nullptr};
  QCoreApplication application{argc, argv.data()};
  int askedCount = 0;
};

TEST_F(TerminationSignalsTest, ReportEachTerminationSignal) {
  const TerminationSignals termination([this] { ++askedCount; });
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    SCOPED_TRACE(signal);
    askedCount = 0;
    std::raise(signal);
    EXPECT_EQ(askedCount, 0); // not inside the signal handler
    EXPECT_TRUE(isTold());
  }
}

TEST_F(TerminationSignalsTest, ReportOnTheMainThread) {
  std::thread::id toldOn;
  const TerminationSignals termination([&] {
    toldOn = std::this_thread::get_id();
    ++askedCount;
  });
  std::thread([] { std::raise(SIGTERM); }).join();
  EXPECT_TRUE(isTold());
  EXPECT_EQ(toldOn, std::this_thread::get_id());
}

TEST_F(TerminationSignalsTest, ReportSeveralSignalsAtOnceOnlyOnce) {
  const TerminationSignals termination([this] { ++askedCount; });
  for (int count = 0; count < 50; ++count) {
    std::raise(SIGTERM);
  }
  EXPECT_TRUE(isTold());
  QCoreApplication::processEvents();
  EXPECT_EQ(askedCount, 1);
}

TEST_F(TerminationSignalsTest, KeepIgnoredSignalsIgnored) {
  std::signal(SIGHUP, SIG_IGN); // as for a program that outlives its terminal
  {
    const TerminationSignals termination([this] { ++askedCount; });
    EXPECT_EQ(treatmentOf(SIGHUP), SIG_IGN);
  }
  EXPECT_EQ(treatmentOf(SIGHUP), SIG_IGN);
}

TEST_F(TerminationSignalsTest, RestoreTheFormerHandlers) {
  {
    const TerminationSignals termination([] {});
  }
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    EXPECT_EQ(treatmentOf(signal), SIG_DFL);
  }
}

TEST_F(TerminationSignalsTest, IgnoreSignalsWhileTheProgramEnds) {
  {
    const TerminationSignals termination([this] { ++askedCount; });
    std::raise(SIGTERM);
    EXPECT_TRUE(isTold());
  }
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    std::raise(signal); // this would end the test
    EXPECT_EQ(treatmentOf(signal), SIG_IGN);
  }
}

} // namespace
} // namespace tamberline
