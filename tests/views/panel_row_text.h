#pragma once

#include "views/panel_rows.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace tamberline {

/// The states that rows show in addition to the panel's description; the test fills them in.
struct SampleStates {
  std::vector<PanelRow> rowsOf(const Panel& panel) const {
    return panelRows(std::make_shared<const Panel>(panel), {.expansion = expansion,
                                                            .expandedOverrideIDs = overrides,
                                                            .benchmarks = benchmarks,
                                                            .ejectStates = ejectStates,
                                                            .pulses = pulses,
                                                            .testProgress = testProgress});
  }

  RowExpansion expansion = {};
  std::set<std::string> overrides = {};
  std::map<std::string, BenchmarkPhase> benchmarks = {};
  std::map<std::string, EjectState> ejectStates = {};
  std::map<std::string, Pulse> pulses = {};
  std::map<std::string, int> testProgress = {};
};

/// One line for each row: indentation for its depth, kind, identifier, and special properties.
std::string rowText(const std::vector<PanelRow>& rows);

} // namespace tamberline
