#include "answers/speed_tests.h"

#include <algorithm>
#include <array>

namespace tamberline {
namespace {

constexpr double nearlyAll = 0.9;
constexpr double muchLess = 0.5;

struct KnownPayload {
  double gbps = 0;
  LinkPayload payload = {};
};

/// docs/answers.md says where the figures come from.
constexpr std::array<KnownPayload, 5> knownPayloads = {{
    {0.012, {1.216, 1.0}},
    {0.48, {53.2, 40}},
    {5, {500, 450}},
    {10, {1212, 1050}},
    {20, {2424, 2000}},
}};

std::optional<double> bestFigure(const USBDevice& device, const SpeedTests& tests) {
  double best = 0;
  for (const USBVolume& volume : device.volumes) {
    const auto test = tests.find(volume.mountPoint);
    const auto* done =
        test == tests.end() ? nullptr : std::get_if<BenchmarkPhase::Done>(&test->second.state);
    if (done != nullptr) {
      best = std::max({best, done->writeMBps, done->readMBps});
    }
  }
  return best > 0 ? std::optional(best) : std::nullopt;
}

struct Conclusion {
  AnswerKind kind;
  double measuredMBps;
  /// What the link carries: at most if the figure is impossible, otherwise usually.
  double linkMBps;
};

std::optional<Conclusion> conclude(const USBDevice& drive, const USBLink& slowest,
                                   const SpeedTests& tests) {
  const std::optional<LinkPayload> payload = payloadOf(drive, slowest.gbps);
  const std::optional<double> figure = bestFigure(drive, tests);
  if (!payload || !figure) {
    return std::nullopt;
  }
  if (*figure > payload->maxMBps) {
    return Conclusion{AnswerKind::impossibleFigure, *figure, payload->maxMBps};
  }
  if (payload->usualMBps && *figure >= nearlyAll * *payload->usualMBps) {
    return Conclusion{AnswerKind::linkIsTheLimit, *figure, *payload->usualMBps};
  }
  if (payload->usualMBps && *figure < muchLess * *payload->usualMBps) {
    return Conclusion{AnswerKind::driveIsTheLimit, *figure, *payload->usualMBps};
  }
  return std::nullopt;
}

} // namespace

std::optional<LinkPayload> payloadOf(const USBDevice& device, double gbps) {
  constexpr double megabytesOfGigabit = 125;
  if (device.isTunneledDrive && gbps > 0) {
    return LinkPayload{.maxMBps = gbps * megabytesOfGigabit};
  }
  const auto* const known =
      std::find_if(knownPayloads.begin(), knownPayloads.end(),
                   [&](const KnownPayload& candidate) { return candidate.gbps == gbps; });
  return known == knownPayloads.end() ? std::nullopt : std::optional(known->payload);
}

bool isProvenSlow(const USBDevice& drive, const USBLink& slowest, const SpeedTests& tests) {
  const std::optional<Conclusion> conclusion = conclude(drive, slowest, tests);
  return conclusion && conclusion->kind == AnswerKind::driveIsTheLimit;
}

void findSpeedTestAnswers(const TreeNode& node, const USBDevice& drive, const USBLink& slowest,
                          const SpeedTests& tests, AnswerList& answers) {
  const std::optional<Conclusion> conclusion = conclude(drive, slowest, tests);
  if (!conclusion) {
    return;
  }
  const bool isLink = conclusion->kind == AnswerKind::linkIsTheLimit;
  answers.add(node,
              {.kind = conclusion->kind,
               .limitingNodeID = isLink ? slowest.node->id : node.id,
               .limitingPart = isLink ? LimitingPart::connection : LimitingPart::node,
               .facts = {.actualGbps = slowest.gbps,
                         .measuredMBps = conclusion->measuredMBps,
                         .linkMBps = conclusion->linkMBps}},
              {.node = drive.shownName()});
}

} // namespace tamberline
