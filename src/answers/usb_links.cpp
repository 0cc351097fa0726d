#include "answers/usb_links.h"

#include <algorithm>

namespace tamberline {
namespace {

/// The links that are as slow as the whole path.
struct SlowestLinks {
  double gbps = 0;
  std::size_t first = 0;
  std::size_t last = 0;
  std::size_t count = 0;
};

/// Absent if a speed is unknown.
std::optional<SlowestLinks> slowestLinks(const std::vector<USBLink>& links) {
  SlowestLinks slowest;
  for (std::size_t index = 0; index < links.size(); ++index) {
    const double gbps = links[index].gbps;
    if (gbps <= 0) {
      return std::nullopt;
    }
    if (slowest.count == 0 || gbps < slowest.gbps) {
      slowest = {gbps, index, index, 0};
    }
    if (gbps == slowest.gbps) {
      slowest.last = index;
      ++slowest.count;
    }
  }
  return slowest.count == 0 ? std::nullopt : std::optional(slowest);
}

LimitingPart partOf(const USBLink& link, double gbps) {
  if (link.cannotExceed(gbps)) {
    return LimitingPart::node;
  }
  if (!link.canExceed(gbps)) {
    return LimitingPart::nodeOrConnection;
  }
  return link.cableGbps && *link.cableGbps <= gbps ? LimitingPart::cable : LimitingPart::connection;
}

/// Below USB 3, the first slow link makes all further ones slow. A device that connects at 12 Mb/s
/// can do no more, whatever its cable.
std::optional<Bottleneck> bottleneckInUSB2(const USBPath& path, const SlowestLinks& slowest) {
  const USBLink& link = path.links[slowest.first];
  const bool isEndStuck = std::any_of(
      path.links.begin() + static_cast<std::ptrdiff_t>(slowest.first) + 1, path.links.end(),
      [&](const USBLink& behind) { return behind.cannotExceed(slowest.gbps); });
  if (isEndStuck) {
    return std::nullopt;
  }
  if (slowest.gbps < usb2Gbps) {
    return Bottleneck{.link = slowest.first, .part = LimitingPart::node};
  }
  return Bottleneck{.link = slowest.first, .part = partOf(link, slowest.gbps)};
}

/// In USB 3, a hub's links may differ. Two slow links have one cause only if it is the hub between
/// them, which then has no faster link.
std::optional<Bottleneck> bottleneckInUSB3(const USBPath& path, const SlowestLinks& slowest) {
  const USBLink& link = path.links[slowest.first];
  if (slowest.count == 1) {
    return Bottleneck{.link = slowest.first, .part = partOf(link, slowest.gbps)};
  }
  if (slowest.count > 2 || link.canExceed(slowest.gbps) ||
      path.links[slowest.last].cannotExceed(slowest.gbps)) {
    return std::nullopt;
  }
  return Bottleneck{.link = slowest.first, .part = partOf(link, slowest.gbps)};
}

/// USB 2 and USB 3 have separate buses in some computers, so what is on a USB 2 bus may be in a
/// socket that can do more.
double portMaxOf(const USBPath& path) {
  return path.portGbps > 0 && path.portGbps <= usb2Gbps ? path.fastestPortGbps : path.portGbps;
}

bool isOnUSB2Bus(const USBPath& path) {
  return path.portGbps <= usb2Gbps;
}

/// What the path could be if all slowest links were faster.
double speedWithout(const USBPath& path, const SlowestLinks& slowest) {
  double gbps = portMaxOf(path);
  for (const USBLink& link : path.links) {
    if (link.gbps > slowest.gbps) {
      gbps = std::min(gbps, link.gbps);
    } else if (link.canExceed(slowest.gbps)) {
      gbps = std::min(gbps, link.atLeastGbps);
    }
  }
  return gbps;
}

} // namespace

const USBLink* slowestLink(const USBPath& path) {
  const std::optional<SlowestLinks> slowest = slowestLinks(path.links);
  return slowest ? &path.links[slowest->first] : nullptr;
}

std::optional<Bottleneck> bottleneckOf(const USBPath& path) {
  const std::optional<SlowestLinks> slowest = slowestLinks(path.links);
  if (!slowest || portMaxOf(path) <= slowest->gbps ||
      path.links.back().cannotExceed(slowest->gbps)) {
    return std::nullopt;
  }
  const bool isProvenSlower = path.links[slowest->first].canExceed(slowest->gbps) ||
                              path.links.back().canExceed(slowest->gbps);
  if (isOnUSB2Bus(path) && !isProvenSlower) {
    return std::nullopt; // the bus explains the speed
  }
  std::optional<Bottleneck> bottleneck = slowest->gbps <= usb2Gbps
                                             ? bottleneckInUSB2(path, *slowest)
                                             : bottleneckInUSB3(path, *slowest);
  const bool isDeviceItself = bottleneck && bottleneck->part == LimitingPart::node &&
                              bottleneck->link + 1 == path.links.size();
  if (isDeviceItself) {
    return std::nullopt;
  }
  if (bottleneck) {
    bottleneck->actualGbps = slowest->gbps;
    bottleneck->possibleGbps = speedWithout(path, *slowest);
  }
  return bottleneck;
}

} // namespace tamberline
