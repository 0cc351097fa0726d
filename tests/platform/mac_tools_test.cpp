#include "platform/macos/mac_tools.h"
#include "support/fake_machine.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

/// Notes what is run, and prints the same for everything.
class NotingRunner final : public ToolRunner {
public:
  ToolOutput run(const std::string& executable,
                 const std::vector<std::string>& arguments) override {
    commandLine = executable;
    for (const std::string& argument : arguments) {
      commandLine += " " + argument;
    }
    return output;
  }
  ToolOutput runWithErrors(const std::string& /*executable*/,
                           const std::vector<std::string>& /*arguments*/) override {
    return {"with errors", 0};
  }

  std::string commandLine;
  ToolOutput output;
};

class MacToolsTest : public testing::Test {
protected:
  std::shared_ptr<NotingRunner> runner = std::make_shared<NotingRunner>();
  MacTools tools{runner};
};

TEST_F(MacToolsTest, RunOneCommandLineForEachQuestion) {
  const struct {
    Question question;
    const char* commandLine;
  } rows[] = {
      {Question::thunderbolt, "/usr/sbin/system_profiler SPThunderboltDataType -json"},
      {Question::usb, "/usr/sbin/system_profiler SPUSBDataType -json"},
      {Question::power, "/usr/sbin/system_profiler SPPowerDataType -json"},
      {Question::newerUsb, "/usr/sbin/system_profiler SPUSBHostDataType -json"},
      {Question::portControllers, "/usr/sbin/ioreg -a -r -c AppleHPMDevice -l"},
      {Question::portPower, "/usr/sbin/ioreg -a -r -c AppleSmartBattery -l"},
      {Question::deviceTree, "/usr/sbin/ioreg -a -l -p IODeviceTree"},
      {Question::usbHostDevices, "/usr/sbin/ioreg -a -r -c IOUSBHostDevice -l"},
      {Question::powerSource, "/usr/sbin/ioreg -c IOPMPowerSource -r -a"},
  };
  for (const auto& row : rows) {
    tools.answer(row.question);
    EXPECT_EQ(runner->commandLine, row.commandLine);
  }
}

TEST_F(MacToolsTest, AnswerWithWhateverIsPrintedWhateverTheStatus) {
  for (const std::optional<int> status :
       {std::optional(0), std::optional(3), std::optional<int>()}) {
    runner->output = {std::string("a\0b\n", 4), status};
    EXPECT_EQ(tools.answer(Question::usb), std::string("a\0b\n", 4));
  }
}

TEST_F(MacToolsTest, AnswerNothingWhereAToolIsMissing) {
  EXPECT_EQ(tools.answer(Question::usb), "");
}

} // namespace
} // namespace tamberline
