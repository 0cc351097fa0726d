#pragma once

#include "acquisition/kept_answers.h"

#include <map>
#include <optional>
#include <string>

namespace tamberline {

/// The files of a folder of saved reports by name (docs/report-folder.md).
std::map<std::string, std::string> savedFiles(const Answers& answers);

/// The name of the first report without which no program opens the folder; absent if all are there.
std::optional<std::string> missingReport(const Answers& answers);

} // namespace tamberline
