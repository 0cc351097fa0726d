// What every text without an argument says, written down a second time: a text that is changed by
// accident differs from its twin here.
#pragma once

#include "i18n/app_language.h"

#include <array>
#include <string_view>
#include <vector>

namespace tamberline {

struct ExpectedText {
  std::string_view key;
  /// English, German, French, Italian, Spanish.
  std::array<std::string_view, AppLanguage::count> texts;
};

std::vector<ExpectedText> expectedLabels();
std::vector<ExpectedText> expectedMessages();
std::vector<ExpectedText> expectedHints();

} // namespace tamberline
