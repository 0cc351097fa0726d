#include "platform/linux/sysfs/read/power_delivery_reader.h"

#include "platform/linux/sysfs/read/attribute_files.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

/// More than the standard allows in one message.
constexpr std::size_t maxOffers = 16;

/// The names of the attributes that sources and sinks spell differently.
struct Spelling {
  const char* current;
  const char* power;
};

/// Folders have names such as "1:fixed_supply".
std::optional<PowerOfferKind> kindOf(std::string_view folderName) {
  static constexpr std::array<std::pair<std::string_view, PowerOfferKind>, 4> kinds = {
      {{":fixed_supply", PowerOfferKind::fixed},
       {":variable_supply", PowerOfferKind::variable},
       {":battery", PowerOfferKind::battery},
       {":programmable_supply", PowerOfferKind::programmable}}};
  for (const auto& [ending, kind] : kinds) {
    if (folderName.ends_with(ending)) {
      return kind;
    }
  }
  return std::nullopt;
}

/// A programmable range has its maximum current in both spellings, depending on the kernel.
std::optional<std::int64_t> readCurrent(const fs::path& folder, const Spelling& spelling) {
  const auto current = readNumber(folder / spelling.current);
  return current ? current : readNumber(folder / "maximum_current");
}

bool isWithin(const std::optional<std::int64_t>& value, std::int64_t max) {
  return value && *value > 0 && *value <= max;
}

std::optional<PowerOffer> readOffer(const fs::path& folder, const Spelling& spelling) {
  const auto kind = kindOf(folder.filename().string());
  if (!kind) {
    return std::nullopt;
  }
  const bool isFixed = kind == PowerOfferKind::fixed;
  const auto min = readNumber(folder / (isFixed ? "voltage" : "minimum_voltage"));
  const auto max = isFixed ? min : readNumber(folder / "maximum_voltage");
  const bool isLimitedByWatts = kind == PowerOfferKind::battery;
  const auto limit =
      isLimitedByWatts ? readNumber(folder / spelling.power) : readCurrent(folder, spelling);
  constexpr std::int64_t maxCredibleMillivolts = 100'000;
  constexpr std::int64_t maxCredibleLimit = 10'000'000; // milliamperes or milliwatts
  if (!isWithin(min, maxCredibleMillivolts) || !isWithin(max, maxCredibleMillivolts) ||
      !isWithin(limit, maxCredibleLimit)) {
    return std::nullopt;
  }
  return PowerOffer{.kind = *kind,
                    .minMillivolts = *min,
                    .maxMillivolts = *max,
                    .milliamperes = isLimitedByWatts ? std::nullopt : limit,
                    .milliwatts = isLimitedByWatts ? limit : std::nullopt};
}

std::vector<PowerOffer> readOffers(const fs::path& capabilities, const Spelling& spelling) {
  std::vector<PowerOffer> offers;
  for (const std::string& name : namesIn(capabilities)) {
    const auto offer =
        offers.size() < maxOffers ? readOffer(capabilities / name, spelling) : std::nullopt;
    if (offer) {
      offers.push_back(*offer);
    }
  }
  return offers;
}

} // namespace

std::vector<PowerOffer> readSourceOffers(const fs::path& device) {
  return readOffers(device / "usb_power_delivery" / "source-capabilities",
                    {.current = "maximum_current", .power = "maximum_power"});
}

std::vector<PowerOffer> readSinkOffers(const fs::path& device) {
  return readOffers(device / "usb_power_delivery" / "sink-capabilities",
                    {.current = "operational_current", .power = "operational_power"});
}

} // namespace tamberline::sysfs
