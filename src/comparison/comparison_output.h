#pragma once

#include "comparison/comparison.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// One line for each change, in the language of the run; `columns` as for `renderTextTrees`.
std::string comparisonText(const std::vector<Change>& changes, bool useColors,
                           std::optional<int> columns = std::nullopt);

/// In the format that docs/technicians.md defines.
nlohmann::ordered_json comparisonDocument(const std::vector<Change>& changes);

} // namespace tamberline
