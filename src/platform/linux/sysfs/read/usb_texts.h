#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {

/// The texts that a USB device reports, and the current that the kernel computes for it. They are
/// empty or absent if the device does not report them.
struct UsbTexts {
  std::string product = {};
  std::string manufacturer = {};
  std::string serialNumber = {};
  std::optional<std::int64_t> ratedMa = {};

  friend bool operator==(const UsbTexts&, const UsbTexts&) = default;
};

/// Reads the texts from a device's folder. The kernel locks the device while it returns these
/// attributes, and getting the lock can take a minute: a hub is locked while the kernel tries a
/// device on one of its ports that never answers.
UsbTexts readUsbTexts(const std::filesystem::path& folder);

/// Caches the texts of USB devices, so that each device is asked once. Asks on separate threads, so
/// that a device that does not answer does not block the caller. One caller at a time.
class UsbStringCache {
public:
  using Read = std::function<UsbTexts(const std::filesystem::path& folder)>;

  struct Device {
    /// Distinguishes the device from all others, including those unplugged earlier.
    std::string identity;
    std::filesystem::path folder;
    int bus = 0;
    bool isHub = false;
  };

  /// How long `textsOf` waits for devices that it has not asked before.
  static constexpr std::chrono::milliseconds defaultTimeout{300};

  explicit UsbStringCache(std::chrono::milliseconds patience = defaultTimeout,
                          Read read = readUsbTexts);
  UsbStringCache(const UsbStringCache&) = delete;
  UsbStringCache& operator=(const UsbStringCache&) = delete;
  /// Does not wait for a device that is still being asked.
  ~UsbStringCache() = default;

  /// Texts by identity; devices that have not answered yet are missing. Removes devices that are
  /// not in `devices` from the cache.
  std::map<std::string, UsbTexts> textsOf(const std::vector<Device>& devices);

  /// Waits until a device has answered; false after a timeout. For tests.
  bool waitFor(const std::string& identity, std::chrono::milliseconds patience) const;

private:
  struct State;

  std::chrono::milliseconds patience_;
  std::shared_ptr<State> state_; // shared with threads that wait for a device
};

} // namespace tamberline::sysfs
