#include "app/display_guard.h"
#include "app/look.h"
#include "app/manual_document.h"
#include "app/manual_window.h"
#include "app/panel_shell.h"
#include "app/qt_notices.h"
#include "async/qt_main_queue.h"
#include "platform/background_tasks.h"
#include "platform/desktop.h"
#include "platform/posix/command_line.h"
#include "platform/preferred_languages.h"
#include "platform/saved/folder_event_source.h"
#include "platform/saved/saved_reports.h"
#include "recorded_machine_player.h"
#include "replay_options.h"
#include "show_panel.h"

#include <QApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace {

using namespace tamberline;

constexpr int exitUsage = 2;

void applyLook(const ReplayOptions& options) {
  applyDefaultLookWithoutDesktop();
  if (options.theme) {
    QApplication::setPalette(options.theme == ReplayTheme::dark ? darkPalette() : lightPalette());
  }
}

using Clock = std::function<std::chrono::system_clock::time_point()>;

/// In a picture the clock is stopped, so that the picture does not depend on how long it took.
Clock clockOf(const ReplayOptions& options) {
  if (options.screenshot) {
    return [start = std::chrono::system_clock::now()] { return start; };
  }
  return std::chrono::system_clock::now;
}

std::shared_ptr<PortScanner> scannerOf(const ReplayOptions& options,
                                       const std::shared_ptr<MainQueue>& queue, const Clock& now) {
  return PortScanner::create(
      {.acquisition = {.machine = savedMachine(options.reportsFolder), .queue = queue},
       .events = std::make_shared<FolderEventSource>(options.reportsFolder),
       .now = now});
}

/// A scanner, and what plays a recording into it; null for a folder of saved reports.
struct Replay {
  std::shared_ptr<PortScanner> scanner;
  std::unique_ptr<RecordedMachinePlayer> player;
};

/// A picture shows one step: that of the option, the first one, or the last one after playing at a
/// speed.
Replay replayOf(const ReplayOptions& options, const std::shared_ptr<MainQueue>& queue,
                const Clock& now) {
  if (options.steps.empty()) {
    return {scannerOf(options, queue, now), nullptr};
  }
  const bool isPaused = options.step || (options.screenshot && !options.speed);
  const Playback::State first{options.step.value_or(1) - 1, isPaused};
  auto playback =
      std::make_unique<Playback>(options.steps, options.speed.value_or(1), queue, first);
  const auto machine = std::make_shared<RecordedMachine>(playback->step().folder);
  Replay replay;
  replay.scanner = PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                                        .events = std::make_shared<SilentEventSource>(),
                                        .now = now});
  replay.player =
      std::make_unique<RecordedMachinePlayer>(std::move(playback), machine, replay.scanner, queue);
  return replay;
}

/// The volumes of a saved machine are on another computer, so they can be neither tested nor
/// ejected.
PanelActions actionsWith(ManualWindow& manual, bool enablesVolumes) {
  PanelActions actions{.openManual = [&manual] { manual.show(); },
                       .closePanel = [] { QApplication::quit(); },
                       .quit = [] { QApplication::quit(); }};
  if (enablesVolumes) { // nobody can press anything in a picture
    actions.runBenchmark = [](const std::string& /*mountPoint*/) {};
    actions.eject = [](const std::string& /*mountPoint*/) {};
  }
  return actions;
}

int run(const ReplayOptions& options, int& argc, char** argv) {
  if (options.screenshot) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    suppressDesktopNotices();
  }
  suppressEncodingNotice();
  chooseGraphics();
  auto guard = std::make_optional<DisplayGuard>(QStringLiteral("tamberline-replay"));
  QApplication application(argc, argv);
  guard.reset();
  AppLanguage::choose(
      options.language.value_or(AppLanguage::forPreferredLanguages(preferredLanguages())));
  applyLook(options);
  const MainQueueScope scope(becomeUserInitiatedTask);
  const std::shared_ptr<MainQueue> queue = scope.queue();
  const Clock now = clockOf(options);
  const Replay replay = replayOf(options, queue, now);
  ManualWindow manual(manualFolder(QCoreApplication::applicationDirPath()));
  PanelShell shell({.scanner = replay.scanner,
                    .queue = queue,
                    .now = now,
                    .fontScale = options.fontScale,
                    .actions = actionsWith(manual, options.enablesVolumes)},
                   {.places = makeWindowPlaces(), .isBoundByScreen = !options.screenshot});
  const std::unique_ptr<AnimationSetting> animations =
      options.screenshot ? nullptr : makeAnimationSetting();
  if (animations) {
    animations->follow(
        [&shell](bool isAllowed) { shell.context().motion()->setAllowed(isAllowed); });
  }
  const auto hasPlayed = [&replay] { return !replay.player || replay.player->hasPlayed(); };
  const auto shown = showPanel(&shell, replay.scanner, hasPlayed, queue, options);
  return QApplication::exec();
}

bool print(std::string_view text) {
  return printToStandardOutput(text, "tamberline-replay");
}

} // namespace

int main(int argc, char** argv) {
  const std::optional<ReplayOptions> options = parseReplayOptions(argc, argv);
  if (!options) {
    std::fputs("try 'tamberline-replay --help'\n", stderr);
    return exitUsage;
  }
  if (options->showsHelp) {
    return print(replayUsage) ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  if (options->showsVersion) {
    return print("tamberline-replay " TAMBERLINE_VERSION "\n") ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  return run(*options, argc, argv);
}
