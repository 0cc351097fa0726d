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

/// What a USB device tells of itself in words, and the current that the kernel works out for it.
/// Empty and absent where it says nothing.
struct UsbTexts {
  std::string product = {};
  std::string manufacturer = {};
  std::string serialNumber = {};
  std::optional<std::int64_t> ratedMa = {};

  friend bool operator==(const UsbTexts&, const UsbTexts&) = default;
};

/// Reads them from a device's folder. The kernel gives these attributes only when it holds the
/// device's lock, which can take a minute: a hub is locked as long as something on one of its ports
/// is tried that never answers.
UsbTexts readUsbTexts(const std::filesystem::path& folder);

/// Keeps what devices tell of themselves, so that each is asked once, and asks on threads of its
/// own, so that one that does not answer delays nothing but itself. One caller at a time.
class UsbStringCache {
public:
  using Read = std::function<UsbTexts(const std::filesystem::path& folder)>;

  struct Device {
    /// Tells it from every other device that was ever there.
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

  /// By identity; a device that has not answered yet is missing. Forgets those that are not named.
  std::map<std::string, UsbTexts> textsOf(const std::vector<Device>& devices);

  /// Waits until a device has answered; false when that takes longer. For tests.
  bool waitFor(const std::string& identity, std::chrono::milliseconds patience) const;

private:
  struct State;

  std::chrono::milliseconds patience_;
  std::shared_ptr<State> state_; // a thread that waits for a device keeps it
};

} // namespace tamberline::sysfs
