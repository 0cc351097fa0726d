#include "i18n/app_language.h"
#include "i18n/loc.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tamberline {
namespace {

TEST(AppLanguage, HasFiveCasesInAFixedOrder) {
  EXPECT_EQ(AppLanguage::en, 0);
  EXPECT_EQ(AppLanguage::de, 1);
  EXPECT_EQ(AppLanguage::fr, 2);
  EXPECT_EQ(AppLanguage::it, 3);
  EXPECT_EQ(AppLanguage::es, 4);
  EXPECT_EQ(AppLanguage::count, 5);
}

struct Preference {
  std::vector<std::string> preferredLanguages;
  AppLanguage::Case language;
};

TEST(AppLanguage, IsTheFirstPreferredLanguage) {
  const Preference preferences[] = {
      {{"en-US"}, AppLanguage::en},        {{"de"}, AppLanguage::de},
      {{"de-AT"}, AppLanguage::de},        {{"de-CH", "fr-CH"}, AppLanguage::de},
      {{"fr-CA"}, AppLanguage::fr},        {{"it_IT.UTF-8"}, AppLanguage::it},
      {{"es-419"}, AppLanguage::es},       {{"es@euro"}, AppLanguage::es},
      {{"fr.ISO8859-1"}, AppLanguage::fr}, {{"DE-de"}, AppLanguage::de},
      {{"de-Latn-DE"}, AppLanguage::de},
  };
  for (const auto& [preferredLanguages, language] : preferences) {
    SCOPED_TRACE(preferredLanguages.front());
    EXPECT_EQ(AppLanguage::forPreferredLanguages(preferredLanguages), language);
  }
}

TEST(AppLanguage, IsEnglishWhenTheFirstPreferredLanguageIsNotOffered) {
  const std::vector<std::string> preferences[] = {
      {"pt-BR", "de-DE"},
      {"nl"},
      {"zh-Hans"},
      {"gsw-CH", "de-CH"},
      {"C"},
      {"", "de"},
      {"-de"},
      {"_de"},
      {"d"},
      {"dex"},
      {"🇩🇪"},
  };
  for (const std::vector<std::string>& preferredLanguages : preferences) {
    SCOPED_TRACE(preferredLanguages.front());
    EXPECT_EQ(AppLanguage::forPreferredLanguages(preferredLanguages), AppLanguage::en);
  }
}

TEST(AppLanguage, IsEnglishWithoutAnyPreference) {
  EXPECT_EQ(AppLanguage::forPreferredLanguages({}), AppLanguage::en);
}

TEST(AppLanguage, IsFoundByItsOwnCode) {
  for (const std::string_view code : {"en", "de", "fr", "it", "es"}) {
    SCOPED_TRACE(code);
    const auto language = AppLanguage::forCode(code);
    ASSERT_TRUE(language);
    EXPECT_EQ(language->code(), code);
  }
}

TEST(AppLanguage, IsFoundOnlyByItsCode) {
  for (const std::string_view code : {"", "pt", "DE", "de-DE", " de", "e", "eng"}) {
    SCOPED_TRACE(code);
    EXPECT_FALSE(AppLanguage::forCode(code));
  }
}

TEST(AppLanguage, IsEnglishUntilOneIsChosen) {
  EXPECT_EQ(AppLanguage::current(), AppLanguage::en);
}

TEST(AppLanguage, StaysAsChosenForEveryText) {
  const LanguageScope scope(AppLanguage::forPreferredLanguages({"de-AT", "fr"}));
  EXPECT_EQ(AppLanguage::current(), AppLanguage::de);
  EXPECT_EQ(Loc::quit(), "Beenden");
  EXPECT_EQ(Loc::items(2), "2 Geräte");
  EXPECT_EQ(Loc::hintCollapseAll(), "Alles einklappen");
}

} // namespace
} // namespace tamberline
