#pragma once

#include <filesystem>
#include <memory>
#include <string>

using UMockdevTestbed = struct _UMockdevTestbed;

namespace tamberline {

/// A USB stick in a socket, described as in a recording. The kernel numbers devices, so one that is
/// plugged in again has another number.
std::string usbStickAt(const std::string& socket, const std::string& name = "Marble Stick",
                       int deviceNumber = 40);

/// Replaces the machine with one of the recordings in this folder, for this process and for
/// programs that it starts, during its lifetime. Needs umockdev's preloaded library.
class MockedMachine {
public:
  /// An empty name is a machine without any devices.
  explicit MockedMachine(const std::string& name);
  MockedMachine(const MockedMachine&) = delete;
  MockedMachine& operator=(const MockedMachine&) = delete;
  ~MockedMachine();

  static std::filesystem::path folder();

  /// Plugs in devices, described as in a recording; each sends an event.
  void attach(const std::string& recording);
  /// Unplugs a device, which sends an event.
  void detach(const std::string& path);
  void setAttribute(const std::string& path, const std::string& name, const std::string& value);
  /// Sends the event of a device that stays.
  void tellOfChange(const std::string& path);

private:
  struct Release {
    void operator()(UMockdevTestbed* testbed) const;
  };
  std::unique_ptr<UMockdevTestbed, Release> testbed_;
};

} // namespace tamberline
