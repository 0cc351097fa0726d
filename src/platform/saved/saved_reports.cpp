#include "platform/saved/saved_reports.h"

#include "platform/macos/mac_machine.h"
#include "platform/posix/descriptor.h"
#include "platform/tool_runner.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

bool isRegularFile(const Descriptor& file) {
  struct stat status = {};
  return fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode);
}

FileContent failedWith(std::string reason) {
  return {std::nullopt, std::move(reason)};
}

FileContent contentOf(const Descriptor& file, std::size_t maxBytes) {
  std::string content;
  std::array<char, 65536> buffer{};
  while (content.size() <= maxBytes) {
    const ssize_t count = read(file.number(), buffer.data(), buffer.size());
    if (count > 0) {
      content.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0) {
      return {std::move(content), {}};
    } else if (errno != EINTR) {
      return failedWith(std::strerror(errno));
    }
  }
  constexpr std::size_t megabyte = 1'000'000;
  return failedWith("larger than " + std::to_string(maxBytes / megabyte) + " MB");
}

} // namespace

FileContent readRegularFile(const std::filesystem::path& path, std::size_t maxBytes, Links links) {
  // Opening does not block on a pipe without a writer and acquires no controlling terminal.
  const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  const Descriptor file(open(path.c_str(), links == Links::follow ? flags : flags | O_NOFOLLOW));
  if (!file.isOpen()) {
    return failedWith(std::strerror(errno));
  }
  return isRegularFile(file) ? contentOf(file, maxBytes) : failedWith("not a regular file");
}

const char* savedFileName(Question question) {
  switch (question) {
  case Question::thunderbolt:
    return "SPThunderboltDataType.json";
  case Question::usb:
    return "SPUSBDataType.json";
  case Question::power:
    return "SPPowerDataType.json";
  case Question::newerUsb:
    return "SPUSBHostDataType.json";
  case Question::portControllers:
    return "AppleHPMDevice.plist";
  case Question::portPower:
    return "AppleSmartBattery.plist";
  case Question::deviceTree:
    return "IODeviceTree.plist";
  case Question::usbHostDevices:
    return "IOUSBHostDevice.plist";
  case Question::powerSource:
    return "IOPMPowerSource.plist";
  }
  return "";
}

SavedReports::SavedReports(std::filesystem::path folder) : folder_(std::move(folder)) {}

std::string SavedReports::answer(Question question) {
  return readRegularFile(folder_ / savedFileName(question), maxToolOutput, Links::refuse)
      .bytes.value_or("");
}

std::shared_ptr<MachineSource> savedMachine(const std::filesystem::path& folder) {
  return std::make_shared<MacMachine>(std::make_shared<SavedReports>(folder),
                                      [] { return std::vector<Mount>(); });
}

} // namespace tamberline
