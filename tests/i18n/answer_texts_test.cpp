#include "i18n/answer_texts.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

namespace tamberline {
namespace {

constexpr AppLanguage::Case languages[] = {AppLanguage::en, AppLanguage::de, AppLanguage::fr,
                                           AppLanguage::it, AppLanguage::es};

std::string textIn(AppLanguage::Case language, const Loc::FixedText& entry) {
  const LanguageScope scope(language);
  return std::string(entry.text());
}

std::set<std::string> argumentsOf(const std::string& text) {
  static const std::regex argument("\\{[^}]*\\}");
  return {std::sregex_token_iterator(text.begin(), text.end(), argument),
          std::sregex_token_iterator()};
}

TEST(AnswerTexts, HaveTheSameArgumentsInEveryLanguage) {
  for (const Loc::FixedText& entry : Loc::answerTexts()) {
    for (const AppLanguage::Case language : languages) {
      EXPECT_EQ(argumentsOf(textIn(language, entry)), argumentsOf(textIn(AppLanguage::en, entry)))
          << entry.key << " in " << AppLanguage(language).code();
    }
  }
}

TEST(AnswerTexts, DifferBetweenLanguages) {
  for (const Loc::FixedText& entry : Loc::answerTexts()) {
    std::set<std::string> texts;
    for (const AppLanguage::Case language : languages) {
      texts.insert(textIn(language, entry));
    }
    EXPECT_EQ(texts.size(), AppLanguage::count) << entry.key;
    EXPECT_EQ(texts.count(""), 0U) << entry.key;
  }
}

TEST(AnswerTexts, FrenchHasANarrowBlankBeforeDoublePunctuation) {
  for (const Loc::FixedText& entry : Loc::answerTexts()) {
    const std::string text = textIn(AppLanguage::fr, entry);
    for (const char mark : std::string(";:!?")) {
      for (std::size_t at = text.find(mark); at != std::string::npos;
           at = text.find(mark, at + 1)) {
        EXPECT_TRUE(text.substr(0, at).ends_with("\u202f")) << text;
      }
    }
  }
}

TEST(AnswerTexts, AreFilledOnce) {
  EXPECT_EQ(Loc::filled("{a} and {b}", {{"a", "{b}"}, {"b", "x"}}), "{b} and x");
}

TEST(AnswerTexts, UnknownNamesAndLooseBracesStay) {
  EXPECT_EQ(Loc::filled("{c} { }{a", {{"a", "x"}}), "{c} { }{a");
  EXPECT_EQ(Loc::filled("", {{"a", "x"}}), "");
  EXPECT_EQ(Loc::filled("{a}{a}", {{"a", "x"}}), "xx");
}

} // namespace
} // namespace tamberline
