#include "anonymity/anonymiser.h"
#include "anonymity/saved_machines.h"
#include "platform/saved/saved_reports.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

TEST(AnonymisedMachines, HaveNoReplacedTextLeft) {
  std::size_t count = 0;
  for (const auto& folder : savedMachineFolders()) {
    SCOPED_TRACE(folder.filename().string());
    const Answers answers = answersIn(folder);
    const auto anonymised = Anonymiser().anonymised(answers);
    ASSERT_TRUE(anonymised);
    for (const std::string& secret : secretsIn(answers)) {
      ++count;
      for (const auto& [question, answer] : *anonymised) {
        EXPECT_EQ(answer.find(secret), std::string::npos)
            << secret << " in " << savedFileName(question);
      }
    }
  }
  EXPECT_GT(count, 50U);
}

TEST(AnonymisedMachines, HaveTheSameTree) {
  std::size_t withTree = 0;
  for (const auto& folder : savedMachineFolders()) {
    SCOPED_TRACE(folder.filename().string());
    const Answers answers = answersIn(folder);
    const auto anonymised = Anonymiser().anonymised(answers);
    ASSERT_TRUE(anonymised);
    const std::string facts = factsOf(inventoryOfAnswers(answers));
    withTree += facts.empty() ? 0U : 1U;
    EXPECT_EQ(factsOf(inventoryOfAnswers(*anonymised)), facts);
  }
  EXPECT_GE(withTree, 8U);
}

} // namespace
} // namespace tamberline
