#include "acquisition/fetch_json.h"

#include "async/awaitables.h"
#include "reports/report_decoding.h"

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds retryInterval{150};

/// Absent if the answer is not a report.
QCoro::Task<std::optional<nlohmann::json>> attemptReport(Acquisition acquisition,
                                                         Question section) {
  InBackground<std::string> asking(acquisition.queue, [machine = acquisition.machine, section] {
    return machine->answer(section);
  });
  const std::string answer = co_await asking;
  co_return decodeReport(answer);
}

/// The name of the section in the error.
std::string nameOf(Question section) {
  switch (section) {
  case Question::thunderbolt:
    return thunderboltSectionKey;
  case Question::usb:
    return usbSectionKey;
  case Question::power:
    return powerSectionKey;
  default:
    return {};
  }
}

} // namespace

QCoro::Task<FetchedReport> fetchJSON(Acquisition acquisition, Question section,
                                     std::shared_ptr<const CancelRequest> cancelRequest) {
  auto firstAttempt = attemptReport(acquisition, section);
  std::optional<nlohmann::json> report = co_await firstAttempt;
  if (!report && !cancelRequest->isCancelled) {
    Delay pause(acquisition.queue, retryInterval);
    co_await pause;
    if (!cancelRequest->isCancelled) {
      auto secondAttempt = attemptReport(acquisition, section);
      report = co_await secondAttempt;
    }
  }
  FetchedReport fetched;
  if (report) {
    fetched.content = std::move(*report);
  } else {
    fetched.error = ReportError{
        .domain = "Tamberline", .code = 1, .description = "Could not parse " + nameOf(section)};
  }
  co_return fetched;
}

} // namespace tamberline
