#include "i18n/app_language.h"
#include "platform/linux/system/locale_environment.h"
#include "platform/preferred_languages.h"

#include <gtest/gtest.h>

#include <map>

namespace tamberline {
namespace {

using Environment = std::map<std::string, std::string>;

std::vector<std::string> preferredIn(const Environment& environment) {
  return languagesPreferredIn([&](const char* name) -> std::optional<std::string> {
    const auto found = environment.find(name);
    return found == environment.end() ? std::nullopt : std::optional(found->second);
  });
}

TEST(PreferredLanguages, ComeFromTheFirstVariableThatIsSet) {
  const struct {
    Environment environment;
    std::vector<std::string> expected;
  } table[] = {
      {{}, {}},
      {{{"LANG", ""}}, {}},
      {{{"LANG", "de_AT.UTF-8"}}, {"de_AT"}},
      {{{"LC_MESSAGES", "fr_FR.UTF-8"}, {"LANG", "de_DE.UTF-8"}}, {"fr_FR"}},
      {{{"LC_ALL", "it_IT"}, {"LC_MESSAGES", "fr_FR"}, {"LANG", "de_DE"}}, {"it_IT"}},
      {{{"LANGUAGE", "es"}, {"LC_ALL", "it_IT"}}, {"es"}},
      {{{"LANGUAGE", ""}, {"LC_ALL", ""}, {"LANG", "it_IT"}}, {"it_IT"}},
      {{{"LANGUAGE", "pt_BR:de:en"}}, {"pt_BR", "de", "en"}},
      {{{"LANGUAGE", ":de"}}, {"de"}},
      {{{"LANGUAGE", "de_AT.UTF-8:fr_FR.UTF-8:es_ES.UTF-8:it_IT.UTF-8@euro"}},
       {"de_AT", "fr_FR", "es_ES", "it_IT"}},
      {{{"LANG", "de_DE@euro"}}, {"de_DE"}},
      {{{"LANG", "C"}}, {"en"}},
      {{{"LANG", "POSIX"}}, {"en"}},
      {{{"LC_ALL", "C.UTF-8"}, {"LANG", "de_DE.UTF-8"}}, {"en"}},
  };
  for (const auto& row : table) {
    EXPECT_EQ(preferredIn(row.environment), row.expected);
  }
}

TEST(PreferredLanguages, ChooseTheLanguageOfTheTexts) {
  const struct {
    Environment environment;
    AppLanguage expected;
  } table[] = {
      {{}, AppLanguage::en},
      {{{"LANG", "de_CH.UTF-8"}}, AppLanguage::de},
      {{{"LANGUAGE", "pt_BR:de"}}, AppLanguage::en},
      {{{"LC_ALL", "C"}, {"LANG", "de_DE"}}, AppLanguage::en},
      {{{"LANGUAGE", "fr:de"}}, AppLanguage::fr},
  };
  for (const auto& row : table) {
    EXPECT_EQ(AppLanguage::forPreferredLanguages(preferredIn(row.environment)), row.expected);
  }
}

TEST(PreferredLanguages, ReadTheEnvironmentOfTheProcess) {
  setenv("LANGUAGE", "es:de", 1);
  EXPECT_EQ(preferredLanguages(), (std::vector<std::string>{"es", "de"}));
  unsetenv("LANGUAGE");
}

} // namespace
} // namespace tamberline
