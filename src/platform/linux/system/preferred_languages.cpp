#include "platform/preferred_languages.h"

#include "base/text.h"
#include "platform/linux/system/locale_environment.h"

#include <cstdlib>
#include <string_view>

namespace tamberline {
namespace {

std::string withoutCharacterSet(std::string_view locale) {
  return std::string(locale.substr(0, locale.find_first_of(".@")));
}

std::string languageOf(std::string_view locale) {
  const std::string name = withoutCharacterSet(locale);
  return name == "C" || name == "POSIX" ? "en" : name;
}

} // namespace

std::vector<std::string> languagesPreferredIn(const EnvironmentLookup& environment) {
  for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string locales = environment(variable).value_or("");
    std::vector<std::string> languages;
    for (const std::string_view locale : splitNonEmpty(locales, ':')) {
      languages.push_back(languageOf(locale));
    }
    if (!languages.empty()) {
      return languages;
    }
  }
  return {};
}

std::vector<std::string> preferredLanguages() {
  return languagesPreferredIn([](const char* name) -> std::optional<std::string> {
    const char* value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
  });
}

} // namespace tamberline
