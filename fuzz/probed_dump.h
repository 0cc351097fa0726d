#pragma once

#include "acquisition/registry_probes.h"
#include "fuzz_target.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline {

template <typename Result>
QCoro::Task<> storeResult(QCoro::Task<Result> probe,
                          std::shared_ptr<std::optional<Result>> result) {
  result->emplace(co_await probe);
}

/// What a probe finds when `dump` is the answer to its question.
template <typename Result>
Result probedDump(QCoro::Task<Result> (*fetch)(Acquisition), Question question,
                  std::string_view dump) {
  const auto tools = std::make_shared<FakeTools>();
  const auto queue = std::make_shared<HandDrivenQueue>();
  const auto result = std::make_shared<std::optional<Result>>();
  tools->answer(question, std::string(dump));
  storeResult(fetch({tools, queue}), result);
  queue->settle();
  require(result->has_value(), "a probe ends");
  return **result;
}

} // namespace tamberline
