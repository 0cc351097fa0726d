#include "platform/saved/folder_event_source.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

class FolderEvents : public testing::Test {
protected:
  void SetUp() override {
    fs::create_directories(folder);
    save("SPUSBDataType.json", "first");
  }

  void start() {
    source.start({.registryChanged = [this] { ++changes; }, .powerChanged = nullptr});
  }
  void save(const std::string& fileName, const std::string& content) const {
    std::ofstream(folder / fileName, std::ios::binary) << content;
  }

  /// Whether a change was reported; resets the flag.
  bool wasTold() {
    const bool wasTold = runEventsUntil([this] { return changes > 0; });
    QCoreApplication::processEvents();
    changes = 0;
    return wasTold;
  }

  /// Whether the following change is the only one reported: events come in order, and a new folder
  /// is one event.
  bool wasNothingToldBefore() {
    fs::create_directory(folder / "marker");
    return runEventsUntil([this] { return changes > 0; }) && changes == 1;
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};

  TemporaryFolder parent;
  fs::path folder = parent.path() / "reports";
  FolderEventSource source{folder};
  int changes = 0;
};

TEST_F(FolderEvents, ReportAChangedFile) {
  start();
  save("SPUSBDataType.json", "second");
  EXPECT_TRUE(wasTold());
  save("SPUSBDataType.json", "again!");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, ReportANewFileAndItsChanges) {
  start();
  save("SPPowerDataType.json", "first");
  EXPECT_TRUE(wasTold());
  save("SPPowerDataType.json", "second");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, ReportARemovedFile) {
  start();
  fs::remove(folder / "SPUSBDataType.json");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, ReportAReplacedFileAndChangesOfTheNewOne) {
  start();
  for (const std::string content : {"second", "third"}) {
    std::ofstream(parent.path() / "new") << content;
    fs::rename(parent.path() / "new", folder / "SPUSBDataType.json");
    EXPECT_TRUE(wasTold()) << content;
  }
  save("SPUSBDataType.json", "fourth");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, ReportAFolderThatDisappearsAndReappears) {
  start();
  fs::remove_all(folder);
  EXPECT_TRUE(wasTold());
  fs::create_directory(folder);
  EXPECT_TRUE(wasTold());
  save("SPUSBDataType.json", "second");
  EXPECT_TRUE(wasTold());
  save("SPUSBDataType.json", "third");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, ReportAReplacedFolderAndChangesOfTheNewOne) {
  start();
  fs::create_directory(parent.path() / "new");
  std::ofstream(parent.path() / "new" / "SPPowerDataType.json") << "first";
  fs::rename(folder, parent.path() / "old");
  fs::rename(parent.path() / "new", folder);
  EXPECT_TRUE(wasTold());
  save("SPPowerDataType.json", "second");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, ReportAFolderThatAppearsWithItsParents) {
  fs::remove_all(parent.path());
  start();
  fs::create_directories(folder);
  EXPECT_TRUE(wasTold());
  save("SPUSBDataType.json", "first");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, IgnoreOtherFolders) {
  start();
  parent.save("beside", "first");
  parent.save("beside", "second");
  fs::create_directory(parent.path() / "reports beside");
  EXPECT_TRUE(wasNothingToldBefore());
}

TEST_F(FolderEvents, IgnoreWhatLinksLeadTo) {
  parent.save("beside", "first");
  fs::create_symlink(parent.path() / "beside", folder / "SPPowerDataType.json");
  start();
  parent.save("beside", "second");
  EXPECT_TRUE(wasNothingToldBefore());
}

TEST_F(FolderEvents, DoNotReportEarlierChanges) {
  save("SPUSBDataType.json", "second");
  start();
  EXPECT_TRUE(wasNothingToldBefore());
}

TEST_F(FolderEvents, ReportNothingWhileStopped) {
  start();
  save("SPUSBDataType.json", "second");
  source.stop();
  save("SPUSBDataType.json", "third");
  start();
  EXPECT_TRUE(wasNothingToldBefore());
}

TEST_F(FolderEvents, MayBeStoppedTwiceAndWithoutAStart) {
  source.stop();
  start();
  source.stop();
  source.stop();
  start();
  save("SPUSBDataType.json", "second");
  EXPECT_TRUE(wasTold());
}

TEST_F(FolderEvents, MayBeStoppedByTheirHandler) {
  source.start({.registryChanged =
                    [this] {
                      ++changes;
                      source.stop();
                    },
                .powerChanged = nullptr});
  save("SPUSBDataType.json", "second");
  EXPECT_TRUE(wasTold());
  start();
  EXPECT_TRUE(wasNothingToldBefore());
}

TEST_F(FolderEvents, AreThoseOfAMachineOnExternalPower) {
  EXPECT_TRUE(source.isOnExternalPower());
}

} // namespace
} // namespace tamberline
