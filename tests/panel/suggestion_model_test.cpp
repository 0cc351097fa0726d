#include "panel/suggestion_model.h"
#include "support/counted_signal.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

class SuggestionModelTest : public testing::Test {
protected:
  std::string textAt(int row, const char* role) const {
    return model.data(model.index(row), model.roleNames().key(role)).toString().toStdString();
  }

  SuggestionModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(SuggestionModelTest, ShowsItsEntries) {
  model.setEntries({{"/a", "Quarry SSD", "Quarry", "Port 1 › Dock"}, {"/b", "Keys", "", ""}});
  ASSERT_EQ(model.rowCount(), 2);
  EXPECT_EQ(textAt(0, "name"), "Quarry SSD");
  EXPECT_EQ(textAt(0, "detail"), "Quarry");
  EXPECT_EQ(textAt(0, "breadcrumb"), "Port 1 › Dock");
  EXPECT_EQ(textAt(0, "sentence"), "Quarry SSD, Quarry, Port 1 › Dock");
  EXPECT_EQ(textAt(1, "sentence"), "Keys");
  EXPECT_EQ(model.data(model.index(1), Qt::DisplayRole).toString(), "Keys");
  EXPECT_FALSE(model.data(model.index(1), Qt::DecorationRole).isValid());
  EXPECT_FALSE(model.data({}, Qt::DisplayRole).isValid());
}

TEST_F(SuggestionModelTest, KnowsItsEntriesInsideTheListOnly) {
  model.setEntries({{"/a", "Keys", "", ""}});
  ASSERT_NE(model.entryAt(0), nullptr);
  EXPECT_EQ(model.entryAt(0)->id, "/a");
  EXPECT_EQ(model.entryAt(-1), nullptr);
  EXPECT_EQ(model.entryAt(1), nullptr);
}

TEST_F(SuggestionModelTest, StaysAsItIsWhenNothingDiffers) {
  model.setEntries({{"/a", "Keys", "", ""}});
  const CountedSignal resets(&model, &SuggestionModel::modelReset);
  model.setEntries({{"/a", "Keys", "", ""}});
  EXPECT_EQ(resets.count(), 0);
  model.setEntries({{"/b", "Keys", "", ""}});
  EXPECT_EQ(resets.count(), 1);
}

TEST_F(SuggestionModelTest, MakesHostileNamesHarmless) {
  model.setEntries({{"/a", "a\x1b[31mb", std::string(1'000'000, 'x'), "\u202Eevil"}});
  EXPECT_EQ(textAt(0, "name"), "a\uFFFD[31mb");
  EXPECT_EQ(textAt(0, "breadcrumb"), "\uFFFDevil");
  EXPECT_LE(model.data(model.index(0), SuggestionModel::DetailRole).toString().size(), 121);
  EXPECT_LE(model.data(model.index(0), SuggestionModel::SentenceRole).toString().size(), 2001);
}

} // namespace
} // namespace tamberline
