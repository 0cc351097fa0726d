#include "acquisition/fetch_json.h"

#include "async/awaitables.h"
#include "reports/report_decoding.h"

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds retryInterval{150};

/// Absent if the answer is not a report.
QCoro::Task<std::optional<FetchedReport>> attemptReport(Acquisition acquisition, Question section,
                                                        AnswerDigest known) {
  auto asking = ask(std::move(acquisition), section);
  MachineAnswer answer = co_await asking;
  FetchedReport report;
  report.answer = std::move(answer);
  if (report.answer.digest == known) {
    co_return report;
  }
  std::optional<nlohmann::json> content = decodeReport(report.answer.text);
  if (!content) {
    co_return std::nullopt;
  }
  report.content = std::move(*content);
  co_return report;
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
                                     std::shared_ptr<const CancelRequest> cancelRequest,
                                     AnswerDigest known) {
  auto firstAttempt = attemptReport(acquisition, section, known);
  std::optional<FetchedReport> report = co_await firstAttempt;
  if (!report && !cancelRequest->isCancelled) {
    Delay pause(acquisition.queue, retryInterval);
    co_await pause;
    if (!cancelRequest->isCancelled) {
      auto secondAttempt = attemptReport(acquisition, section, known);
      report = co_await secondAttempt;
    }
  }
  if (report) {
    co_return std::move(*report);
  }
  FetchedReport failed;
  failed.error = ReportError{
      .domain = "Tamberline", .code = 1, .description = "Could not parse " + nameOf(section)};
  co_return failed;
}

} // namespace tamberline
