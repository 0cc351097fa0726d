#include "base/text.h"
#include "registry/bounded_values.h"
#include "registry/port_details.h"
#include "registry/probe_results.h"
#include "registry/registry_entries.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

/// "CC" is the configuration channel. It is active on every connection and carries no data.
constexpr std::array<std::string_view, 4> dataTransports = {"USB2", "USB3", "USB4", "CIO"};

std::set<std::string, std::less<>> activeTransports(PropertyListValue entry) {
  std::set<std::string, std::less<>> transports;
  for (const PropertyListValue transport : entry.member("TransportsActive").elements()) {
    if (std::optional<std::string> name = transport.text()) {
      transports.insert(std::move(*name));
    }
  }
  return transports;
}

bool isTrue(PropertyListValue entry, std::string_view key) {
  return entry.member(key).boolean() == true;
}

/// The key is not in a Mac's registry.
PortPartner partnerIn(PropertyListValue entry) {
  static constexpr WordTable<PortPartner, 5> partners = {{{"audio", PortPartner::audio},
                                                          {"debug", PortPartner::debug},
                                                          {"video", PortPartner::video},
                                                          {"source", PortPartner::source},
                                                          {"unknown", PortPartner::unknown}}};
  return wordMember(entry, "TamberlinePartner", partners).value_or(PortPartner::none);
}

std::optional<AgreedPower> agreedPowerIn(PropertyListValue entry) {
  const auto millivolts = entry.member("TamberlineAgreedMillivolts").integer();
  const auto milliamperes = entry.member("TamberlineAgreedMilliamperes").integer();
  if (!millivolts || !milliamperes) {
    return std::nullopt;
  }
  return AgreedPower{.volts = static_cast<double>(*millivolts) / 1000,
                     .amps = static_cast<double>(*milliamperes) / 1000};
}

HPMPort readPort(PropertyListValue entry, std::int64_t portNumber) {
  const auto transports = activeTransports(entry);
  const std::string type = entry.member("PortTypeDescription").text().value_or("");
  return HPMPort{
      .portNumber = portNumber,
      .isMagSafe = contains(type, "MagSafe"),
      .connectionActive = isTrue(entry, "ConnectionActive"),
      .hasData = std::any_of(dataTransports.begin(), dataTransports.end(),
                             [&](std::string_view name) { return transports.contains(name); }),
      .hasVideo = transports.contains("DisplayPort") || isTrue(entry, "DisplayPortPinAssignment"),
      .activeCable = isTrue(entry, "ActiveCable"),
      .opticalCable = isTrue(entry, "OpticalCable"),
      .accessoryID = entry.member("IOAccessoryID").integer().value_or(-1),
      .partner = partnerIn(entry),
      .agreedPower = agreedPowerIn(entry),
      .details = portDetailsIn(entry),
  };
}

} // namespace

std::vector<HPMPort> portControllersIn(const PropertyList& dump) {
  std::vector<HPMPort> ports;
  visitRegistryEntries(dump.root(), [&](PropertyListValue entry) {
    const auto portNumber = entry.member("PortNumber").integer();
    if (portNumber && entry.member("PortDescription").text()) {
      ports.push_back(readPort(entry, *portNumber));
    }
  });
  return ports;
}

} // namespace tamberline
