#include "acquisition/kept_answers.h"

#include <utility>

namespace tamberline {

KeptAnswers::KeptAnswers(std::shared_ptr<MachineSource> machine) : machine_(std::move(machine)) {}

std::string KeptAnswers::answer(Question question) {
  std::string answer = machine_->answer(question);
  if (!answer.empty()) {
    const std::lock_guard lock(mutex_);
    answers_[question] = answer;
  }
  return answer;
}

Answers KeptAnswers::answers() const {
  const std::lock_guard lock(mutex_);
  return answers_;
}

} // namespace tamberline
