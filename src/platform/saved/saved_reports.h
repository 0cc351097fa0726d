#pragma once

#include "acquisition/machine_source.h"

#include <filesystem>
#include <memory>
#include <string>

namespace tamberline {

/// The name of the file that holds the answer in a folder of saved reports.
const char* savedFileName(Question question);

/// Answers from a folder of saved reports (docs/report-folder.md): each file holds the output of
/// one tool. A missing or unreadable file counts as empty output.
class SavedReports final : public MachineSource {
public:
  explicit SavedReports(std::filesystem::path folder);

  std::string answer(Question question) override;

private:
  std::filesystem::path folder_;
};

/// Answers in the same format for reports from every release of the system. The mount table is not
/// saved, so reports from releases whose USB section has no volumes show none.
std::shared_ptr<MachineSource> savedMachine(const std::filesystem::path& folder);

} // namespace tamberline
