#pragma once

#include "answers/answer_list.h"
#include "answers/find_answers.h"

namespace tamberline {

/// Which USB devices are slower than they could be, and what a speed test of their volumes shows.
void findUSBSpeedAnswers(const AnswerInputs& inputs, AnswerList& answers);

} // namespace tamberline
