#include "app/single_instance.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QSysInfo>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace tamberline {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class OneRun : public testing::Test {
protected:
  std::unique_ptr<SingleInstance> start(std::chrono::milliseconds patience = 1s) {
    return std::make_unique<SingleInstance>(
        QString::fromStdString(folder.path().string()), [this] { ++raises; },
        SingleInstance::Wish::raise, patience);
  }
  QString socketPath() const {
    return QString::fromStdString((folder.path() / "tamberline.socket").string());
  }

  /// A socket file on which no process listens any more.
  void leaveDeadSocket() const {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = (folder.path() / "tamberline.socket").string();
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
  }

  TemporaryFolder folder;
  int raises = 0;
};

TEST_F(OneRun, TheFirstStartOwnsIt) {
  const auto first = start();
  EXPECT_TRUE(first->isFirst());
  EXPECT_EQ(raises, 0);
}

TEST_F(OneRun, ASecondStartByTheSessionDoesNotRaiseTheFirst) {
  const auto first = start();
  bool isSecondFirst = true;
  std::thread([&] {
    const SingleInstance second(
        QString::fromStdString(folder.path().string()), [] {}, SingleInstance::Wish::nothing);
    isSecondFirst = second.isFirst();
  }).join();
  QCoreApplication::processEvents();
  EXPECT_FALSE(isSecondFirst);
  EXPECT_EQ(raises, 0);
}

TEST_F(OneRun, ASecondStartRaisesTheFirst) {
  const auto first = start();
  std::atomic<bool> isSecondFirst = true;
  std::thread second([&] { isSecondFirst = start(1min)->isFirst(); });
  EXPECT_TRUE(runEventsUntil([&] { return raises == 1; }));
  second.join();
  EXPECT_FALSE(isSecondFirst);
}

TEST_F(OneRun, EveryFurtherStartRaisesTheFirst) {
  const auto first = start();
  for (int expected = 1; expected <= 3; ++expected) {
    std::thread second([&] { start(1min); });
    EXPECT_TRUE(runEventsUntil([&] { return raises == expected; }));
    second.join();
  }
}

TEST_F(OneRun, TheNextStartIsFirstAfterTheFirstHasEnded) {
  auto first = start();
  first.reset();
  EXPECT_TRUE(fs::is_empty(folder.path()));
  EXPECT_TRUE(start()->isFirst());
}

TEST_F(OneRun, ASecondStartDoesNotWaitForAFrozenFirst) {
  const auto first = start();
  QElapsedTimer elapsed;
  elapsed.start();
  EXPECT_FALSE(start(50ms)->isFirst());
  EXPECT_LT(elapsed.elapsed(), 30'000);
  EXPECT_EQ(raises, 0);
  EXPECT_TRUE(runEventsUntil([&] { return raises == 1; })) << "it thaws";
}

TEST_F(OneRun, AnUnreachableFirstKeepsTheLock) {
  const auto first = start();
  fs::remove(folder.path() / "tamberline.socket");
  EXPECT_FALSE(start(50ms)->isFirst());
}

TEST_F(OneRun, FilesLeftByACrashAreIgnored) {
  struct Row {
    std::string description;
    std::string lockContent;
  };
  const std::string host = QSysInfo::machineHostName().toStdString();
  for (const Row& row : {Row{"a process that has ended", "999999999\ntamberline\n" + host + "\n"},
                         Row{"a host name of before", "999999999\ntamberline\nold " + host + "\n"},
                         Row{"an empty lock file", ""}, Row{"no lock file at all", "none"}}) {
    SCOPED_TRACE(row.description);
    leaveDeadSocket();
    if (row.lockContent != "none") {
      folder.save("tamberline.lock", row.lockContent);
    }
    const auto first = start(50ms);
    EXPECT_TRUE(first->isFirst());
    raises = 0;
    EXPECT_FALSE(start(50ms)->isFirst());
    EXPECT_TRUE(runEventsUntil([&] { return raises == 1; }));
  }
}

TEST_F(OneRun, WhatIsSentIsNotRead) {
  const auto first = start();
  QLocalSocket socket;
  socket.connectToServer(socketPath());
  ASSERT_TRUE(socket.waitForConnected());
  socket.write(QByteArray(1 << 20, '\xff'));
  socket.flush();
  EXPECT_TRUE(runEventsUntil([&] { return raises == 1; }));
  EXPECT_TRUE(runEventsUntil([&] { return socket.state() == QLocalSocket::UnconnectedState; }));
  EXPECT_FALSE(start(50ms)->isFirst());
  EXPECT_TRUE(runEventsUntil([&] { return raises == 2; }));
}

TEST_F(OneRun, WithoutAFolderEveryStartIsFirstAndWritesNothing) {
  const QDir here;
  const QStringList before = here.entryList(QDir::AllEntries | QDir::Hidden);
  const SingleInstance first(QString(), [] {});
  const SingleInstance second(QString(), [] {});
  EXPECT_TRUE(first.isFirst());
  EXPECT_TRUE(second.isFirst());
  EXPECT_EQ(here.entryList(QDir::AllEntries | QDir::Hidden), before);
}

TEST_F(OneRun, OnlyTheSameUserCanUseTheSocket) {
  const auto first = start();
  const fs::perms permissions = fs::status(folder.path() / "tamberline.socket").permissions();
  EXPECT_EQ(permissions & (fs::perms::group_all | fs::perms::others_all), fs::perms::none);
}

TEST_F(OneRun, EveryStartRunsIfThePathOfTheLockIsTaken) {
  const fs::path lock = folder.path() / "tamberline.lock";
  const struct {
    const char* description;
    std::function<void()> put;
  } rows[] = {
      {"a folder", [&] { fs::create_directory(lock); }},
      {"a link to itself", [&] { fs::create_symlink(lock, lock); }},
      {"a link to nothing", [&] { fs::create_symlink(folder.path() / "nothing", lock); }},
      {"a pipe", [&] { ASSERT_EQ(mkfifo(lock.c_str(), 0600), 0); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    row.put();
    EXPECT_TRUE(start(50ms)->isFirst());
    EXPECT_TRUE(start(50ms)->isFirst());
    EXPECT_TRUE(fs::exists(fs::symlink_status(lock)));
    fs::remove(lock);
  }
}

TEST_F(OneRun, EveryStartRunsIfLockingIsImpossible) {
  fs::remove_all(folder.path());
  EXPECT_TRUE(start()->isFirst());
  EXPECT_TRUE(start()->isFirst());
}

} // namespace
} // namespace tamberline
