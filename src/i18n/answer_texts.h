// The texts of answers. They contain the names of their arguments in braces, which `filled`
// replaces.
#pragma once

#include "i18n/loc.h"

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace tamberline::Loc {

#define TAMBERLINE_TEXT(key, en, de, fr, it, es) std::string_view key();
#include "i18n/answer_texts.def"
#undef TAMBERLINE_TEXT

/// All of them, for tests that no language is missing.
std::span<const FixedText> answerTexts();

struct Argument {
  std::string_view name; // without braces
  std::string_view value;
};

/// The text with its arguments; braces in a value have no meaning. A name without an argument stays
/// as it is.
std::string filled(std::string_view text, std::initializer_list<Argument> arguments);

} // namespace tamberline::Loc
