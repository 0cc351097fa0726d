// What users wait for in the panel, and the cost of an unchanged rescan. Windows use software
// rendering, as on the desktop, but are not shown.

#include "benched_panel.h"
#include "controls/list_changes.h"
#include "large_machine.h"
#include "platform/desktop.h"
#include "platform/saved/saved_reports.h"
#include "views/panel_inputs.h"
#include "views/panel_rows.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tamberline {
namespace {

/// Gives 5,000 rows: two of nine devices are the second halves of hubs.
constexpr std::size_t devicesOfLargeMachine = 5'622;
/// Gives 200 rows.
constexpr std::size_t devicesOfMediumMachine = 222;
constexpr int iterations = 20; // each needs an unmeasured pause before it

std::filesystem::path deskSample() {
  return std::filesystem::path(SAMPLES_FOLDER) / "desk";
}

void save(const std::string& answer, Question question, const std::filesystem::path& folder) {
  std::ofstream(folder / savedFileName(question)) << answer;
}

std::unique_ptr<QTemporaryDir> folderOfMachine(std::size_t devices) {
  auto folder = std::make_unique<QTemporaryDir>();
  for (const auto& [question, answer] : makeLargeMachine(devices)) {
    save(answer, question, folder->path().toStdString());
  }
  return folder;
}

std::filesystem::path largeMachine() {
  static const std::unique_ptr<QTemporaryDir> folder = folderOfMachine(devicesOfLargeMachine);
  return folder->path().toStdString();
}

void countRows(benchmark::State& state, BenchedPanel& panel) {
  state.counters["rows"] = panel.controller().rows()->rowCount();
}

void reopen(benchmark::State& state, const std::filesystem::path& machine) {
  BenchedPanel panel(machine);
  panel.controller().expandAll();
  for (auto iteration : state) {
    state.PauseTiming();
    panel.settle();
    panel.shell().close();
    panel.settle();
    state.ResumeTiming();
    panel.renderAfter([&] { panel.shell().open(); });
  }
  countRows(state, panel);
}

void reopenDesk(benchmark::State& state) {
  reopen(state, deskSample());
}
BENCHMARK(reopenDesk)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(iterations);

void reopenLarge(benchmark::State& state) {
  reopen(state, largeMachine());
}
BENCHMARK(reopenLarge)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(iterations);

void expandAll(benchmark::State& state) {
  BenchedPanel panel(largeMachine());
  for (auto iteration : state) {
    state.PauseTiming();
    panel.controller().collapseAll();
    panel.settle();
    state.ResumeTiming();
    panel.renderAfter([&] { panel.controller().expandAll(); });
  }
  countRows(state, panel);
}
BENCHMARK(expandAll)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(iterations);

using FrameTimes = std::vector<std::chrono::steady_clock::time_point>;

double millisecondsBetween(FrameTimes::value_type from, FrameTimes::value_type to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

/// Closes and opens the first card of a machine with 200 rows while the other rows move. Notes how
/// many frames a second are shown meanwhile, and the longest time between two of them.
void movingRows(benchmark::State& state) {
  const std::unique_ptr<QTemporaryDir> machine = folderOfMachine(devicesOfMediumMachine);
  BenchedPanel panel(machine->path().toStdString());
  panel.shell().context().motion()->setAllowed(true);
  panel.controller().expandAll();
  panel.settle();
  countRows(state, panel);
  FrameTimes frames;
  const QMetaObject::Connection noting =
      QObject::connect(panel.shell().window(), &QQuickWindow::frameSwapped,
                       [&frames] { frames.push_back(std::chrono::steady_clock::now()); });
  double shownFrames = 0;
  double milliseconds = 0;
  double longest = 0;
  for (auto iteration : state) {
    frames.clear();
    panel.controller().toggle(0);
    panel.settle();
    for (std::size_t index = 1; index < frames.size(); ++index) {
      longest = std::max(longest, millisecondsBetween(frames[index - 1], frames[index]));
    }
    shownFrames += static_cast<double>(frames.size()) - 1;
    milliseconds += millisecondsBetween(frames.front(), frames.back());
  }
  QObject::disconnect(noting);
  state.counters["framesPerSecond"] = shownFrames * 1000 / milliseconds;
  state.counters["longestMs"] = longest;
}
BENCHMARK(movingRows)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(iterations);

/// Counts the changes that a view would have to follow.
void countSignals(const QAbstractItemModel& model, int& count) {
  const auto increment = [&count] { ++count; };
  QObject::connect(&model, &QAbstractItemModel::dataChanged, &model, increment);
  QObject::connect(&model, &QAbstractItemModel::layoutChanged, &model, increment);
  QObject::connect(&model, &QAbstractItemModel::modelReset, &model, increment);
  QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, increment);
  QObject::connect(&model, &QAbstractItemModel::rowsMoved, &model, increment);
  QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, increment);
}

/// The processor time is that of the main thread; other threads read the tools.
void unchangedRescan(benchmark::State& state) {
  BenchedPanel panel(largeMachine());
  panel.controller().expandAll();
  panel.settle();
  int modelSignals = 0;
  int delegates = 0; // created or destroyed
  countSignals(*panel.controller().rows(), modelSignals);
  const QMetaObject::Connection counting =
      QObject::connect(panel.linesOfList(), &QQuickItem::childrenChanged, [&] { ++delegates; });
  for (auto iteration : state) {
    panel.scan();
  }
  QObject::disconnect(counting);
  state.counters["signals"] = modelSignals;
  state.counters["delegates"] = delegates;
  countRows(state, panel);
}
BENCHMARK(unchangedRescan)->Unit(benchmark::kMillisecond);

/// A group of hubs with its devices leaves and comes back.
void changedRescan(benchmark::State& state) {
  const std::filesystem::path folder = largeMachine();
  const std::string with = makeLargeMachine(devicesOfLargeMachine).at(Question::usb);
  const std::string without = makeLargeMachine(devicesOfLargeMachine - 50).at(Question::usb);
  BenchedPanel panel(folder);
  panel.controller().expandAll();
  panel.settle();
  bool isThere = true;
  for (auto iteration : state) {
    state.PauseTiming();
    isThere = !isThere;
    save(isThere ? with : without, Question::usb, folder);
    state.ResumeTiming();
    panel.scan();
  }
  save(with, Question::usb, folder);
  countRows(state, panel);
}
BENCHMARK(changedRescan)->Unit(benchmark::kMillisecond);

/// The large machine with all its rows open, for the parts of a rescan after its tree is built.
struct OpenMachine {
  PanelInputs inputs;
  std::set<std::string> expanded;

  std::vector<PanelRow> rowsOf(const std::shared_ptr<const Panel>& described) const {
    const RowExpansion untouched;
    return panelRows(described, {.expansion = untouched,
                                 .expandedOverrideIDs = expanded,
                                 .benchmarks = {},
                                 .ejectStates = {},
                                 .pulses = {}});
  }
};

const OpenMachine& openMachine() {
  static const OpenMachine machine = [] {
    BenchedPanel panel(largeMachine());
    panel.controller().expandAll();
    return OpenMachine{panelInputs(panel.scanner()), panel.scanner().expandedOverrideIDs.get()};
  }();
  return machine;
}

void describing(benchmark::State& state) {
  const OpenMachine& machine = openMachine();
  const PanelInputs inputs = machine.inputs;
  for (auto iteration : state) {
    benchmark::DoNotOptimize(describePanel(inputs));
  }
}
BENCHMARK(describing)->Unit(benchmark::kMillisecond);

void writingRows(benchmark::State& state) {
  const OpenMachine& machine = openMachine();
  const auto described = std::make_shared<const Panel>(describePanel(machine.inputs));
  for (auto iteration : state) {
    benchmark::DoNotOptimize(machine.rowsOf(described));
  }
}
BENCHMARK(writingRows)->Unit(benchmark::kMillisecond);

void comparingRows(benchmark::State& state) {
  const OpenMachine& machine = openMachine();
  const auto described = std::make_shared<const Panel>(describePanel(machine.inputs));
  const auto again = std::make_shared<const Panel>(describePanel(machine.inputs));
  const std::vector<PanelRow> before = machine.rowsOf(described);
  const std::vector<PanelRow> after = machine.rowsOf(again);
  for (auto iteration : state) {
    for (std::size_t index = 0; index < before.size(); ++index) {
      benchmark::DoNotOptimize(before[index] == after[index]);
    }
  }
}
BENCHMARK(comparingRows)->Unit(benchmark::kMillisecond);

void findingChanges(benchmark::State& state) {
  const OpenMachine& machine = openMachine();
  const auto described = std::make_shared<const Panel>(describePanel(machine.inputs));
  std::vector<std::string> keys;
  for (const PanelRow& row : machine.rowsOf(described)) {
    keys.push_back(row.id);
  }
  const std::vector<std::string> same = keys;
  for (auto iteration : state) {
    benchmark::DoNotOptimize(listChanges(keys, same));
  }
}
BENCHMARK(findingChanges)->Unit(benchmark::kMillisecond);

/// The platform without a screen prints warnings about many unsupported features.
void printUnlessOfPlatform(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (!message.startsWith(QLatin1String("This plugin does not support"))) {
    std::fprintf(stderr, "%s\n", qPrintable(message));
  }
}

} // namespace
} // namespace tamberline

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(tamberline::printUnlessOfPlatform);
  tamberline::chooseGraphics();
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}
