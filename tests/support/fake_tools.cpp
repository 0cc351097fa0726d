#include "support/fake_tools.h"

#include "base/never_destroyed.h"

#include <utility>

namespace tamberline {
namespace {

std::string joinedWords(const std::string& executable, const std::vector<std::string>& arguments) {
  std::string line = executable;
  for (const std::string& argument : arguments) {
    line += " " + argument;
  }
  return line;
}

std::string fileNameFor(const std::string& commandLine) {
  static const NeverDestroyed<std::map<std::string, std::string>> names({
      {"/usr/sbin/system_profiler SPThunderboltDataType -json", "SPThunderboltDataType.json"},
      {"/usr/sbin/system_profiler SPUSBDataType -json", "SPUSBDataType.json"},
      {"/usr/sbin/system_profiler SPUSBHostDataType -json", "SPUSBHostDataType.json"},
      {"/usr/sbin/system_profiler SPPowerDataType -json", "SPPowerDataType.json"},
      {"/usr/sbin/ioreg -a -r -c AppleHPMDevice -l", "AppleHPMDevice.plist"},
      {"/usr/sbin/ioreg -a -r -c AppleSmartBattery -l", "AppleSmartBattery.plist"},
      {"/usr/sbin/ioreg -a -l -p IODeviceTree", "IODeviceTree.plist"},
      {"/usr/sbin/ioreg -a -r -c IOUSBHostDevice -l", "IOUSBHostDevice.plist"},
      {"/usr/sbin/ioreg -c IOPMPowerSource -r -a", "IOPMPowerSource.plist"},
  });
  const auto found = (*names).find(commandLine);
  return found == (*names).end() ? "unknown command line" : found->second;
}

} // namespace

ToolOutput FakeTools::run(const std::string& executable,
                          const std::vector<std::string>& arguments) {
  const std::lock_guard lock(mutex_);
  const std::string commandLine = joinedWords(executable, arguments);
  const std::string fileName = fileNameFor(commandLine);
  commandLines_.push_back(commandLine);
  ++runCounts_[fileName];
  std::deque<std::string>& forOnce = answersForOnce_[fileName];
  if (forOnce.empty()) {
    return {answers_[fileName], 0};
  }
  std::string output = std::move(forOnce.front());
  forOnce.pop_front();
  return {std::move(output), 0};
}

ToolOutput FakeTools::runWithErrors(const std::string& executable,
                                    const std::vector<std::string>& arguments) {
  return run(executable, arguments);
}

void FakeTools::answer(const std::string& fileName, std::string output) {
  const std::lock_guard lock(mutex_);
  answers_[fileName] = std::move(output);
}

void FakeTools::answerOnce(const std::string& fileName, std::string output) {
  const std::lock_guard lock(mutex_);
  answersForOnce_[fileName].push_back(std::move(output));
}

void FakeTools::forgetCommandLines() {
  const std::lock_guard lock(mutex_);
  commandLines_.clear();
}

std::vector<std::string> FakeTools::commandLines() const {
  const std::lock_guard lock(mutex_);
  return commandLines_;
}

std::size_t FakeTools::runCount(const std::string& fileName) const {
  const std::lock_guard lock(mutex_);
  const auto found = runCounts_.find(fileName);
  return found == runCounts_.end() ? 0 : found->second;
}

std::string savedFileNameFor(const std::string& executable,
                             const std::vector<std::string>& arguments) {
  return fileNameFor(joinedWords(executable, arguments));
}

void answerWithEmptyReports(FakeTools& tools) {
  for (const std::string section : {"SPThunderboltDataType", "SPUSBDataType", "SPPowerDataType"}) {
    tools.answer(section + ".json", "{\"" + section + "\": []}");
  }
}

} // namespace tamberline
