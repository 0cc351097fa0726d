#pragma once

#include "answers/answer.h"
#include "answers/wording.h"

#include <utility>
#include <vector>

namespace tamberline {

/// Collects answers in the order in which they are found.
class AnswerList {
public:
  /// The texts are still missing.
  void add(Answer answer, const AnswerNames& names) {
    word(answer, names);
    answers_.push_back(std::move(answer));
  }

  std::vector<Answer> take() { return std::move(answers_); }

private:
  std::vector<Answer> answers_;
};

} // namespace tamberline
