#include "support/language_scope.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class PanelStates : public PanelFixture {};

TEST_F(PanelStates, SayThatTheFirstScanIsInProgress) {
  answerWithPorts(*machine, 1);
  openPanelWhileScanning({});
  queue->runPosted();
  draw();
  EXPECT_TRUE(isTextShown("Scanning ports…"));
  EXPECT_TRUE(isShown(QAccessible::Indicator, "Scanning ports…"));
  EXPECT_FALSE(isShown(QAccessible::Button, "Scan again"));
  advance(150ms);
  EXPECT_FALSE(isTextShown("Scanning ports…"));
  EXPECT_FALSE(isShown(QAccessible::Indicator, "Scanning ports…"));
  EXPECT_TRUE(isShown(QAccessible::Button, "Scan again"));
}

TEST_F(PanelStates, SayThatThereAreNoPorts) {
  openPanel();
  EXPECT_TRUE(isTextShown("No ports detected"));
  EXPECT_FALSE(isShown(QAccessible::List, "Ports and devices"));
  answerWithPorts(*machine, 2);
  rescan();
  EXPECT_FALSE(isTextShown("No ports detected"));
  EXPECT_TRUE(isShown(QAccessible::List, "Ports and devices"));
}

TEST_F(PanelStates, ShowWhyTheFirstScanFailedUntilOneSucceeds) {
  machine->answer(Question::thunderbolt, "");
  openPanel();
  ASSERT_TRUE(scanner->errorMessage.get());
  const QString message = QString::fromStdString(*scanner->errorMessage.get());
  EXPECT_TRUE(isShown(QAccessible::AlertMessage, message));
  answerWithPorts(*machine, 1);
  press("Scan again");
  advance(150ms);
  EXPECT_FALSE(isShown(QAccessible::AlertMessage, message));
  EXPECT_TRUE(isShown(QAccessible::List, "Ports and devices"));
}

TEST_F(PanelStates, KeepTheCardsWhenALaterScanFails) {
  answerWithPorts(*machine, 1);
  openPanel();
  machine->answer(Question::thunderbolt, "");
  rescan();
  EXPECT_TRUE(isShown(QAccessible::List, "Ports and devices"));
  EXPECT_FALSE(findAccessibleStarting(window(), QAccessible::AlertMessage, ""));
}

TEST_F(PanelStates, ShowTheIndicatorInPlaceOfTheButtonWhileScanning) {
  answerWithPorts(*machine, 1);
  openPanel();
  find(QAccessible::Button, "Scan again").press();
  draw();
  EXPECT_TRUE(isShown(QAccessible::Indicator, "Scanning ports…"));
  EXPECT_FALSE(isShown(QAccessible::Button, "Scan again"));
  EXPECT_TRUE(isShown(QAccessible::List, "Ports and devices"));
  advance(150ms);
  EXPECT_TRUE(isShown(QAccessible::Button, "Scan again"));
}

TEST_F(PanelStates, KeepThePanelUsableWhileAToolTakesAnHour) {
  answerWithDisk(*machine);
  openPanel();
  find(QAccessible::Button, "Scan again").press();
  queue->advanceWithoutBackground(1h);
  draw();
  EXPECT_TRUE(isShown(QAccessible::Indicator, "Scanning ports…"));
  const auto port = findAccessibleStarting(window(), QAccessible::Button, "Thunderbolt Port 1");
  ASSERT_TRUE(port);
  port->press();
  queue->runPosted();
  draw();
  EXPECT_EQ(rows().rowCount(), 2);
  find(QAccessible::Button, "Quit").press();
  EXPECT_EQ(quitCount, 1);
  EXPECT_EQ(queue->backgroundCount(), 4U) << "nothing waited for the tools";
  const std::weak_ptr<PortScanner> weakScanner = scanner;
  closePanel();
  scanner.reset();
  EXPECT_FALSE(weakScanner.expired()) << "the scan holds it";
  queue->end();
  EXPECT_TRUE(weakScanner.expired());
}

class PanelFooter : public PanelFixture {};

TEST_F(PanelFooter, ShowsTheTimeSinceTheLastScan) {
  openPanel();
  EXPECT_TRUE(isTextShown("Updated just now"));
  now += 90s;
  advance(90s);
  EXPECT_FALSE(isTextShown("Updated just now"));
  EXPECT_TRUE(isTextShown("Updated 1 minute ago"));
}

TEST_F(PanelFooter, OpensTheManual) {
  openPanel();
  press("Open the user manual");
  EXPECT_EQ(manualCount, 1);
}

TEST_F(PanelFooter, Quits) {
  openPanel();
  press("Quit");
  EXPECT_EQ(quitCount, 1);
}

TEST_F(PanelFooter, DisablesButtonsWithoutActions) {
  openPanel({.hasActions = false});
  for (const char* name : {"Open the user manual", "Quit"}) {
    const AccessibleObject button = find(QAccessible::Button, name);
    EXPECT_FALSE(button.item()->isEnabled()) << name;
    EXPECT_FALSE(button.item()->activeFocusOnTab()) << name;
  }
}

TEST_F(PanelFooter, IsInTheLanguageOfTheRun) {
  const LanguageScope german(AppLanguage::de);
  openPanel();
  press("Beenden");
  EXPECT_EQ(quitCount, 1);
}

} // namespace
} // namespace tamberline
