#include "panel/panel_list_model.h"
#include "support/model_recorder.h"
#include "support/sample_records.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

ExpandableRow device(const std::string& id, const std::string& name = {}) {
  return {.id = id, .content = USBDeviceDetailRow{.name = name.empty() ? id : name}};
}

ExpandableRow dock(const std::string& id) {
  return {.id = id,
          .depth = 2,
          .isLast = true,
          .tint = {Color::Accent, 0.05},
          .content = TBDeviceRow{.name = id}};
}

/// A bus, whose rows are always shown.
Card bus(const std::string& id, std::vector<ExpandableRow> rows = {}) {
  return StandaloneUSBCard{.id = id, .header = {.name = id}, .rows = std::move(rows)};
}

class PanelListModelTest : public testing::Test {
protected:
  void show(std::vector<Card> cards, const std::map<std::string, Pulse>& pulses = {}) {
    const Panel panel{.state = Panel::State::Cards, .cards = std::move(cards)};
    model.setRows(panelRows(std::make_shared<const Panel>(panel), {.expansion = {},
                                                                   .expandedOverrideIDs = {},
                                                                   .benchmarks = {},
                                                                   .ejectStates = {},
                                                                   .pulses = pulses}));
  }

  QVariant at(int row, const char* role) const {
    return model.data(model.index(row), model.roleNames().key(role));
  }

  std::string ids() const {
    std::string text;
    for (int row = 0; row < model.rowCount(); ++row) {
      text += (text.empty() ? "" : " ") + at(row, "rowId").toString().toStdString();
    }
    return text;
  }

  PanelListModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  ModelRecorder recorder{model};
};

TEST_F(PanelListModelTest, IsEmptyAtFirst) {
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_EQ(model.rowAt(0), nullptr);
  EXPECT_EQ(model.indexOf("a"), -1);
}

TEST_F(PanelListModelTest, ShowsRows) {
  show({bus("a", {device("b"), dock("c")}), ChargerCard{.id = "d", .header = {.title = "Adapter"}}},
       {{"c", Pulse::Throbbing}});
  EXPECT_EQ(ids(), "a b c d");
  EXPECT_EQ(at(0, "kind").toInt(), static_cast<int>(PanelRow::Kind::BusHeader));
  EXPECT_EQ(at(1, "kind").toInt(), static_cast<int>(PanelRow::Kind::UsbDevice));
  EXPECT_EQ(at(2, "kind").toInt(), static_cast<int>(PanelRow::Kind::TbDevice));
  EXPECT_EQ(at(0, "content").value<USBBusHeaderRow>().name, "a");
  EXPECT_EQ(at(2, "content").value<TBDeviceRow>().name, "c");
  EXPECT_EQ(at(2, "sentence"), "c");
  EXPECT_EQ(model.data(model.index(3), Qt::DisplayRole), "Adapter, Power Adapter, not charging");
  EXPECT_TRUE(at(0, "isFirstOfCard").toBool());
  EXPECT_FALSE(at(1, "isFirstOfCard").toBool());
  EXPECT_TRUE(at(2, "isLastOfCard").toBool());
  EXPECT_EQ(at(0, "depth"), 0);
  EXPECT_EQ(at(2, "depth"), 2);
  EXPECT_FALSE(at(0, "isLast").toBool());
  EXPECT_TRUE(at(2, "isLast").toBool());
  EXPECT_EQ(at(0, "tint").value<Tint>(), Tint());
  EXPECT_EQ(at(2, "tint").value<Tint>(), (Tint{Color::Accent, 0.05}));
  EXPECT_EQ(at(1, "pulse").toInt(), static_cast<int>(Pulse::None));
  EXPECT_EQ(at(2, "pulse").toInt(), static_cast<int>(Pulse::Throbbing));
  EXPECT_FALSE(at(0, "canExpand").toBool());
  EXPECT_FALSE(at(0, "isExpanded").toBool());
}

TEST_F(PanelListModelTest, KnowsNothingOutsideItsRolesAndRows) {
  show({bus("a")});
  EXPECT_FALSE(model.data(model.index(0), Qt::DecorationRole).isValid());
  EXPECT_FALSE(model.data({}, Qt::DisplayRole).isValid());
  EXPECT_EQ(model.rowCount(model.index(0)), 0);
  EXPECT_EQ(model.rowAt(-1), nullptr);
  EXPECT_EQ(model.rowAt(1), nullptr);
}

TEST_F(PanelListModelTest, FindsRowsByIdentifier) {
  show({bus("a", {device("b"), device("c")})});
  EXPECT_EQ(model.indexOf("c"), 2);
  EXPECT_EQ(model.indexOf("nobody"), -1);
  ASSERT_NE(model.rowAt(2), nullptr);
  EXPECT_EQ(model.rowAt(2)->id, "c");
}

TEST_F(PanelListModelTest, SaysNothingWhenNothingChanged) {
  show({bus("a", {device("b")})});
  recorder.clear();
  show({bus("a", {device("b")})});
  EXPECT_EQ(recorder.text(), "");
}

TEST_F(PanelListModelTest, TellsExactlyWhatDiffers) {
  const struct {
    const char* description;
    std::vector<Card> before;
    std::vector<Card> after;
    const char* told;
  } rows[] = {
      {"a new row", {bus("a", {device("b")})}, {bus("a", {device("c"), device("b")})}, "+1\n"},
      {"a new last row, which the row above is no longer",
       {bus("a", {device("b")})},
       {bus("a", {device("b"), device("c")})},
       "+2\n~1\n"},
      {"rows that are gone",
       {bus("a", {device("b"), device("c"), device("d")})},
       {bus("a", {device("d")})},
       "-1..2\n"},
      {"a moved row",
       {bus("a", {device("b"), device("c"), device("d"), device("e")})},
       {bus("a", {device("d"), device("b"), device("c"), device("e")})},
       ">3 before 1\n"},
      {"another name",
       {bus("a", {device("b"), device("c")})},
       {bus("a", {device("b", "new"), device("c")})},
       "~1\n"},
      {"another header",
       {bus("a", {device("b")})},
       {StandaloneUSBCard{.id = "a", .header = {"a", "1W"}, .rows = {device("b")}}},
       "~0\n"},
      {"another kind",
       {bus("a", {device("b"), device("c")})},
       {bus("a", {dock("b"), device("c")})},
       "-1\n+1\n"},
      {"another kind of card", {bus("a"), bus("b")}, {PortCard{.id = "a"}, bus("b")}, "-0\n+0\n"},
      {"nothing any more", {bus("a", {device("b")})}, {}, "-0..1\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    show(row.before);
    recorder.clear();
    show(row.after);
    EXPECT_EQ(recorder.text(), row.told);
  }
}

TEST_F(PanelListModelTest, TellsWhenARowBeginsToPulse) {
  show({bus("a", {device("b")})});
  recorder.clear();
  show({bus("a", {device("b")})}, {{"b", Pulse::Throbbing}});
  EXPECT_EQ(recorder.text(), "~1\n");
}

TEST_F(PanelListModelTest, CanBeReadWhileItTellsOfChanges) {
  show({bus("a", {device("b"), device("c"), device("d")})});
  std::string read;
  const auto readAll = [&] {
    for (int row = 0; row < model.rowCount(); ++row) {
      read += at(row, "sentence").toString().toStdString();
    }
  };
  QObject::connect(&model, &PanelListModel::rowsRemoved, &model, readAll);
  QObject::connect(&model, &PanelListModel::rowsMoved, &model, readAll);
  QObject::connect(&model, &PanelListModel::rowsInserted, &model, readAll);
  QObject::connect(&model, &PanelListModel::dataChanged, &model, readAll);
  show({bus("a", {device("d"), device("b", "new"), device("e")})});
  EXPECT_EQ(read, "abd"
                  "adb"
                  "adbe"
                  "adbe"
                  "adnewe");
}

} // namespace
} // namespace tamberline
