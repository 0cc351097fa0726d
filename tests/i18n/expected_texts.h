// Every text without an argument, written down a second time: an accidental change of a text
// differs from the copy here.
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

std::vector<ExpectedText> expectedCommandTexts();
std::vector<ExpectedText> expectedLabels();
std::vector<ExpectedText> expectedMessages();
std::vector<ExpectedText> expectedHints();

} // namespace tamberline
