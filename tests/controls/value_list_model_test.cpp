#include "controls/value_list_model.h"
#include "support/model_recorder.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

class ValueListModelTest : public testing::Test {
protected:
  /// The signals of the model when it changes from one list to the other.
  std::string change(const QVariantList& from, const QVariantList& to) {
    model.setValues(from);
    ModelRecorder recorder(model);
    model.setValues(to);
    EXPECT_EQ(shown(), to);
    return recorder.text();
  }

  QVariantList shown() const {
    QVariantList values;
    for (int row = 0; row < model.rowCount(); ++row) {
      values.push_back(model.index(row).data(ValueListModel::ValueRole));
    }
    return values;
  }

  ValueListModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ValueListModelTest, TellsOfWhatDiffersAndOfNothingElse) {
  EXPECT_EQ(change({}, {1, 2}), "+0..1\n");
  EXPECT_EQ(change({1, 2}, {1, 2}), "");
  EXPECT_EQ(change({1, 2, 3}, {1, 5, 3}), "~1\n");
  EXPECT_EQ(change({1}, {1, 2, 3}), "+1..2\n");
  EXPECT_EQ(change({1, 2, 3}, {1}), "-1..2\n");
  EXPECT_EQ(change({1, 2}, {3}), "~0\n-1\n");
  EXPECT_EQ(change({1}, {2, 3}), "~0\n+1\n");
  EXPECT_EQ(change({1, 2}, {}), "-0..1\n");
}

TEST_F(ValueListModelTest, ComparesMapsByTheirContent) {
  const QVariantMap first{{"name", "Data"}, {"phase", "Writing…"}};
  const QVariantMap second{{"name", "Data"}, {"phase", "Reading…"}};
  EXPECT_EQ(change({first}, {QVariantMap(first)}), "");
  EXPECT_EQ(change({first}, {second}), "~0\n");
}

TEST_F(ValueListModelTest, SaysNothingOfRolesAndRowsThatItHasNot) {
  model.setValues({1});
  EXPECT_FALSE(model.index(0).data(Qt::DisplayRole).isValid());
  EXPECT_FALSE(model.data({}, ValueListModel::ValueRole).isValid());
  EXPECT_EQ(model.rowCount(model.index(0)), 0);
}

} // namespace
} // namespace tamberline
