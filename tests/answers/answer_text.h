#pragma once

#include "answers/answer.h"

#include <string>
#include <vector>

namespace tamberline {

/// One line for each answer: its weight, its kind, the node that it is about, and the one that
/// limits. "none" without answers.
///
///     attention slowHub /port1/usb:SSD: node /port1/usb:Hub
std::string answersText(const std::vector<Answer>& answers);

} // namespace tamberline
