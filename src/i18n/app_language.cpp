#include "i18n/app_language.h"

#include "base/letter_case.h"
#include "base/text.h"

#include <array>

namespace tamberline {
namespace {

constexpr auto codes = std::to_array<std::string_view>({"en", "de", "fr", "it", "es"});
static_assert(codes.size() == AppLanguage::count);

AppLanguage& languageOfThisRun() {
  static AppLanguage language = AppLanguage::en;
  return language;
}

std::string languageCodeOf(std::string_view localeIdentifier) {
  return lowerCased(localeIdentifier.substr(0, localeIdentifier.find_first_of("-_.@")));
}

} // namespace

AppLanguage AppLanguage::current() {
  return languageOfThisRun();
}

void AppLanguage::choose(AppLanguage language) {
  languageOfThisRun() = language;
}

AppLanguage AppLanguage::forPreferredLanguages(const std::vector<std::string>& preferredLanguages) {
  if (preferredLanguages.empty()) {
    return en;
  }
  return forCode(languageCodeOf(preferredLanguages.front())).value_or(en);
}

std::optional<AppLanguage> AppLanguage::forCode(std::string_view code) {
  for (std::size_t index = 0; index < codes.size(); ++index) {
    if (codes[index] == code) {
      return static_cast<Case>(index);
    }
  }
  return std::nullopt;
}

std::string_view AppLanguage::code() const {
  return codes[case_];
}

} // namespace tamberline
