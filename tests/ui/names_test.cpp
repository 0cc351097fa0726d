#include "support/language_scope.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/samples.h"

#include <set>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

bool isControl(QAccessible::Role role) {
  static const std::set<QAccessible::Role> controls = {
      QAccessible::Button,   QAccessible::EditableText, QAccessible::Indicator,
      QAccessible::ListItem, QAccessible::List,         QAccessible::AlertMessage};
  return controls.contains(role);
}

class ControlNames : public PanelFixture {
protected:
  /// Returns the number of controls.
  int expectNames() {
    int count = 0;
    for (const AccessibleObject& object : objects()) {
      if (isControl(object.role())) {
        ++count;
        EXPECT_FALSE(object.name().trimmed().isEmpty()) << object.text().toStdString();
      }
      EXPECT_NE(object.role(), QAccessible::NoRole) << object.text().toStdString();
    }
    return count;
  }
};

class ControlNamesOfSamples : public ControlNames, public testing::WithParamInterface<SampleCase> {
protected:
  const LanguageScope language{GetParam().language};
};

TEST_P(ControlNamesOfSamples, ExistWithEverythingOpen) {
  useSample(GetParam().sample);
  openPanel({.isBoundByScreen = false});
  expandAll();
  EXPECT_GT(expectNames(), 8);
}

TEST_P(ControlNamesOfSamples, ExistWhileSearching) {
  useSample(GetParam().sample);
  openPanel({.isBoundByScreen = false});
  typeText("e");
  EXPECT_GT(expectNames(), 8);
  typeText("no such device");
  EXPECT_GT(expectNames(), 8);
}

INSTANTIATE_TEST_SUITE_P(Samples, ControlNamesOfSamples, testing::ValuesIn(allSampleCases()),
                         nameOfSampleCase);

class ControlNamesInLanguages : public ControlNames,
                                public testing::WithParamInterface<AppLanguage> {
protected:
  const LanguageScope language{GetParam()};
};

TEST_P(ControlNamesInLanguages, ExistWithoutCards) {
  machine->answer(Question::thunderbolt, "");
  openPanelWhileScanning({});
  draw();
  EXPECT_GT(expectNames(), 4);
  advance(150ms);
  EXPECT_GT(expectNames(), 4);
  answerWithEmptyReports(*machine);
  rescan();
  EXPECT_GT(expectNames(), 4);
}

TEST_P(ControlNamesInLanguages, ExistWhileVolumesAreTestedAndEjected) {
  answerWithDisk(*machine);
  openPanel();
  expandAll();
  scanner->benchmarks.set({{"/Volumes/Data", {BenchmarkPhase::Running{"…"}}}});
  scanner->ejectStates.set({{"/Volumes/Data", {EjectState::Ejecting{}}}});
  settle();
  EXPECT_GT(expectNames(), 8);
}

INSTANTIATE_TEST_SUITE_P(Languages, ControlNamesInLanguages, testing::ValuesIn(allLanguages),
                         nameOfLanguage);

} // namespace
} // namespace tamberline
