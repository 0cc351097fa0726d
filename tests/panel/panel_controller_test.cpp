#include "panel/panel_fixture.h"
#include "support/counted_signal.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class PanelControllerTest : public PanelFixture {
protected:
  std::string state() const {
    const QString name = QVariant::fromValue(panel->state()).toString();
    return name.toStdString() + ": " + panel->message().toStdString();
  }
};

TEST_F(PanelControllerTest, HasNothingBeforeTheFirstScan) {
  EXPECT_EQ(state(), "Empty: No ports detected");
  EXPECT_EQ(panel->rows()->rowCount(), 0);
  EXPECT_FALSE(panel->isScanning());
}

TEST_F(PanelControllerTest, SaysThatItScans) {
  const CountedSignal scanning(panel.get(), &PanelController::isScanningChanged);
  const CountedSignal states(panel.get(), &PanelController::stateChanged);
  panel->scan();
  EXPECT_EQ(state(), "Scanning: Scanning ports…");
  EXPECT_TRUE(panel->isScanning());
  queue->settle();
  EXPECT_EQ(state(), "Empty: No ports detected");
  EXPECT_FALSE(panel->isScanning());
  EXPECT_EQ(scanning.count(), 2);
  EXPECT_EQ(states.count(), 2);
}

TEST_F(PanelControllerTest, ShowsCardsAfterAScanAndDuringTheNext) {
  scanADesk();
  EXPECT_EQ(state(), "Cards: ");
  EXPECT_EQ(list(), "Thunderbolt Port 1, closed\n"
                    "Thunderbolt Port 2, closed\n");
  const CountedSignal states(panel.get(), &PanelController::stateChanged);
  panel->scan();
  EXPECT_EQ(state(), "Cards: ");
  queue->settle();
  EXPECT_EQ(states.count(), 0);
}

TEST_F(PanelControllerTest, ShowsTheErrorOfTheFirstScanUntilOneSucceeds) {
  machine->answer(Question::usb, "");
  scan();
  EXPECT_EQ(panel->state(), Panel::State::Error);
  EXPECT_EQ(panel->message().toStdString(), scanner->errorMessage.get());
  EXPECT_NE(panel->message(), "");
  scanADesk();
  EXPECT_EQ(state(), "Cards: ");
  EXPECT_EQ(panel->rows()->rowCount(), 2);
}

TEST_F(PanelControllerTest, KeepsTheCardsWhenALaterScanFails) {
  scanADesk();
  machine->answer(Question::usb, "");
  scan();
  EXPECT_EQ(state(), "Cards: ");
  EXPECT_EQ(panel->rows()->rowCount(), 2);
}

TEST_F(PanelControllerTest, ShowsWhatIsThereWhenItComesLater) {
  scanADesk();
  const PanelController late(scanner, queue, *answers, {});
  EXPECT_EQ(late.state(), Panel::State::Cards);
}

TEST_F(PanelControllerTest, KnowsTheTextsOfTheLanguageOfTheRun) {
  EXPECT_EQ(panel->texts().quit(), "Quit");
  const LanguageScope german(AppLanguage::de);
  EXPECT_EQ(panel->texts().quit(), "Beenden");
}

TEST_F(PanelControllerTest, SaysNothingAboutARescanThatFindsTheSame) {
  scanADesk();
  panel->expandAll();
  recorder->clear();
  scan();
  EXPECT_EQ(recorder->text(), "");
}

TEST_F(PanelControllerTest, TellsWhichRowsARescanChanged) {
  scanADesk();
  panel->expandAll();
  ASSERT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, open\n"
                    "    USB 2.0 Bus, open\n"
                    "      USB Hub, open\n"
                    "        Keys\n"
                    "Thunderbolt Port 2, open\n"
                    "  Quarry SSD\n");
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  recorder->clear();
  scan();
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock\n"
                    "Thunderbolt Port 2, open\n"
                    "(empty)\n");
  EXPECT_EQ(recorder->text(), "-6\n" // the disk
                              "-2..4\n"
                              "+3\n" // nothing is attached
                              "~0\n" // fewer items
                              "~1\n"
                              "~2\n");
}

TEST_F(PanelControllerTest, OpensAndClosesRows) {
  scanADesk();
  toggle("Thunderbolt Port 1");
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, open\n"
                    "    USB 2.0 Bus, closed\n"
                    "Thunderbolt Port 2, closed\n");
  toggle("USB 2.0 Bus");
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, open\n"
                    "    USB 2.0 Bus, open\n"
                    "      USB Hub, closed\n"
                    "Thunderbolt Port 2, closed\n")
      << "a dock starts open, a hub closed";
  toggle("Harbour Dock");
  toggle("Thunderbolt Port 2");
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, closed\n"
                    "Thunderbolt Port 2, open\n"
                    "  Quarry SSD\n");
  toggle("Harbour Dock");
  EXPECT_NE(indexOf("USB Hub"), -1) << "the rows below stay as they were";
}

TEST_F(PanelControllerTest, OpensOrClosesOnRequest) {
  scanADesk();
  recorder->clear();
  panel->setExpanded(0, false);
  EXPECT_EQ(recorder->text(), "") << "closed already";
  panel->setExpanded(0, true);
  panel->setExpanded(0, true);
  EXPECT_EQ(recorder->text(), "+1..2\n~0\n");
  panel->setExpanded(0, false);
  EXPECT_EQ(list(), "Thunderbolt Port 1, closed\n"
                    "Thunderbolt Port 2, closed\n");
}

TEST_F(PanelControllerTest, LeavesAloneWhatCannotOpen) {
  scanADesk();
  toggle("Thunderbolt Port 2");
  recorder->clear();
  toggle("Quarry SSD");
  panel->setExpanded(indexOf("Quarry SSD"), true);
  panel->toggle(-1);
  panel->toggle(99);
  EXPECT_EQ(recorder->text(), "");
}

TEST_F(PanelControllerTest, OpensEverythingAtOnce) {
  scanADesk();
  panel->expandAll();
  EXPECT_NE(indexOf("Keys"), -1);
  EXPECT_NE(indexOf("Quarry SSD"), -1);
}

TEST_F(PanelControllerTest, OpensAgainWhatWasClosedAfterEverythingWasOpened) {
  scanADesk();
  panel->expandAll();
  toggle("USB Hub");
  EXPECT_EQ(indexOf("Keys"), -1);
  EXPECT_FALSE(scanner->expandedOverrideIDs.get().contains(idOf("USB Hub")));
  panel->expandAll();
  EXPECT_NE(indexOf("Keys"), -1);
}

TEST_F(PanelControllerTest, KeepsWhatElseWasToBeOpenWhenItOpensEverything) {
  scanner->expandedOverrideIDs.set({"/gone"});
  scanADesk();
  panel->expandAll();
  EXPECT_TRUE(scanner->expandedOverrideIDs.get().contains("/gone"));
}

TEST_F(PanelControllerTest, ClosesEverythingDocksThatStartOpenIncluded) {
  scanADesk();
  panel->expandAll();
  panel->collapseAll();
  EXPECT_EQ(list(), "Thunderbolt Port 1, closed\n"
                    "Thunderbolt Port 2, closed\n");
  EXPECT_TRUE(scanner->expandedOverrideIDs.get().empty());
  toggle("Thunderbolt Port 1");
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, closed\n"
                    "Thunderbolt Port 2, closed\n");
}

TEST_F(PanelControllerTest, ClosesEverythingInTwoSteps) {
  scanADesk();
  panel->expandAll();
  const auto epoch = scanner->collapseAllEpoch.get();
  std::string steps;
  const auto overrides = scanner->expandedOverrideIDs.observe([&] {
    steps += scanner->expandedOverrideIDs.get().empty() ? "nothing is to be open\n" : "?\n";
  });
  const auto epochs = scanner->collapseAllEpoch.observe([&] {
    steps += "epoch + " + std::to_string(scanner->collapseAllEpoch.get() - epoch) + "\n";
  });
  panel->collapseAll();
  EXPECT_EQ(steps, "nothing is to be open\n"
                   "epoch + 1\n");
}

TEST_F(PanelControllerTest, ClosesWhatWasOpenedByHand) {
  scanADesk();
  toggle("Thunderbolt Port 2");
  panel->collapseAll();
  EXPECT_EQ(indexOf("Quarry SSD"), -1);
}

TEST_F(PanelControllerTest, KeepsRowsOpenOverRescans) {
  scanADesk();
  toggle("Thunderbolt Port 1");
  toggle("Harbour Dock");
  toggle("Thunderbolt Port 2");
  const std::string before = list();
  scan();
  EXPECT_EQ(list(), before);
}

TEST_F(PanelControllerTest, LeavesADockClosedThatWasSeenBeforeItsDevicesCame) {
  answerWithADesk();
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  scan();
  toggle("Thunderbolt Port 1");
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock\n"
                    "Thunderbolt Port 2, closed\n");
  scanADesk();
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, closed\n"
                    "Thunderbolt Port 2, closed\n");
  toggle("Harbour Dock");
  EXPECT_NE(indexOf("USB 2.0 Bus"), -1);
}

TEST_F(PanelControllerTest, OpensADockWhoseDevicesCameBeforeItWasSeen) {
  answerWithADesk();
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  scan();
  scanADesk();
  toggle("Thunderbolt Port 1");
  EXPECT_NE(indexOf("USB 2.0 Bus"), -1);
}

TEST_F(PanelControllerTest, ForgetsHowRowsStoodThatAreGone) {
  scanADesk();
  toggle("Thunderbolt Port 1");
  toggle("USB 2.0 Bus");
  toggle("Harbour Dock");
  answerWithTwoBarePorts();
  scan();
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "(empty)\n"
                    "Thunderbolt Port 2, closed\n");
  scanADesk();
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, open\n"
                    "    USB 2.0 Bus, closed\n"
                    "Thunderbolt Port 2, closed\n");
}

TEST_F(PanelControllerTest, ShowsHowTheToolsOfAVolumeStand) {
  scanADesk();
  panel->expandAll();
  recorder->clear();
  scanner->benchmarks.set({{"/Volumes/Data", {BenchmarkPhase::Running{"Writing"}}}});
  EXPECT_EQ(recorder->text(), "~6\n");
  EXPECT_NE(sentenceAt(6).find("Writing"), std::string::npos);
  recorder->clear();
  scanner->testProgress.set({{"/Volumes/Data", 40}});
  EXPECT_EQ(recorder->text(), "~6\n");
  EXPECT_NE(sentenceAt(6).find("Writing 40%"), std::string::npos);
  recorder->clear();
  scanner->ejectStates.set({{"/Volumes/Data", {EjectState::Ejecting{}}}});
  EXPECT_EQ(recorder->text(), "~6\n");
  recorder->clear();
  scanner->benchmarks.set({{"/Volumes/Data", {BenchmarkPhase::Running{"Writing"}}},
                           {"/Volumes/Elsewhere", {BenchmarkPhase::Running{"Reading"}}}});
  EXPECT_EQ(recorder->text(), "");
}

TEST_F(PanelControllerTest, DoesNothingForActionsThatAreAbsent) {
  EXPECT_FALSE(panel->canTestVolumes());
  EXPECT_FALSE(panel->canEject());
  panel->runBenchmark("/Volumes/Data");
  panel->stopBenchmark("/Volumes/Data");
  panel->eject("/Volumes/Data");
  panel->openManual();
  panel->close();
  panel->quit();
}

/// A panel whose actions record their calls.
class PanelActionsTest : public PanelFixture {
protected:
  PanelActions actions() override {
    return {
        .runBenchmark = [this](const std::string& volume) { asked += "test " + volume + "\n"; },
        .stopBenchmark = [this](const std::string& volume) { asked += "stop " + volume + "\n"; },
        .eject = [this](const std::string& volume) { asked += "eject " + volume + "\n"; },
        .openManual = [this] { asked += "manual\n"; },
        .closePanel = [this] { asked += "close\n"; },
        .quit = [this] { asked += "quit\n"; },
    };
  }

  std::string asked;
};

TEST_F(PanelActionsTest, AreHandedOn) {
  EXPECT_TRUE(panel->canTestVolumes());
  EXPECT_TRUE(panel->canEject());
  panel->runBenchmark(QStringLiteral("/Volumes/Größe"));
  panel->stopBenchmark(QStringLiteral("/Volumes/Größe"));
  panel->eject("/Volumes/Data");
  panel->openManual();
  panel->close();
  panel->quit();
  EXPECT_EQ(asked, "test /Volumes/Größe\n"
                   "stop /Volumes/Größe\n"
                   "eject /Volumes/Data\n"
                   "manual\n"
                   "close\n"
                   "quit\n");
}

/// The highlight of a row that a search led to.
class HighlightTest : public PanelFixture {
protected:
  void SetUp() override {
    PanelFixture::SetUp();
    scanADesk();
    toggle("Thunderbolt Port 1");
    toggle("Thunderbolt Port 2");
  }

  /// Like a jump, so that the same row pulses again.
  void highlight(const std::string& name) {
    scanner->highlightedNodeID.set(std::nullopt);
    scanner->highlightedNodeID.set(idOf(name));
  }

  std::optional<std::string> highlighted() const { return scanner->highlightedNodeID.get(); }
};

TEST_F(HighlightTest, ThrobsThenFadesThenEnds) {
  highlight("Quarry SSD");
  EXPECT_EQ(list(), "Thunderbolt Port 1, open\n"
                    "  Harbour Dock, open\n"
                    "    USB 2.0 Bus, closed\n"
                    "Thunderbolt Port 2, open\n"
                    "  Quarry SSD, Throbbing\n");
  queue->advance(4999ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
  queue->advance(1ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "Fading");
  queue->advance(399ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "Fading");
  EXPECT_EQ(highlighted(), idOf("Quarry SSD"));
  queue->advance(1ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "None");
  EXPECT_EQ(highlighted(), std::nullopt);
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(HighlightTest, ChangesNothingButItsRow) {
  recorder->clear();
  highlight("Quarry SSD");
  queue->advance(6s);
  EXPECT_EQ(recorder->text(), "~4\n~4\n~4\n");
}

TEST_F(HighlightTest, BeginsAnewWithASecondJump) {
  highlight("Quarry SSD");
  queue->advance(3s);
  highlight("Quarry SSD");
  queue->advance(4999ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
  queue->advance(401ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "None");
  EXPECT_EQ(highlighted(), std::nullopt);
}

TEST_F(HighlightTest, BeginsAnewWithAJumpWhileItFades) {
  highlight("Quarry SSD");
  queue->advance(5200ms);
  highlight("Quarry SSD");
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
  queue->advance(1s);
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
  EXPECT_EQ(highlighted(), idOf("Quarry SSD"));
}

TEST_F(HighlightTest, LeavesTheHighlightToAnotherRowThatHasIt) {
  highlight("Quarry SSD");
  queue->advance(2s);
  highlight("Harbour Dock");
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
  EXPECT_EQ(pulseOf("Harbour Dock"), "Throbbing");
  queue->advance(3400ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "None");
  EXPECT_EQ(pulseOf("Harbour Dock"), "Throbbing");
  EXPECT_EQ(highlighted(), idOf("Harbour Dock"));
  queue->advance(2s);
  EXPECT_EQ(highlighted(), std::nullopt);
}

TEST_F(HighlightTest, WaitsForARowThatIsNotShown) {
  highlight("Keys");
  queue->advance(10s);
  EXPECT_EQ(highlighted(), idOf("Keys"));
  toggle("USB 2.0 Bus");
  toggle("USB Hub");
  EXPECT_EQ(pulseOf("Keys"), "Throbbing");
  queue->advance(5400ms);
  EXPECT_EQ(highlighted(), std::nullopt);
}

TEST_F(HighlightTest, StaysOnARowThatDisappearsAndBeginsAnewWithIt) {
  highlight("Quarry SSD");
  queue->advance(3s);
  toggle("Thunderbolt Port 2");
  EXPECT_EQ(queue->delayedCount(), 0U);
  queue->advance(10s);
  EXPECT_EQ(highlighted(), idOf("Quarry SSD"));
  toggle("Thunderbolt Port 2");
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
  queue->advance(4999ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
}

TEST_F(HighlightTest, StaysOnADeviceThatIsUnpluggedForAWhile) {
  const std::string id = idOf("Quarry SSD");
  highlight("Quarry SSD");
  answerWithTwoBarePorts();
  scan();
  EXPECT_EQ(highlighted(), id);
  scanADesk();
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
}

TEST_F(HighlightTest, GoesOnDuringARescan) {
  highlight("Quarry SSD");
  queue->advance(4s);
  scan();
  EXPECT_EQ(pulseOf("Quarry SSD"), "Throbbing");
  queue->advance(850ms);
  EXPECT_EQ(pulseOf("Quarry SSD"), "Fading");
}

TEST_F(HighlightTest, OfNobodyDoesNothing) {
  recorder->clear();
  scanner->highlightedNodeID.set("/nobody");
  EXPECT_EQ(recorder->text(), "");
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(HighlightTest, LeavesNothingBehindWhenThePanelGoes) {
  highlight("Quarry SSD");
  highlight("Harbour Dock");
  recorder.reset();
  tester.reset();
  panel.reset();
  EXPECT_EQ(queue->delayedCount(), 0U);
}

} // namespace
} // namespace tamberline
