#pragma once

#include "acquisition/machine_source.h"

#include <filesystem>
#include <memory>
#include <string>

namespace tamberline {

/// The file of a folder of saved reports that holds the answer.
const char* savedFileName(Question question);

/// Answers from a folder of saved reports (docs/report-folder.md): each file holds what one tool
/// wrote. A file that is missing or unreadable stands for a tool that wrote nothing.
class SavedReports final : public MachineSource {
public:
  explicit SavedReports(std::filesystem::path folder);

  std::string answer(Question question) override;

private:
  std::filesystem::path folder_;
};

/// Answers from the folder alike for every release of the system. What was mounted is not saved: a
/// machine of a release whose USB report knows no volumes shows none.
std::shared_ptr<MachineSource> savedMachine(const std::filesystem::path& folder);

} // namespace tamberline
