#include "inspect/answer_text.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

const std::vector<Answer> answers = {{.kind = AnswerKind::slowConnection,
                                      .weight = AnswerWeight::attention,
                                      .headline = "SSD: slowed by its cable",
                                      .reason = "It could run faster.",
                                      .advice = "Replace the cable."},
                                     {.kind = AnswerKind::unknownAbility,
                                      .weight = AnswerWeight::note,
                                      .headline = "Stick: slower than its port",
                                      .reason = "It runs at 480 Mb/s.",
                                      .advice = "Look it up."}};

TEST(AnswerText, HasReasonAndAdviceBelowTheHeadline) {
  EXPECT_EQ(answerText(answers, /*useColors=*/false), "! SSD: slowed by its cable\n"
                                                      "   It could run faster.\n"
                                                      "   → Replace the cable.\n"
                                                      "\n"
                                                      "· Stick: slower than its port\n"
                                                      "   It runs at 480 Mb/s.\n"
                                                      "   → Look it up.\n");
}

TEST(AnswerText, IsEmptyWithoutAnswers) {
  EXPECT_EQ(answerText({}, /*useColors=*/false), "");
}

TEST(AnswerText, IsWrapped) {
  EXPECT_EQ(answerText({answers[0]}, /*useColors=*/false, 24), "! SSD: slowed by its\n"
                                                               "     cable\n"
                                                               "   It could run faster.\n"
                                                               "   → Replace the cable.\n");
}

TEST(AnswerText, MarksAttentionWithAColor) {
  const std::string text = answerText(answers, /*useColors=*/true);
  EXPECT_NE(text.find("\x1b[1;38;5;208mSSD: slowed by its cable"), std::string::npos) << text;
  EXPECT_EQ(text.find("208mStick"), std::string::npos) << text;
}

} // namespace
} // namespace tamberline
