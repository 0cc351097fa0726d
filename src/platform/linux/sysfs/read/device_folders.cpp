#include "platform/linux/sysfs/read/device_folders.h"

#include "base/text.h"
#include "platform/linux/sysfs/read/attribute_files.h"

#include <string>

namespace tamberline::sysfs {
namespace {

/// A location has one byte for the port, and its max value means none.
constexpr std::int64_t maxPortNumber = 254;

} // namespace

std::filesystem::path busFolder(const std::filesystem::path& sysfs, std::string_view bus) {
  return sysfs / "bus" / bus / "devices";
}

std::filesystem::path classFolder(const std::filesystem::path& sysfs, std::string_view name) {
  return sysfs / "class" / name;
}

std::optional<int> typecPortNumber(std::string_view name) {
  constexpr std::string_view prefix = "port";
  if (!name.starts_with(prefix)) {
    return std::nullopt;
  }
  const std::string_view digits = name.substr(prefix.size());
  const bool isSpelled = digits.find_first_not_of("0123456789") == std::string_view::npos;
  const auto number = parseDecimal(digits);
  if (!isSpelled || !number || *number > maxPortNumber) {
    return std::nullopt;
  }
  return static_cast<int>(*number);
}

std::optional<int> linkedConnector(const std::filesystem::path& device) {
  const auto name = linkedName(device / "connector");
  return name ? typecPortNumber(*name) : std::nullopt;
}

std::optional<PhysicalLocation> physicalLocation(const std::filesystem::path& device) {
  const std::filesystem::path folder = device / "physical_location";
  const std::string panel = readTextOrNothing(folder / "panel");
  if (panel.empty() || panel == "unknown") {
    return std::nullopt;
  }
  PhysicalLocation location = panel;
  for (const char* part : {"vertical_position", "horizontal_position", "dock", "lid"}) {
    location += "/" + readTextOrNothing(folder / part);
  }
  constexpr const char* unsetLocation = "top/upper/left/no/no"; // firmware left all fields zero
  return location == unsetLocation ? std::nullopt : std::optional(location);
}

std::string owningDevice(const std::filesystem::path& classEntry) {
  std::filesystem::path device;
  for (const auto& part : linkTarget(classEntry).value_or("").parent_path().parent_path()) {
    if (part != "..") {
      device /= part;
    }
  }
  return device.string();
}

} // namespace tamberline::sysfs
