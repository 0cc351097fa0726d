#include "answers/wording.h"
#include "base/utf8.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tamberline {
namespace {

constexpr AppLanguage::Case languages[] = {AppLanguage::en, AppLanguage::de, AppLanguage::fr,
                                           AppLanguage::it, AppLanguage::es};

constexpr LimitingPart parts[] = {LimitingPart::none, LimitingPart::node, LimitingPart::connection,
                                  LimitingPart::cable, LimitingPart::nodeOrConnection};

/// Every kind with the longest values that it can have.
std::vector<Answer> allAnswers() {
  std::vector<Answer> answers;
  for (int kind = 0; !nameOf(static_cast<AnswerKind>(kind)).empty(); ++kind) {
    for (const LimitingPart part : parts) {
      for (const bool isAboutSeveral : {false, true}) {
        Answer answer{.kind = static_cast<AnswerKind>(kind), .limitingPart = part};
        answer.facts = {.actualGbps = 0.48,
                        .possibleGbps = 120,
                        .actualWatts = 112.5,
                        .measuredMBps = 2512.5,
                        .linkMBps = 2424.2,
                        .chargePercent = 100};
        if (kind >= static_cast<int>(AnswerKind::overloadedPort)) {
          answer.facts.possibleGbps = std::nullopt;
          answer.facts.possibleWatts = 240.5;
        }
        if (isAboutSeveral) {
          answer.facts.count = 5000;
        }
        answer.limitingNodeID = isAboutSeveral ? "/limit" : "";
        answers.push_back(answer);
      }
    }
  }
  return answers;
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) {
    text.remove_prefix(decodeFirstCharacter(text).length);
  }
  return count;
}

std::string repeated(std::string_view piece, int count) {
  std::string text;
  for (int index = 0; index < count; ++index) {
    text += piece;
  }
  return text;
}

template <typename Check>
void forEachWordedAnswer(const AnswerNames& names, Check check) {
  for (const AppLanguage::Case language : languages) {
    const LanguageScope scope(language);
    for (Answer answer : allAnswers()) {
      word(answer, names);
      SCOPED_TRACE(std::string(AppLanguage(language).code()) + " " +
                   std::string(nameOf(answer.kind)) + ": " + answer.headline);
      check(answer);
    }
  }
}

TEST(Wording, HeadlinesFitWithNamesOfAnyLength) {
  const std::vector<AnswerNames> allNames = {
      {"SSD", "Hub"},
      {repeated("Ä", 500), "Hub"},
      {"SSD", repeated("Ä", 500)},
      {repeated("Ä", 500), repeated("Ö", 500)},
      {repeated("x", 100'000), ""},
  };
  for (const AnswerNames& names : allNames) {
    forEachWordedAnswer(names, [](const Answer& answer) {
      EXPECT_LE(characterCount(answer.headline), 60U) << answer.headline;
    });
  }
}

TEST(Wording, HeadlinesNameTheNode) {
  forEachWordedAnswer({"Quarry SSD", "Harbour Hub"}, [](const Answer& answer) {
    EXPECT_NE(answer.headline.find("Quarry SSD"), std::string::npos);
  });
}

TEST(Wording, NoArgumentStaysUnfilled) {
  forEachWordedAnswer({"SSD", "Hub"}, [](const Answer& answer) {
    const std::string all = answer.headline + answer.reason + answer.advice;
    EXPECT_EQ(all.find_first_of("{}"), std::string::npos) << all;
    EXPECT_FALSE(answer.reason.empty());
    EXPECT_FALSE(answer.advice.empty());
  });
}

TEST(Wording, ReasonsAreAtMostTwoSentencesAndAdviceIsOne) {
  forEachWordedAnswer({"SSD", "Hub"}, [](const Answer& answer) {
    const auto sentences = [](const std::string& text) {
      std::size_t count = 0;
      for (std::size_t at = text.find('.'); at != std::string::npos; at = text.find('.', at + 1)) {
        count += at + 1 == text.size() || text[at + 1] == ' ' ? 1U : 0U;
      }
      return count;
    };
    EXPECT_GE(sentences(answer.reason), 1U) << answer.reason;
    EXPECT_LE(sentences(answer.reason), 2U) << answer.reason;
    EXPECT_EQ(sentences(answer.advice), 1U) << answer.advice;
  });
}

TEST(Wording, HostileNamesAreSafe) {
  forEachWordedAnswer({"\x1b[31mSSD\u202e {limit}\n", "<b>{device}</b>\xff"},
                      [](const Answer& answer) {
                        const std::string all = answer.headline + answer.reason + answer.advice;
                        EXPECT_EQ(all.find_first_of("\x1b\n\xff"), std::string::npos) << all;
                        EXPECT_EQ(all.find("\u202e"), std::string::npos) << all;
                        EXPECT_TRUE(isValidUtf8(all));
                      });
}

TEST(Wording, NameWithBracesIsNotFilledAgain) {
  Answer answer{.kind = AnswerKind::slowHub, .limitingPart = LimitingPart::node};
  word(answer, {"{limit}", "{device}"});
  EXPECT_EQ(answer.headline, "{limit}: slowed by {device}");
}

TEST(Wording, DeviceWithoutANameHasOne) {
  Answer answer{.kind = AnswerKind::blocked};
  word(answer, {.node = " \t"});
  EXPECT_EQ(answer.headline, "Unnamed device: blocked by the computer");
}

TEST(Wording, LongNamesShareTheHeadline) {
  Answer answer{.kind = AnswerKind::slowHub, .limitingPart = LimitingPart::node};
  word(answer, {repeated("a", 80), "Hub"});
  EXPECT_EQ(answer.headline, repeated("a", 22) + "…" + repeated("a", 22) + ": slowed by Hub");
  word(answer, {"SSD", repeated("b", 80)});
  EXPECT_EQ(answer.headline, "SSD: slowed by " + repeated("b", 22) + "…" + repeated("b", 22));
}

} // namespace
} // namespace tamberline
