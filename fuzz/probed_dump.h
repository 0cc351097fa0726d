#pragma once

#include "acquisition/registry_probes.h"
#include "fuzz_target.h"
#include "support/fake_machine.h"
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
  const auto machine = std::make_shared<FakeMachine>();
  const auto queue = std::make_shared<HandDrivenQueue>();
  const auto result = std::make_shared<std::optional<Result>>();
  machine->answer(question, std::string(dump));
  storeResult(fetch({machine, queue}), result);
  queue->settle();
  require(result->has_value(), "a probe ends");
  return **result;
}

} // namespace tamberline
