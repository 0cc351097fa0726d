#pragma once

#include "acquisition/machine_source.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace tamberline {

using Answers = std::map<Question, std::string>;

/// Hands on the answers of another source and keeps the last one to each question, so that what a
/// scan was made from can be saved. An empty answer does not replace an earlier one.
class KeptAnswers final : public MachineSource {
public:
  explicit KeptAnswers(std::shared_ptr<MachineSource> machine);

  std::string answer(Question question) override;

  Answers answers() const;

private:
  std::shared_ptr<MachineSource> machine_;
  mutable std::mutex mutex_; // background tasks of a scan ask at the same time
  Answers answers_;
};

} // namespace tamberline
