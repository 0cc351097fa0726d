#include "model/container_ids.h"

#include "base/look_up.h"

#include <limits>

namespace tamberline {
namespace {

std::int64_t unsignedLocation(std::int64_t locationID) {
  constexpr std::int64_t twoToThePower32 = std::int64_t{1} << 32U;
  const bool isWrittenSigned =
      locationID < 0 && locationID >= std::numeric_limits<std::int32_t>::min();
  return isWrittenSigned ? locationID + twoToThePower32 : locationID;
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
