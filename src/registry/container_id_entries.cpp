#include "registry/probe_results.h"
#include "registry/registry_entries.h"

namespace tamberline {

ContainerIDs containerIDsIn(const PropertyList& dump) {
  ContainerIDs identifiers;
  visitRegistryEntries(dump.root(), [&](PropertyListValue entry) {
    const auto locationID = entry.member("locationID").integer();
    const auto containerID = entry.member("kUSBContainerID").text();
    if (locationID && containerID) {
      identifiers.add(*locationID, *containerID);
    }
  });
  return identifiers;
}

} // namespace tamberline
