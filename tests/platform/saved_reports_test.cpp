#include "platform/saved/saved_reports.h"
#include "scanner/port_event_source.h"
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

class SavedReportsTest : public testing::Test {
protected:
  std::string answer(Question question) const {
    return SavedReports(folder.path()).answer(question);
  }

  TemporaryFolder folder;
};

TEST_F(SavedReportsTest, HoldTheAnswersByTheirNames) {
  const struct {
    Question question;
    std::string fileName;
  } rows[] = {
      {Question::thunderbolt, "SPThunderboltDataType.json"},
      {Question::usb, "SPUSBDataType.json"},
      {Question::power, "SPPowerDataType.json"},
      {Question::newerUsb, "SPUSBHostDataType.json"},
      {Question::portControllers, "AppleHPMDevice.plist"},
      {Question::portPower, "AppleSmartBattery.plist"},
      {Question::deviceTree, "IODeviceTree.plist"},
      {Question::usbHostDevices, "IOUSBHostDevice.plist"},
      {Question::powerSource, "IOPMPowerSource.plist"},
  };
  for (const auto& row : rows) {
    folder.save(row.fileName, "content of " + row.fileName);
  }
  for (const auto& row : rows) {
    EXPECT_EQ(answer(row.question), "content of " + row.fileName);
  }
}

TEST_F(SavedReportsTest, AreHandedOnByteForByte) {
  const std::string bytes("\r\n\0\xff", 4);
  folder.save("SPUSBDataType.json", bytes);
  EXPECT_EQ(answer(Question::usb), bytes);
}

TEST_F(SavedReportsTest, AreEmptyWhereAFileIsMissingOrNoFile) {
  std::filesystem::create_directories(folder.path() / "SPPowerDataType.json");
  EXPECT_EQ(answer(Question::usb), "");
  EXPECT_EQ(answer(Question::power), "");
}

TEST_F(SavedReportsTest, AreEmptyWhereAFileIsALink) {
  folder.save("private", "content");
  std::filesystem::create_symlink("private", folder.path() / "SPUSBDataType.json");
  EXPECT_EQ(answer(Question::usb), "");
  EXPECT_EQ(readRegularFile(folder.path() / "SPUSBDataType.json", 100).bytes, "content")
      << "a path that the user names may be a link";
}

TEST_F(SavedReportsTest, AreFoundInAFolderThatIsNamedByALink) {
  folder.save("SPUSBDataType.json", "content");
  const std::filesystem::path link = folder.path() / "link";
  std::filesystem::create_directory_symlink(".", link);
  EXPECT_EQ(SavedReports(link).answer(Question::usb), "content");
}

TEST_F(SavedReportsTest, AreEmptyWhereAFileIsLargerThanAnyReport) {
  folder.save("SPUSBDataType.json", "");
  std::filesystem::resize_file(folder.path() / "SPUSBDataType.json", 1'000'000'000'000);
  EXPECT_EQ(answer(Question::usb), "");
}

TEST_F(SavedReportsTest, SayWhyAFileIsNotRead) {
  folder.save("file", "content");
  folder.save("large", std::string(1'000'001, ' '));
  const auto failure = [this](const std::string& name) {
    const FileContent content = readRegularFile(folder.path() / name, 1'000'000);
    EXPECT_EQ(content.bytes.has_value(), content.failure.empty());
    return content.failure;
  };
  EXPECT_EQ(failure("file"), "");
  EXPECT_EQ(failure("large"), "larger than 1 MB");
  EXPECT_EQ(failure("missing"), "No such file or directory");
  EXPECT_EQ(failure("."), "not a regular file");
}

/// A thread that keeps exchanging a pipe without a writer and a file, until it is destroyed.
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

TEST_F(SavedReportsTest, DoNotWaitForAPipeThatTakesTheirPlace) {
  folder.save("SPUSBDataType.json", "content");
  ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
  const Exchange exchange(folder.path());
  for (int run = 0; run < 5'000; ++run) {
    const std::string content = answer(Question::usb);
    EXPECT_TRUE(content.empty() || content == "content") << content;
  }
}

TEST_F(SavedReportsTest, OfEveryReleaseAreAnsweredAlike) {
  const std::string emptySection = R"({"SPUSBDataType": []})";
  const std::shared_ptr<MachineSource> machine = savedMachine(folder.path());
  EXPECT_EQ(machine->answer(Question::usb), "");
  folder.save("SPUSBDataType.json", emptySection);
  EXPECT_EQ(machine->answer(Question::usb), emptySection);
  folder.save("SPUSBHostDataType.json",
              R"({"SPUSBHostDataType": [{"_name": "USB 2.0 Bus", "Driver": "x"}]})");
  EXPECT_EQ(machine->answer(Question::usb),
            R"({"SPUSBDataType":[{"_name":"USB20Bus","host_controller":"x"}]})");
  const std::string olderSection = R"({"SPUSBDataType": [{"_name": "USB31Bus"}]})";
  folder.save("SPUSBDataType.json", olderSection);
  EXPECT_EQ(machine->answer(Question::usb), olderSection);
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
