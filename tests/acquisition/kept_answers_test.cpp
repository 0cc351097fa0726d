#include "acquisition/kept_answers.h"
#include "support/fake_machine.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(KeptAnswers, AreHandedOnAndKept) {
  const auto machine = std::make_shared<FakeMachine>();
  machine->answer(Question::usb, "first");
  KeptAnswers kept(machine);
  EXPECT_EQ(kept.answer(Question::usb), "first");
  EXPECT_EQ(kept.answers(), (Answers{{Question::usb, "first"}}));
  machine->answer(Question::usb, "second");
  EXPECT_EQ(kept.answer(Question::usb), "second");
  EXPECT_EQ(kept.answers(), (Answers{{Question::usb, "second"}}));
}

TEST(KeptAnswers, OutliveAnEmptyAnswer) {
  const auto machine = std::make_shared<FakeMachine>();
  machine->answer(Question::power, "known");
  KeptAnswers kept(machine);
  kept.answer(Question::power);
  machine->answer(Question::power, "");
  EXPECT_EQ(kept.answer(Question::power), "");
  EXPECT_EQ(kept.answers().at(Question::power), "known");
}

} // namespace
} // namespace tamberline
