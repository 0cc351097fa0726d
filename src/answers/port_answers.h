#pragma once

#include "answers/answer_list.h"
#include "answers/find_answers.h"

namespace tamberline {

/// Ports that give too little power, power without data, devices that do not answer or are blocked.
void findPortAnswers(const AnswerInputs& inputs, AnswerList& answers);

} // namespace tamberline
