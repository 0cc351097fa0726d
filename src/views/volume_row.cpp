#include "views/volume_row.h"

#include "base/look_up.h"
#include "base/overloaded.h"
#include "base/text.h"
#include "i18n/loc.h"

#include <algorithm>

namespace tamberline {
namespace {

SymbolButton retestButton() {
  return {.symbol = "arrow.clockwise", .tooltip = std::string(Loc::hintRetest())};
}

/// A tool's message may have several lines.
std::string inOneLine(std::string message) {
  std::replace_if(
      message.begin(), message.end(),
      [](char character) { return character >= '\t' && character <= '\r'; }, ' ');
  std::vector<std::string> words;
  for (const std::string_view word : splitNonEmpty(message, ' ')) {
    words.emplace_back(word);
  }
  return joined(words, " ");
}

std::string progressText(const std::string& phase, std::optional<int> percent) {
  return percent ? phase + " " + Loc::percent(*percent) : phase;
}

bool isBusy(const VolumeRow& volume) {
  return volume.tools.showsTestProgress || volume.tools.showsEjectProgress;
}

void describeTest(const BenchmarkPhase& phase, std::optional<int> percent, VolumeTools& tools) {
  std::visit(Overloaded{
                 [&](const BenchmarkPhase::Idle&) {
                   tools.testButton = {.symbol = "speedometer",
                                       .tooltip = std::string(Loc::hintTestSpeed())};
                 },
                 [&](const BenchmarkPhase::Running& running) {
                   tools.showsTestProgress = true;
                   tools.testProgress = progressText(running.phase, percent);
                   tools.stopTooltip =
                       tools.testProgress + " · " + std::string(Loc::hintStopTest());
                   tools.testTexts = {{running.phase, Color::Secondary}};
                 },
                 [&](const BenchmarkPhase::Done& done) {
                   tools.testTexts = {{"W " + fixedText(done.writeMBps, 0), Color::Blue},
                                      {"R " + fixedText(done.readMBps, 0) + " MB/s", Color::Green}};
                   tools.testButton = retestButton();
                 },
                 [&](const BenchmarkPhase::Failed& failed) {
                   tools.testTexts = {{failed.message, Color::Orange}};
                   tools.testButton = retestButton();
                 },
             },
             phase.state);
}

} // namespace

VolumeRow volumeRow(const USBVolume& volume) {
  return {
      .label = std::string(Loc::volume()), .name = volume.name, .mountPoint = volume.mountPoint};
}

VolumeTools volumeTools(const BenchmarkPhase& phase, const std::optional<EjectState>& eject,
                        std::optional<int> testPercent) {
  VolumeTools tools;
  describeTest(phase, testPercent, tools);
  if (eject && std::holds_alternative<EjectState::Ejecting>(eject->state)) {
    tools.showsEjectProgress = true;
    return tools;
  }
  tools.ejectButton = {.symbol = "eject.circle", .tooltip = std::string(Loc::hintEject())};
  if (eject) {
    tools.ejectFailure = inOneLine(std::get<EjectState::Failed>(eject->state).message);
    tools.ejectButton->symbol = "exclamationmark.circle";
    tools.ejectButton->tooltip = *tools.ejectFailure;
    tools.ejectButton->color = Color::Orange;
  }
  tools.ejectButton->isEnabled = !phase.isRunning();
  return tools;
}

void addTools(const VolumeStates& states, std::vector<VolumeRow>& volumes) {
  for (VolumeRow& volume : volumes) {
    volume.tools =
        volumeTools(lookUp(states.benchmarks, volume.mountPoint).value_or(BenchmarkPhase{}),
                    lookUp(states.ejectStates, volume.mountPoint),
                    lookUp(states.testProgress, volume.mountPoint));
  }
  if (std::any_of(volumes.begin(), volumes.end(), isBusy)) {
    for (VolumeRow& volume : volumes) {
      if (volume.tools.ejectButton) {
        volume.tools.ejectButton->isEnabled = false;
      }
    }
  }
}

} // namespace tamberline
