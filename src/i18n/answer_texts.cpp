#include "i18n/answer_texts.h"

#include "i18n/app_language.h"

#include <algorithm>
#include <array>

namespace tamberline::Loc {

#define TAMBERLINE_TEXT(key, en, de, fr, it, es)                                                   \
  std::string_view key() {                                                                         \
    static constexpr std::array<std::string_view, AppLanguage::count> texts = {en, de, fr, it,     \
                                                                               es};                \
    return texts.at(AppLanguage::current());                                                       \
  }
#include "i18n/answer_texts.def"
#undef TAMBERLINE_TEXT

std::span<const FixedText> answerTexts() {
  static constexpr auto texts = std::to_array<FixedText>({
#define TAMBERLINE_TEXT(key, en, de, fr, it, es) {#key, &(key)},
#include "i18n/answer_texts.def"
#undef TAMBERLINE_TEXT
  });
  return texts;
}

std::string filled(std::string_view text, std::initializer_list<Argument> arguments) {
  std::string result;
  while (!text.empty()) {
    const std::size_t open = std::min(text.find('{'), text.size());
    result += text.substr(0, open);
    text.remove_prefix(open);
    const auto* const argument =
        std::find_if(arguments.begin(), arguments.end(), [&](const Argument& candidate) {
          return text.starts_with("{" + std::string(candidate.name) + "}");
        });
    if (argument != arguments.end()) {
      result += argument->value;
      text.remove_prefix(argument->name.size() + 2);
    } else if (!text.empty()) {
      result += text.front();
      text.remove_prefix(1);
    }
  }
  return result;
}

} // namespace tamberline::Loc
