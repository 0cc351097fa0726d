#include "i18n/expected_texts.h"
#include "i18n/loc.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {
namespace {

constexpr AppLanguage::Case languages[] = {AppLanguage::en, AppLanguage::de, AppLanguage::fr,
                                           AppLanguage::it, AppLanguage::es};

std::map<std::string_view, std::string_view (*)()> textsByKey() {
  std::map<std::string_view, std::string_view (*)()> texts;
  for (const Loc::FixedText& entry : Loc::fixedTexts()) {
    texts.emplace(entry.key, entry.text);
  }
  return texts;
}

void expectTexts(const std::vector<ExpectedText>& table) {
  const auto texts = textsByKey();
  for (const ExpectedText& expected : table) {
    for (const AppLanguage::Case language : languages) {
      SCOPED_TRACE(std::string(expected.key) + " in " + std::string(AppLanguage(language).code()));
      const LanguageScope scope(language);
      EXPECT_EQ(texts.at(expected.key)(), expected.texts.at(language));
    }
  }
}

TEST(FixedTexts, LabelsInEveryLanguage) {
  expectTexts(expectedLabels());
}

TEST(FixedTexts, MessagesInEveryLanguage) {
  expectTexts(expectedMessages());
}

TEST(FixedTexts, HintsInEveryLanguage) {
  expectTexts(expectedHints());
}

TEST(FixedTexts, TextsOfCommandsInEveryLanguage) {
  expectTexts(expectedCommandTexts());
}

TEST(FixedTexts, AreAllListedHere) {
  std::multiset<std::string_view> known;
  for (const auto& table :
       {expectedLabels(), expectedMessages(), expectedHints(), expectedCommandTexts()}) {
    for (const ExpectedText& expected : table) {
      known.insert(expected.key);
    }
  }
  std::multiset<std::string_view> offered;
  for (const Loc::FixedText& entry : Loc::fixedTexts()) {
    offered.insert(entry.key);
  }
  EXPECT_EQ(offered, known);
}

TEST(FixedTexts, AreNowhereEmpty) {
  for (const AppLanguage::Case language : languages) {
    const LanguageScope scope(language);
    for (const Loc::FixedText& entry : Loc::fixedTexts()) {
      SCOPED_TRACE(std::string(entry.key) + " in " + std::string(AppLanguage(language).code()));
      EXPECT_FALSE(entry.text().empty());
    }
  }
}

TEST(FixedTexts, HaveTheNameOfTheirFunction) {
  EXPECT_EQ(textsByKey().at("quit")(), Loc::quit());
  EXPECT_EQ(textsByKey().at("hintWhySlow")(), Loc::hintWhySlow());
}

} // namespace
} // namespace tamberline
