#include "app/look.h"
#include "i18n/loc.h"
#include "support/language_scope.h"
#include "ui/layout_check.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/samples.h"

#include <QGuiApplication>

#include <map>

namespace tamberline {
namespace {

class PanelLayout : public PanelFixture {
protected:
  ~PanelLayout() override { QGuiApplication::setPalette(lightPalette()); }

  void expectNoFaults(const std::string& situation) {
    for (const std::string& fault : layoutFaults(window())) {
      ADD_FAILURE() << situation << ": " << fault;
    }
  }

  /// `look` is called with the panel open, for each theme and text size.
  template <typename Look>
  void inEachLook(Look look) {
    for (const double fontScale : {1.0, 2.0}) {
      openPanel({.fontScale = fontScale, .isBoundByScreen = false});
      for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        QGuiApplication::setPalette(palette);
        settle();
        look((palette == darkPalette() ? "dark, scale " : "light, scale ") +
             std::to_string(fontScale));
      }
      closePanel();
      scanner->expandedOverrideIDs.set({});
    }
  }

  void checkClosedAndOpen() {
    inEachLook([this](const std::string& look) {
      collapseAll();
      expectNoFaults(look + ", closed");
      expandAll();
      expectNoFaults(look + ", open");
    });
  }
};

class PanelLayoutOfSamples : public PanelLayout, public testing::WithParamInterface<SampleCase> {
protected:
  /// Of the rows that the list has created.
  std::map<const QQuickItem*, double> rowHeights() {
    std::map<const QQuickItem*, double> heights;
    for (int index = 0; index < rows().rowCount(); ++index) {
      if (const QQuickItem* row = rowItem(index)) {
        heights[row] = row->height();
      }
    }
    return heights;
  }

  const LanguageScope language{GetParam().language};
};

/// A list view may never settle if its rows become higher after it has created them.
TEST_P(PanelLayoutOfSamples, KnowsTheHeightOfARowAsSoonAsItIsCreated) {
  useSample(GetParam().sample);
  openPanel();
  expandAll();
  const double end = listView()->property("contentHeight").toDouble() - window().height();
  for (double top = 0; top < end; top += 100) {
    listView()->setProperty("contentY", listView()->property("originY").toDouble() + top);
    const std::map<const QQuickItem*, double> heights = rowHeights();
    settle();
    EXPECT_EQ(rowHeights(), heights);
  }
}

TEST_P(PanelLayoutOfSamples, HasRoomForEveryText) {
  useSample(GetParam().sample);
  checkClosedAndOpen();
}

INSTANTIATE_TEST_SUITE_P(Samples, PanelLayoutOfSamples, testing::ValuesIn(allSampleCases()),
                         nameOfSampleCase);

class PanelLayoutInLanguages : public PanelLayout, public testing::WithParamInterface<AppLanguage> {
protected:
  const LanguageScope language{GetParam()};
};

TEST_P(PanelLayoutInLanguages, HasRoomForLongNames) {
  answerWithLongNames(*machine);
  checkClosedAndOpen();
}

TEST_P(PanelLayoutInLanguages, HasRoomForTheStatesOfVolumes) {
  answerWithLongNames(*machine);
  scanner->ejectStates.set(
      {{"/Volumes/Fieldwork", {EjectState::Failed{std::string(Loc::ejectFailed())}}},
       {"/Volumes/Sommer", {EjectState::Ejecting{}}}});
  inEachLook([this](const std::string& look) {
    expandAll();
    scanner->benchmarks.set(
        {{"/Volumes/Fieldwork", {BenchmarkPhase::Failed{std::string(Loc::benchNoSpace())}}},
         {"/Volumes/Sommer", {BenchmarkPhase::Running{std::string(Loc::writing())}}}});
    settle();
    expectNoFaults(look + ", failed and running");
    scanner->benchmarks.set({{"/Volumes/Fieldwork", {BenchmarkPhase::Done{12345, 23456}}},
                             {"/Volumes/Sommer", {BenchmarkPhase::Done{412, 1022}}}});
    settle();
    expectNoFaults(look + ", done");
  });
}

TEST_P(PanelLayoutInLanguages, HasRoomForSuggestions) {
  answerWithLongNames(*machine);
  inEachLook([this](const std::string& look) {
    for (const char* text : {"e", "no such device"}) {
      context().search()->setSearchText(text);
      settle();
      expectNoFaults(look + ", searching for " + text);
    }
  });
}

TEST_P(PanelLayoutInLanguages, HasRoomForTheExplanation) {
  answerWithLongNames(*machine);
  inEachLook([this](const std::string& look) {
    expandAll();
    press(QString::fromStdString(std::string(Loc::hintWhySlow())));
    expectNoFaults(look + ", explanation");
    context().popover()->close();
    settle();
  });
}

TEST_P(PanelLayoutInLanguages, HasRoomForMessagesInPlaceOfCards) {
  inEachLook([this](const std::string& look) { expectNoFaults(look + ", empty"); });
  machine->answer(Question::thunderbolt, "");
  scanner = anotherScanner();
  inEachLook([this](const std::string& look) { expectNoFaults(look + ", error"); });
}

INSTANTIATE_TEST_SUITE_P(Languages, PanelLayoutInLanguages, testing::ValuesIn(allLanguages),
                         nameOfLanguage);

} // namespace
} // namespace tamberline
