#pragma once

#include "acquisition/acquisition.h"
#include "acquisition/machine_answer.h"

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

/// The answer for one report section with its top-level object, or the error because of which there
/// is none.
struct FetchedReport {
  MachineAnswer answer;
  /// Null if the answer is the known one, which is not decoded again.
  nlohmann::json content;
  std::optional<ReportError> error;
};

/// Set on the main thread when the result of running fetches is no longer needed. It does not
/// interrupt a question, but prevents a second attempt.
struct CancelRequest {
  bool isCancelled = false;
};

/// Requests one section of the hardware report in the background. If the answer is not a JSON
/// object, it tries a second time after 150 ms. `known` is the digest of an answer that was read
/// before. Main thread only.
QCoro::Task<FetchedReport> fetchJSON(Acquisition acquisition, Question section,
                                     std::shared_ptr<const CancelRequest> cancelRequest,
                                     AnswerDigest known = {});

} // namespace tamberline
