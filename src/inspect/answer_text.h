#pragma once

#include "answers/answer.h"

#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// Each answer with its reason and its advice; empty without answers. The parameters are those of
/// `renderTextTrees`.
std::string answerText(const std::vector<Answer>& answers, bool useColors,
                       std::optional<int> columns = std::nullopt);

} // namespace tamberline
