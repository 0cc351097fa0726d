#include "model/container_ids.h"

#include <limits>

namespace tamberline {
namespace {

using Identifiers = std::unordered_map<std::int64_t, std::string>;

std::optional<std::string> lookUp(const Identifiers& identifiers, std::int64_t locationID) {
  const auto found = identifiers.find(locationID);
  return found == identifiers.end() ? std::nullopt : std::optional(found->second);
}

std::int64_t unsignedLocation(std::int64_t locationID) {
  constexpr std::int64_t twoToThe32nd = std::int64_t{1} << 32U;
  const bool isWrittenSigned =
      locationID < 0 && locationID >= std::numeric_limits<std::int32_t>::min();
  return isWrittenSigned ? locationID + twoToThe32nd : locationID;
}

} // namespace

void ContainerIDs::add(std::int64_t locationID, const std::string& containerID) {
  identifiers_.try_emplace(locationID, containerID);
  identifiersByUnsignedLocation_.try_emplace(unsignedLocation(locationID), containerID);
}

std::optional<std::string> ContainerIDs::find(std::int64_t locationID) const {
  std::optional<std::string> asSpelled = lookUp(identifiers_, locationID);
  return asSpelled ? asSpelled
                   : lookUp(identifiersByUnsignedLocation_, unsignedLocation(locationID));
}

} // namespace tamberline
