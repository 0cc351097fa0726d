#pragma once

#include "acquisition/acquisition.h"

#include <QCoro/QCoroTask>
#include <nlohmann/json.hpp>

#include <memory>
#include <optional>
#include <string>

namespace tamberline {

struct ReportError {
  std::string domain;
  int code = 0;
  std::string description;
};

/// The top-level object of one report section, or why there is none.
struct FetchedReport {
  nlohmann::json content;
  std::optional<ReportError> error;
};

/// Set on the main thread to tell running fetches that nobody wants their result any more: a
/// question that was asked is not taken back, but it is not asked again.
struct CancelRequest {
  bool isCancelled = false;
};

/// Asks for one section of the hardware report in the background, and a second time 150 ms after a
/// first answer that was no JSON object. Main thread only.
QCoro::Task<FetchedReport> fetchJSON(Acquisition acquisition, Question section,
                                     std::shared_ptr<const CancelRequest> cancelRequest);

} // namespace tamberline
