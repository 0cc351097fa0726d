#include "panel/panel_controller.h"

#include "controls/engine_objects.h"
#include "tree/node_identifiers.h"
#include "views/panel_inputs.h"
#include "views/panel_rows.h"

#include <utility>

namespace tamberline {
namespace {

void appendIDs(const std::vector<TreeNode>& nodes, std::vector<std::string>& ids) {
  for (const TreeNode& node : nodes) {
    ids.push_back(node.id);
    appendIDs(node.children, ids);
  }
}

} // namespace

PanelController::PanelController(std::shared_ptr<PortScanner> scanner,
                                 std::shared_ptr<MainQueue> queue, const AnswersController& answers,
                                 PanelActions actions)
    : scanner_(std::move(scanner)), answers_(answers), actions_(std::move(actions)),
      pulses_(scanner_, std::move(queue), [this] { refreshRows(); }) {
  describe();
  observeScanner();
  connect(&answers_, &AnswersController::answersChanged, this, &PanelController::refreshRows);
}

PanelController* PanelController::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<PanelController>(*engine);
}

void PanelController::observeScanner() {
  const auto redescribe = [this] { describe(); };
  const auto refresh = [this] { refreshRows(); };
  observations_.push_back(scanner_->portTree.observe([this] { followTree(); }));
  observations_.push_back(scanner_->hpmPorts.observe(redescribe));
  observations_.push_back(scanner_->portPowerOut.observe(redescribe));
  observations_.push_back(scanner_->charging.observe(redescribe));
  observations_.push_back(scanner_->portCurrentLimitMa.observe(redescribe));
  observations_.push_back(scanner_->errorMessage.observe(redescribe));
  observations_.push_back(scanner_->isScanning.observe([this] {
    if (panel_->state != Panel::State::Cards) { // cards do not show whether a scan is running
      describe();
    }
    emit isScanningChanged();
  }));
  observations_.push_back(scanner_->benchmarks.observe(refresh));
  observations_.push_back(scanner_->testProgress.observe(refresh));
  observations_.push_back(scanner_->ejectStates.observe(refresh));
  observations_.push_back(scanner_->expandedOverrideIDs.observe(refresh));
  observations_.push_back(scanner_->collapseAllEpoch.observe([this] { dropExpansion(); }));
  observations_.push_back(scanner_->highlightedNodeID.observe([this] { followHighlight(); }));
}

views::PanelState PanelController::state() const {
  return panel_->state;
}

QString PanelController::message() const {
  return shownTooltip(panel_->message.value_or(""));
}

QString PanelController::hint() const {
  return shownTooltip(panel_->hint.value_or(""));
}

void PanelController::scan() {
  scanner_->scan();
}

void PanelController::expandAll() {
  std::set<std::string> ids = scanner_->expandedOverrideIDs.get();
  for (std::string& id : allContainerIDs(scanner_->portTree.get())) {
    ids.insert(std::move(id));
  }
  scanner_->expandedOverrideIDs.set(std::move(ids));
}

void PanelController::collapseAll() {
  scanner_->expandedOverrideIDs.set({});
  scanner_->collapseAllEpoch.set(scanner_->collapseAllEpoch.get() + 1);
}

void PanelController::toggle(int index) {
  if (const PanelRow* row = rows_.rowAt(index)) {
    setExpanded(index, !row->isExpanded);
  }
}

void PanelController::setExpanded(int index, bool isExpanded) {
  const PanelRow* row = rows_.rowAt(index);
  if (row == nullptr || !row->canExpand || row->isExpanded == isExpanded) {
    return;
  }
  const std::string id = row->id;
  expansion_.set(id, isExpanded);
  std::set<std::string> overrides = scanner_->expandedOverrideIDs.get();
  if (!isExpanded && overrides.erase(id) > 0) {
    scanner_->expandedOverrideIDs.set(std::move(overrides)); // refreshes the rows
  } else {
    refreshRows();
  }
}

void PanelController::runBenchmark(const QString& mountPoint) const {
  if (actions_.runBenchmark) {
    actions_.runBenchmark(mountPoint.toStdString());
  }
}

void PanelController::stopBenchmark(const QString& mountPoint) const {
  if (actions_.stopBenchmark) {
    actions_.stopBenchmark(mountPoint.toStdString());
  }
}

void PanelController::eject(const QString& mountPoint) const {
  if (actions_.eject) {
    actions_.eject(mountPoint.toStdString());
  }
}

void PanelController::openManual() const {
  if (actions_.openManual) {
    actions_.openManual();
  }
}

void PanelController::close() const {
  if (actions_.closePanel) {
    actions_.closePanel();
  }
}

void PanelController::quit() const {
  if (actions_.quit) {
    actions_.quit();
  }
}

void PanelController::describe() {
  const std::shared_ptr<const Panel> previous =
      std::exchange(panel_, std::make_shared<const Panel>(describePanel(panelInputs(*scanner_))));
  refreshRows();
  if (!previous || previous->state != panel_->state || previous->message != panel_->message ||
      previous->hint != panel_->hint) {
    emit stateChanged();
  }
}

void PanelController::refreshRows() {
  showRows();
  if (updatePulses()) {
    showRows();
  }
}

void PanelController::showRows() {
  std::vector<PanelRow> rows =
      panelRows(panel_, {.expansion = expansion_,
                         .expandedOverrideIDs = scanner_->expandedOverrideIDs.get(),
                         .benchmarks = scanner_->benchmarks.get(),
                         .ejectStates = scanner_->ejectStates.get(),
                         .pulses = pulses_.phases(),
                         .testProgress = scanner_->testProgress.get(),
                         .answers = &answers_.answers()});
  for (const PanelRow& row : rows) {
    if (row.place) {
      expansion_.see(row.id, row.place->startsExpanded);
    }
  }
  rows_.setRows(std::move(rows));
}

/// Cancels the pulses of rows that disappeared. Starts a pulse, and returns true, if a visible row
/// becomes highlighted or the highlighted row appears.
bool PanelController::updatePulses() {
  std::vector<std::string> vanished;
  for (const auto& [id, phase] : pulses_.phases()) {
    if (rows_.indexOf(id) < 0) {
      vanished.push_back(id);
    }
  }
  for (const std::string& id : vanished) {
    pulses_.cancel(id);
  }
  const std::optional<std::string>& highlighted = scanner_->highlightedNodeID.get();
  const bool isShown = highlighted && rows_.indexOf(*highlighted) >= 0;
  const bool begins = isShown && !wasHighlightShown_;
  wasHighlightShown_ = isShown;
  if (begins) {
    pulses_.start(*highlighted);
  }
  return begins;
}

void PanelController::followHighlight() {
  wasHighlightShown_ = false;
  refreshRows();
}

void PanelController::dropExpansion() {
  expansion_.collapseAll(allContainerIDs(scanner_->portTree.get()));
  refreshRows();
}

void PanelController::followTree() {
  if (std::exchange(shownTreeVersion_, scanner_->treeVersion()) != scanner_->treeVersion()) {
    removeVanishedRows();
    describe();
  }
}

void PanelController::removeVanishedRows() {
  std::vector<std::string> ids;
  appendIDs(scanner_->portTree.get(), ids);
  expansion_.keepOnly(ids);
}

} // namespace tamberline
