#pragma once

#include "answers/answer.h"

#include <string>

namespace tamberline {

/// The names of the nodes of an answer, as reported.
struct AnswerNames {
  std::string node = {};
  std::string limit = {};
};

/// Sets the texts of an answer from its other fields.
void word(Answer& answer, const AnswerNames& names);

} // namespace tamberline
