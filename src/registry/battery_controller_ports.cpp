#include "registry/probe_results.h"

namespace tamberline {
namespace {

FedPortState readPort(PropertyListValue element, std::int64_t index) {
  return FedPortState{
      .index = index,
      .isConnected = element.member("FedExternalConnected").integer() == 1,
      .isDualRole = element.member("FedDualRolePower").integer() == 1,
      .vendorID = element.member("FedVendorID").integer().value_or(0),
      .productID = element.member("FedProductID").integer().value_or(0),
      .powerRole = element.member("FedPortPowerRole").integer().value_or(1),
  };
}

std::vector<FedPortState> readPorts(PropertyListValue details) {
  std::vector<FedPortState> ports;
  std::int64_t index = 0;
  for (const PropertyListValue element : details.elements()) {
    if (element.isDictionary()) {
      ports.push_back(readPort(element, index));
    }
    ++index;
  }
  return ports;
}

} // namespace

FedDetails fedDetailsIn(const PropertyList& dump) {
  for (const PropertyListValue entry : dump.root().elements()) {
    const PropertyListValue details = entry.member("FedDetails");
    if (details.isArray()) {
      return {readPorts(details), entry.member("BestAdapterIndex").integer().value_or(0)};
    }
  }
  return {};
}

} // namespace tamberline
