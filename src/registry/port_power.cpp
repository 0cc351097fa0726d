#include "registry/probe_results.h"
#include "registry/registry_entries.h"

#include <algorithm>

namespace tamberline {
namespace {

double measurement(PropertyListValue element, std::string_view key) {
  return static_cast<double>(element.member(key).integer().value_or(0));
}

PortPowerOut readPowerOut(PropertyListValue element) {
  return PortPowerOut{
      .usedWatts = measurement(element, "Watts") / 100,
      .allocatedWatts = measurement(element, "ConfiguredVoltage") *
                        measurement(element, "ConfiguredCurrent") / 1'000'000,
      .volts = measurement(element, "AdapterVoltage") / 1000,
      .amps = measurement(element, "Current") / 1000,
  };
}

} // namespace

std::map<std::int64_t, PortPowerOut> portPowerOutIn(const PropertyList& dump) {
  std::map<std::int64_t, PortPowerOut> powerOut;
  visitRegistryEntries(dump.root(), [&](PropertyListValue entry) {
    for (const PropertyListValue element : entry.member("PowerOutDetails").elements()) {
      if (const auto portIndex = element.member("PortIndex").integer()) {
        powerOut[*portIndex] = readPowerOut(element);
      }
    }
  });
  return powerOut;
}

std::map<std::int64_t, std::int64_t> portCurrentLimitsIn(const PropertyList& dump) {
  std::map<std::int64_t, std::int64_t> limits;
  visitRegistryEntries(dump.root(), [&](PropertyListValue entry) {
    const auto name = entry.member("IORegistryEntryName").text();
    if (!name || !name->starts_with("port-usb-c")) {
      return;
    }
    const auto port = leInt(entry.member("port-number"));
    const auto limitMa = leInt(entry.member("acc_bm3-current-limit"));
    if (port && limitMa) {
      limits[*port] = *limitMa;
    }
  });
  return limits;
}

std::optional<std::int64_t> leInt(PropertyListValue value) {
  const auto data = value.data();
  if (!data || data->empty()) {
    return std::nullopt;
  }
  std::int64_t result = 0;
  for (std::size_t index = std::min<std::size_t>(data->size(), 4); index > 0; --index) {
    result = result * 256 + (*data)[index - 1];
  }
  return result;
}

} // namespace tamberline
