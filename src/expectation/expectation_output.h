#pragma once

#include "expectation/expectation_check.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// One line for each expectation, in the language of the run; `columns` as for `renderTextTrees`.
std::string expectationText(const std::vector<CheckedExpectation>& checked,
                            const Inventory& inventory, bool useColors,
                            std::optional<int> columns = std::nullopt);

/// For programs that run tests: the Test Anything Protocol, version 14.
std::string expectationTap(const std::vector<CheckedExpectation>& checked,
                           const Inventory& inventory);

/// In the format that docs/technicians.md defines.
nlohmann::ordered_json expectationDocument(const std::vector<CheckedExpectation>& checked,
                                           const Inventory& inventory);

bool areAllMet(const std::vector<CheckedExpectation>& checked);

} // namespace tamberline
