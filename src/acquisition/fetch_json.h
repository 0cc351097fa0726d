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

/// Set on the main thread to tell running fetches that nobody wants their result any more: a tool
/// that runs is not ended, but none is started again.
struct CancelRequest {
  bool isCancelled = false;
};

/// Runs the hardware report tool for one section ("SPUSBDataType", say) in the background, with a
/// second attempt 150 ms after a first one that gave no JSON object. Main thread only.
QCoro::Task<FetchedReport> fetchJSON(Acquisition acquisition, std::string type,
                                     std::shared_ptr<const CancelRequest> cancelRequest);

} // namespace tamberline
