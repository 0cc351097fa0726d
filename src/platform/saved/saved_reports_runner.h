#pragma once

#include "acquisition/tool_runner.h"

#include <filesystem>
#include <memory>

namespace tamberline {

/// Answers for the tools from a folder of saved reports (docs/report-folder.md): each file holds
/// what one tool wrote. A file that is missing or unreadable stands for a tool that wrote nothing.
class SavedReportsRunner final : public ToolRunner {
public:
  explicit SavedReportsRunner(std::filesystem::path folder);

  ToolOutput run(const std::string& executable, const std::vector<std::string>& arguments) override;
  /// The same: nobody saves what a tool writes to standard error.
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override;

private:
  std::filesystem::path folder_;
};

/// Tools that answer from the folder as the tools of every release of the system do. What was
/// mounted is not saved: a machine of a release whose USB report knows no volumes shows none.
std::shared_ptr<ToolRunner> savedMachineTools(const std::filesystem::path& folder);

} // namespace tamberline
