#include "acquisition/fetch_json.h"

#include "acquisition/tool_commands.h"
#include "async/awaitables.h"
#include "reports/report_decoding.h"

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds pauseBetweenAttempts{150};

/// One run of the tool; absent when it gave no report.
QCoro::Task<std::optional<nlohmann::json>> attemptReport(Acquisition acquisition,
                                                         std::string type) {
  InBackground<ToolOutput> toolRun(acquisition.queue,
                                   [tools = acquisition.tools, command = reportCommand(type)] {
                                     return tools->run(command.executable, command.arguments);
                                   });
  const ToolOutput output = co_await toolRun;
  co_return decodeReport(output.standardOutput);
}

} // namespace

QCoro::Task<FetchedReport> fetchJSON(Acquisition acquisition, std::string type,
                                     std::shared_ptr<const CancelRequest> cancelRequest) {
  auto firstAttempt = attemptReport(acquisition, type);
  std::optional<nlohmann::json> report = co_await firstAttempt;
  if (!report && !cancelRequest->isCancelled) {
    Delay pause(acquisition.queue, pauseBetweenAttempts);
    co_await pause;
    if (!cancelRequest->isCancelled) {
      auto secondAttempt = attemptReport(acquisition, type);
      report = co_await secondAttempt;
    }
  }
  FetchedReport fetched;
  if (report) {
    fetched.content = std::move(*report);
  } else {
    fetched.error =
        ReportError{.domain = "Tamberline", .code = 1, .description = "Could not parse " + type};
  }
  co_return fetched;
}

} // namespace tamberline
