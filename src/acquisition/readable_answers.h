#pragma once

#include "acquisition/kept_answers.h"

#include <vector>

namespace tamberline {

/// Whether an answer to the question is a section of the hardware report. Otherwise it is a dump, a
/// property list.
bool asksForSection(Question question);

/// The questions whose answers cannot be parsed: truncated ones, for example.
std::vector<Question> unreadableAnswers(const Answers& answers);

} // namespace tamberline
