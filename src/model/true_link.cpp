#include "model/true_link.h"

#include "base/text.h"
#include "i18n/loc.h"

#include <vector>

namespace tamberline {
namespace {

std::string carriedText(double gbps, const std::optional<std::int64_t>& lanes) {
  const std::string speed = generalText(gbps) + " Gb/s";
  return lanes ? speed + ", " + Loc::lanes(*lanes) : speed;
}

} // namespace

std::string TrueLink::label() const {
  const bool isSymmetric = transmitGbps == receiveGbps && transmitLanes == receiveLanes;
  if (transmitGbps && isSymmetric) {
    return Loc::linkEachWay(carriedText(*transmitGbps, transmitLanes));
  }
  std::vector<std::string> directions;
  if (transmitGbps) {
    directions.push_back(Loc::linkToDevice(carriedText(*transmitGbps, transmitLanes)));
  }
  if (receiveGbps) {
    directions.push_back(Loc::linkFromDevice(carriedText(*receiveGbps, receiveLanes)));
  }
  return joined(directions, " · ");
}

} // namespace tamberline
