#pragma once

#include "answers/answer_list.h"
#include "answers/find_answers.h"

namespace tamberline {

/// Why the battery does not charge, or slowly.
void findPowerAnswers(const AnswerInputs& inputs, AnswerList& answers);

} // namespace tamberline
