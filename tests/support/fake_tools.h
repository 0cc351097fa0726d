#pragma once

#include "acquisition/tool_runner.h"

#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace tamberline {

/// Tools that answer what a test tells them to, by the name of the saved file that would stand for
/// them ("SPUSBDataType.json", "IODeviceTree.plist"). A tool that was told nothing prints nothing.
class FakeTools final : public ToolRunner {
public:
  ToolOutput run(const std::string& executable, const std::vector<std::string>& arguments) override;
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override;

  /// The answer from now on.
  void answer(const std::string& fileName, std::string output);

  /// Answers for the next runs, one each, before the lasting one counts again.
  void answerOnce(const std::string& fileName, std::string output);

  /// The command lines so far, in the order in which they ran.
  std::vector<std::string> commandLines() const;
  /// For tests that run for long and look at the memory they take.
  void forgetCommandLines();
  std::size_t runCount(const std::string& fileName) const;

private:
  mutable std::mutex mutex_;
  std::map<std::string, std::string> answers_;
  std::map<std::string, std::deque<std::string>> answersForOnce_;
  std::vector<std::string> commandLines_;
  std::map<std::string, std::size_t> runCounts_;
};

/// The name of the saved file that would stand for what a command line prints.
std::string savedFileNameFor(const std::string& executable,
                             const std::vector<std::string>& arguments);

/// Empty sections, so that a scan succeeds and finds nothing.
void answerWithEmptyReports(FakeTools& tools);

} // namespace tamberline
