#include "support/language_scope.h"
#include "views/panel_answers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

Answer attention(const std::string& nodeID, const std::string& name) {
  return {.weight = AnswerWeight::attention,
          .nodeID = nodeID,
          .headline = name + " is slow",
          .reason = "Its cable is slow.",
          .advice = "Swap it."};
}

Answer note(const std::string& nodeID, const std::string& name) {
  Answer answer = attention(nodeID, name);
  answer.weight = AnswerWeight::note;
  return answer;
}

/// "mark: title: text" in one line, with "/" between paragraphs; "none" if nothing concerns the
/// row.
std::string rowText(const PanelAnswers& answers, const std::string& nodeID, bool isClosed) {
  const auto row = answers.of(nodeID, isClosed);
  if (!row) {
    return "none";
  }
  std::string text = row->text;
  for (std::size_t place = text.find('\n'); place != std::string::npos; place = text.find('\n')) {
    text.replace(place, 1, "/");
  }
  const std::string mark = !row->isShown ? "no mark" : row->needsAttention ? "attention" : "note";
  return mark + ": " + row->title + ": " + text;
}

TEST(PanelAnswers, MarkTheirRowOpenOrClosed) {
  const PanelAnswers answers({attention("/port1/disk", "Disk")});
  const char* const expected = "attention: Disk is slow: Its cable is slow. Swap it.";
  EXPECT_EQ(rowText(answers, "/port1/disk", /*isClosed=*/false), expected);
  EXPECT_EQ(rowText(answers, "/port1/disk", /*isClosed=*/true), expected);
  EXPECT_EQ(rowText(answers, "/port1/other", /*isClosed=*/false), "none");
}

TEST(PanelAnswers, MarkClosedRowsAroundARowThatNeedsAttention) {
  const PanelAnswers answers(
      {attention("/port1/hub/disk", "Disk"), attention("/port1/stick", "Stick")});
  EXPECT_EQ(rowText(answers, "/port1", /*isClosed=*/true),
            "attention: Needs attention: Disk is slow/Stick is slow");
  EXPECT_EQ(rowText(answers, "/port1/hub", /*isClosed=*/true),
            "attention: Needs attention: Disk is slow");
  EXPECT_EQ(rowText(answers, "/port1", /*isClosed=*/false), "none");
  EXPECT_EQ(rowText(answers, "/port2", /*isClosed=*/true), "none");
}

TEST(PanelAnswers, DoNotMarkRowsAroundANote) {
  const PanelAnswers answers({note("/port1/disk", "Disk")});
  EXPECT_EQ(rowText(answers, "/port1/disk", /*isClosed=*/false),
            "note: Disk is slow: Its cable is slow. Swap it.");
  EXPECT_EQ(rowText(answers, "/port1", /*isClosed=*/true), "none");
}

TEST(PanelAnswers, ExplainOtherRowsWithoutAMark) {
  Answer slowHub = attention("/port1/hub", "Hub");
  slowHub.otherNodeIDs = {"/port1/hub/disk"};
  EXPECT_EQ(rowText(PanelAnswers({slowHub}), "/port1/hub/disk", /*isClosed=*/false),
            "no mark: Hub is slow: Its cable is slow. Swap it.");
}

TEST(PanelAnswers, ShowTheirOwnAnswerRatherThanThoseInside) {
  const PanelAnswers answers(
      {attention("/port1/hub", "Hub"), attention("/port1/hub/disk", "Disk")});
  EXPECT_EQ(rowText(answers, "/port1/hub", /*isClosed=*/true),
            "attention: Hub is slow: Its cable is slow. Swap it.");
}

TEST(PanelAnswers, JoinSeveralAboutOneRow) {
  Answer second = note("/port1/disk", "Disk");
  second.reason = "It is old.";
  second.advice = "";
  EXPECT_EQ(rowText(PanelAnswers({attention("/port1/disk", "Disk"), second}), "/port1/disk", false),
            "attention: Disk is slow: Its cable is slow. Swap it./It is old.");
}

std::string stripText(const AnswerStrip& strip) {
  std::string text;
  for (const AnswerLine& line : strip.lines) {
    text += line.nodeID + ": " + line.headline + ": " + line.text + "\n";
  }
  return text + strip.more + "\n" + strip.otherHeadlines;
}

TEST(AnswerStrip, IsEmptyWithoutAttention) {
  EXPECT_EQ(answerStrip({}), AnswerStrip{});
  EXPECT_EQ(answerStrip({note("/port1/disk", "Disk")}), AnswerStrip{});
}

TEST(AnswerStrip, ShowsTwoAndCountsTheOthers) {
  std::vector<Answer> answers = {attention("/a", "A"), attention("/b", "B")};
  EXPECT_EQ(stripText(answerStrip(answers)), "/a: A is slow: Its cable is slow. Swap it.\n"
                                             "/b: B is slow: Its cable is slow. Swap it.\n"
                                             "\n");
  answers.push_back(attention("/c", "C"));
  EXPECT_EQ(answerStrip(answers).more, "1 more problem");
  answers.push_back(attention("/d", "D"));
  answers.push_back(note("/e", "E"));
  EXPECT_EQ(answerStrip(answers).lines.size(), 2U);
  EXPECT_EQ(answerStrip(answers).more, "2 more problems");
  EXPECT_EQ(answerStrip(answers).otherHeadlines, "C is slow\nD is slow");
}

TEST(AnswerStrip, CountsInEveryLanguage) {
  const struct {
    AppLanguage language;
    const char* one;
    const char* two;
  } rows[] = {{AppLanguage::en, "1 more problem", "2 more problems"},
              {AppLanguage::de, "1 weiteres Problem", "2 weitere Probleme"},
              {AppLanguage::fr, "1 autre problème", "2 autres problèmes"},
              {AppLanguage::it, "1 altro problema", "Altri 2 problemi"},
              {AppLanguage::es, "1 problema más", "2 problemas más"}};
  std::vector<Answer> three(3, attention("/a", "A"));
  std::vector<Answer> four(4, attention("/a", "A"));
  for (const auto& row : rows) {
    const LanguageScope scope(row.language);
    EXPECT_EQ(answerStrip(three).more, row.one);
    EXPECT_EQ(answerStrip(four).more, row.two);
  }
}

TEST(ShownAnswers, KeepLinesApartAndTextHarmless) {
  const RowAnswer row{.text = "<b>first</b>\n\u202Esecond"};
  EXPECT_EQ(row.fullText(), QString("<b>first</b>\n\uFFFDsecond"));
}

} // namespace
} // namespace tamberline
