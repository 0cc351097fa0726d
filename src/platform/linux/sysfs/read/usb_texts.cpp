#include "platform/linux/sysfs/read/usb_texts.h"

#include "platform/linux/sysfs/read/attribute_files.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>
#include <utility>

namespace tamberline::sysfs {

struct UsbStringCache::State {
  Read read;
  mutable std::mutex mutex; // guards the members below
  mutable std::condition_variable answered;
  std::map<std::string, UsbTexts> known;
  std::set<std::string> asked; // not answered yet

  void ask(const std::vector<Device>& devices) {
    for (const Device& device : devices) {
      UsbTexts texts = read(device.folder);
      const std::scoped_lock lock(mutex);
      asked.erase(device.identity);
      known.insert_or_assign(device.identity, std::move(texts));
      answered.notify_all();
    }
  }
};

UsbTexts readUsbTexts(const std::filesystem::path& folder) {
  return {
      .product = readTextOrNothing(folder / "product"),
      .manufacturer = readTextOrNothing(folder / "manufacturer"),
      .serialNumber = readTextOrNothing(folder / "serial"),
      .ratedMa = readNumber(folder / "bMaxPower"),
  };
}

UsbStringCache::UsbStringCache(std::chrono::milliseconds patience, Read read)
    : patience_(patience), state_(std::make_shared<State>()) {
  state_->read = std::move(read);
}

std::map<std::string, UsbTexts> UsbStringCache::textsOf(const std::vector<Device>& devices) {
  std::set<std::string> present;
  std::map<int, std::vector<Device>> newByBus;
  std::unique_lock lock(state_->mutex);
  for (const Device& device : devices) {
    present.insert(device.identity);
    if (!state_->known.contains(device.identity) && state_->asked.insert(device.identity).second) {
      newByBus[device.bus].push_back(device);
    }
  }
  std::erase_if(state_->known, [&](const auto& entry) { return !present.contains(entry.first); });
  std::set<std::string> awaited;
  for (auto& [bus, onBus] : newByBus) {
    // Only hubs can stay locked for long. Asking them last keeps other devices on the bus from
    // waiting.
    std::stable_partition(onBus.begin(), onBus.end(),
                          [](const Device& device) { return !device.isHub; });
    for (const Device& device : onBus) {
      awaited.insert(device.identity);
    }
    std::thread([state = state_, asked = std::move(onBus)] { state->ask(asked); }).detach();
  }
  state_->answered.wait_for(lock, patience_, [&] {
    return std::none_of(awaited.begin(), awaited.end(), [&](const std::string& identity) {
      return state_->asked.contains(identity);
    });
  });
  return state_->known;
}

bool UsbStringCache::waitFor(const std::string& identity,
                             std::chrono::milliseconds patience) const {
  std::unique_lock lock(state_->mutex);
  return state_->answered.wait_for(lock, patience,
                                   [&] { return state_->known.contains(identity); });
}

} // namespace tamberline::sysfs
