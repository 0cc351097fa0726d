#include "scanner/volume_fixture.h"

#include "base/overloaded.h"
#include "base/text.h"

namespace tamberline {
namespace {

template <typename State>
std::string listed(const std::map<std::string, State>& states, std::string (*text)(const State&)) {
  std::vector<std::string> lines;
  lines.reserve(states.size());
  for (const auto& [mountPoint, state] : states) {
    lines.push_back(mountPoint + ": " + text(state));
  }
  return lines.empty() ? "nothing" : joined(lines, "; ");
}

} // namespace

void VolumeFixture::scanSticks(const std::vector<std::vector<std::string>>& sticks) {
  std::vector<std::string> items;
  for (const std::vector<std::string>& mountPoints : sticks) {
    std::vector<std::string> volumes;
    volumes.reserve(mountPoints.size());
    for (const std::string& mountPoint : mountPoints) {
      volumes.push_back(R"({"_name": "Data", "mount_point": ")" + mountPoint + "\"}");
    }
    items.push_back(R"({"_name": "Stick", "Media": [{"volumes": [)" + joined(volumes, ",") +
                    "]}]}");
  }
  // Behind a hub, like most devices.
  machine->answer(
      Question::usb,
      R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [{"_name": "Hub", "_items": [)" +
          joined(items, ",") + "]}]}]}");
  scan();
  queue->settle();
}

std::string VolumeFixture::phaseText(const BenchmarkPhase& phase) {
  return std::visit(
      Overloaded{
          [](const BenchmarkPhase::Idle&) { return std::string("idle"); },
          [](const BenchmarkPhase::Running& running) { return running.phase; },
          [](const BenchmarkPhase::Done& done) {
            return "W " + generalText(done.writeMBps) + " R " + generalText(done.readMBps);
          },
          [](const BenchmarkPhase::Failed& failed) { return "failed: " + failed.message; },
      },
      phase.state);
}

std::string VolumeFixture::ejectText(const EjectState& state) {
  const auto* failed = std::get_if<EjectState::Failed>(&state.state);
  return failed == nullptr ? "ejecting" : "failed: " + failed->message;
}

void VolumeFixture::notePhases() {
  published.push_back(listed(scanner->benchmarks.get(), phaseText));
}

void VolumeFixture::noteEjectStates() {
  published.push_back(listed(scanner->ejectStates.get(), ejectText));
}

} // namespace tamberline
