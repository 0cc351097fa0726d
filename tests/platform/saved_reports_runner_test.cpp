#include "platform/saved/saved_reports_runner.h"
#include "scanner/silent_event_source.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <thread>

namespace tamberline {
namespace {

class SavedReports : public testing::Test {
protected:
  SavedReportsRunner runner() const { return SavedReportsRunner(folder.path()); }

  TemporaryFolder folder;
};

TEST_F(SavedReports, StandForEachToolByTheirNames) {
  const struct {
    std::string fileName;
    std::string executable;
    std::vector<std::string> arguments;
  } table[] = {
      {"SPThunderboltDataType.json",
       "/usr/sbin/system_profiler",
       {"SPThunderboltDataType", "-json"}},
      {"SPUSBDataType.json", "/usr/sbin/system_profiler", {"SPUSBDataType", "-json"}},
      {"SPUSBHostDataType.json", "/usr/sbin/system_profiler", {"SPUSBHostDataType", "-json"}},
      {"SPPowerDataType.json", "/usr/sbin/system_profiler", {"SPPowerDataType", "-json"}},
      {"AppleHPMDevice.plist", "/usr/sbin/ioreg", {"-a", "-r", "-c", "AppleHPMDevice", "-l"}},
      {"AppleSmartBattery.plist", "/usr/sbin/ioreg", {"-a", "-r", "-c", "AppleSmartBattery", "-l"}},
      {"IODeviceTree.plist", "/usr/sbin/ioreg", {"-a", "-l", "-p", "IODeviceTree"}},
      {"IOUSBHostDevice.plist", "/usr/sbin/ioreg", {"-a", "-r", "-c", "IOUSBHostDevice", "-l"}},
      {"IOPMPowerSource.plist", "/usr/sbin/ioreg", {"-c", "IOPMPowerSource", "-r", "-a"}},
  };
  for (const auto& row : table) {
    folder.save(row.fileName, "content of " + row.fileName);
  }
  SavedReportsRunner runner = this->runner();
  for (const auto& row : table) {
    EXPECT_EQ(runner.run(row.executable, row.arguments).standardOutput,
              "content of " + row.fileName);
  }
}

TEST_F(SavedReports, AreHandedOnByteForByte) {
  const std::string bytes("\r\n\0\xff", 4);
  folder.save("SPUSBDataType.json", bytes);
  EXPECT_EQ(runner().run("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"}).standardOutput,
            bytes);
}

TEST_F(SavedReports, AreEmptyWhereAFileIsMissingOrNoFile) {
  std::filesystem::create_directories(folder.path() / "SPPowerDataType.json");
  SavedReportsRunner runner = this->runner();
  for (const std::string section : {"SPUSBDataType", "SPPowerDataType"}) {
    EXPECT_EQ(runner.run("/usr/sbin/system_profiler", {section, "-json"}).standardOutput, "");
  }
}

TEST_F(SavedReports, AreEmptyWhereAFileIsLargerThanAnyReport) {
  folder.save("SPUSBDataType.json", "");
  std::filesystem::resize_file(folder.path() / "SPUSBDataType.json", 1'000'000'000'000);
  const ToolOutput output = runner().run("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"});
  EXPECT_EQ(output.standardOutput, "");
  EXPECT_EQ(output.exitStatus, std::nullopt);
}

/// A thread that puts a pipe nobody writes to and a file in each other's place until it goes.
class Exchange {
public:
  explicit Exchange(const std::filesystem::path& folder)
      : thread_([this, folder] {
          while (!isOver_) {
            std::filesystem::rename(folder / "pipe", folder / "other");
            std::filesystem::rename(folder / "SPUSBDataType.json", folder / "pipe");
            std::filesystem::rename(folder / "other", folder / "SPUSBDataType.json");
          }
        }) {}
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;
  ~Exchange() {
    isOver_ = true;
    thread_.join();
  }

private:
  std::atomic<bool> isOver_ = false;
  std::thread thread_;
};

TEST_F(SavedReports, DoNotWaitForAPipeThatTakesTheirPlace) {
  folder.save("SPUSBDataType.json", "content");
  ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
  const Exchange exchange(folder.path());
  SavedReportsRunner runner = this->runner();
  for (int run = 0; run < 5'000; ++run) {
    const std::string output =
        runner.run("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"}).standardOutput;
    EXPECT_TRUE(output.empty() || output == "content") << output;
  }
}

TEST_F(SavedReports, KnowNoOtherCommandLines) {
  folder.save("SPUSBDataType.json", "content");
  SavedReportsRunner runner = this->runner();
  EXPECT_EQ(runner.run("/usr/sbin/system_profiler", {"SPUSBDataType"}).exitStatus, std::nullopt);
  EXPECT_EQ(runner.run("/usr/sbin/system_profiler", {"../secret", "-json"}).standardOutput, "");
  EXPECT_EQ(runner.run("/bin/cat", {"SPUSBDataType", "-json"}).standardOutput, "");
}

TEST_F(SavedReports, OfEveryReleaseAreAnsweredAlike) {
  const std::string emptySection = R"({"SPUSBDataType": []})";
  const std::shared_ptr<ToolRunner> tools = savedMachineTools(folder.path());
  const auto usbReport = [&] {
    return tools->run("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"}).standardOutput;
  };
  EXPECT_EQ(usbReport(), "");
  folder.save("SPUSBDataType.json", emptySection);
  EXPECT_EQ(usbReport(), emptySection);
  folder.save("SPUSBHostDataType.json",
              R"({"SPUSBHostDataType": [{"_name": "USB 2.0 Bus", "Driver": "x"}]})");
  EXPECT_EQ(usbReport(), R"({"SPUSBDataType":[{"_name":"USB20Bus","host_controller":"x"}]})");
  const std::string olderSection = R"({"SPUSBDataType": [{"_name": "USB31Bus"}]})";
  folder.save("SPUSBDataType.json", olderSection);
  EXPECT_EQ(usbReport(), olderSection);
}

TEST(SilentEventSource, TellsNothing) {
  SilentEventSource source;
  bool wasTold = false;
  source.start(
      {.registryChanged = [&] { wasTold = true; }, .powerChanged = [&] { wasTold = true; }});
  EXPECT_TRUE(source.isOnExternalPower());
  source.stop();
  EXPECT_FALSE(wasTold);
}

} // namespace
} // namespace tamberline
