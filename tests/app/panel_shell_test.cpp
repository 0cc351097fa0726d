#include "app/look.h"
#include "app/panel_shell.h"
#include "support/fake_desktop.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds longAfterTheClick{1000};

class PanelShellTest : public testing::Test {
protected:
  void SetUp() override {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    answerWithEmptyReports(*machine);
  }

  void TearDown() override {
    shell.reset();
    queue->end();
  }

  void makeShell(PanelWindow::Kind newKind,
                 std::shared_ptr<WindowPlaces> places = std::make_shared<FreeWindowPlaces>()) {
    kind = newKind;
    shell = std::make_unique<PanelShell>(
        PanelContext::Outside{.scanner = scanner, .queue = queue},
        PanelShell::Placement{.kind = [this] { return kind; },
                              .places = std::move(places),
                              .freePlace = [this](const QScreen&) { return freePlace; }});
  }

  /// Gives another window keyboard focus, as after a click outside the panel.
  void clickElsewhere() {
    other.show();
    other.requestActivate();
    QGuiApplication::processEvents();
  }

  /// Whether closing the panel ends the application, which only happens while its loop runs.
  bool closesTheLastWindow() {
    bool isTold = false;
    const auto connection = QObject::connect(qGuiApp, &QGuiApplication::lastWindowClosed, qGuiApp,
                                             [&isTold] { isTold = true; });
    QMetaObject::invokeMethod(
        qGuiApp,
        [this] {
          shell->close();
          QGuiApplication::exit();
        },
        Qt::QueuedConnection);
    QGuiApplication::exec();
    QObject::disconnect(connection);
    return isTold;
  }

  void openPanel(const TrayPlace& place = {}) {
    shell->open(place);
    QGuiApplication::processEvents();
    queue->settle();
  }

  static int screenHeight() {
    return QGuiApplication::primaryScreen()->availableGeometry().height();
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                           .events = std::make_shared<SimulatedEventSource>()});
  /// The area that bars leave free, initially the whole screen.
  QRect freePlace = QGuiApplication::primaryScreen()->geometry();
  QWindow other;
  PanelWindow::Kind kind = PanelWindow::Kind::ordinary;
  std::unique_ptr<PanelShell> shell;
};

TEST_F(PanelShellTest, CreatesTheWindowOnFirstUseAndKeepsIt) {
  makeShell(PanelWindow::Kind::attached);
  EXPECT_EQ(shell->window(), nullptr);
  EXPECT_FALSE(shell->isOpen());
  openPanel();
  const PanelWindow* const window = shell->window();
  EXPECT_TRUE(shell->isOpen());
  shell->close();
  EXPECT_FALSE(shell->isOpen());
  openPanel();
  EXPECT_EQ(shell->window(), window);
}

TEST_F(PanelShellTest, ScansOnlyWhenThePanelIsFirstShown) {
  makeShell(PanelWindow::Kind::attached);
  EXPECT_EQ(machine->askCount(Question::usb), 0U);
  openPanel();
  EXPECT_EQ(machine->askCount(Question::usb), 1U);
  shell->close();
  openPanel();
  EXPECT_EQ(machine->askCount(Question::usb), 1U);
}

TEST_F(PanelShellTest, ClickOnTheIconOpensAndAnotherCloses) {
  makeShell(PanelWindow::Kind::attached);
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
  shell->toggle();
  EXPECT_FALSE(shell->isOpen());
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, HasABorderOnlyBesideItsIcon) {
  for (const PanelWindow::Kind each : {PanelWindow::Kind::attached, PanelWindow::Kind::ordinary}) {
    makeShell(each);
    openPanel();
    QGuiApplication::processEvents(); // the content follows the window's height
    const QImage picture = shell->window()->grabWindow();
    const QPoint leftEdge(0, picture.height() / 2);
    const bool hasBorder =
        picture.pixelColor(leftEdge) != picture.pixelColor(leftEdge + QPoint(2, 0));
    EXPECT_EQ(hasBorder, each == PanelWindow::Kind::attached);
  }
}

/// How many corners of the panel show its colour.
int countSquareCorners(const QImage& picture, const QColor& color) {
  const int right = picture.width() - 1;
  const int bottom = picture.height() - 1;
  const std::array<QPoint, 4> nearCorners = {QPoint(1, 1), QPoint(right - 1, 1),
                                             QPoint(1, bottom - 1), QPoint(right - 1, bottom - 1)};
  return static_cast<int>(
      std::count_if(nearCorners.begin(), nearCorners.end(),
                    [&](const QPoint& corner) { return picture.pixelColor(corner) == color; }));
}

TEST_F(PanelShellTest, HasRoundCornersBesideItsIconWhereTheDesktopBlendsWindows) {
  const auto places = std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::program);
  for (const PanelWindow::Kind each : {PanelWindow::Kind::attached, PanelWindow::Kind::ordinary}) {
    for (const bool blends : {true, false}) {
      places->blends = blends;
      makeShell(each, places);
      openPanel();
      QGuiApplication::processEvents(); // the content follows the window's height
      const bool isRound = blends && each == PanelWindow::Kind::attached;
      EXPECT_EQ(shell->window()->requestedFormat().hasAlpha(), isRound);
      EXPECT_EQ(
          countSquareCorners(shell->window()->grabWindow(), shell->context().theme()->window()),
          isRound ? 0 : 4);
    }
  }
}

TEST_F(PanelShellTest, HasSquareCornersAgainAfterTheDesktopStoppedBlendingWindows) {
  const auto places = std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::program);
  places->blends = true;
  makeShell(PanelWindow::Kind::attached, places);
  openPanel();
  ASSERT_TRUE(shell->window()->requestedFormat().hasAlpha());
  shell->close();
  places->blends = false;
  openPanel();
  EXPECT_FALSE(shell->window()->requestedFormat().hasAlpha());
  EXPECT_EQ(machine->askCount(Question::usb), 1U); // a new window starts no scan
}

TEST_F(PanelShellTest, GrowsInTheColorOfThePanelInEachTheme) {
  const auto places = std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::program);
  makeShell(PanelWindow::Kind::attached, places);
  openPanel();
  EXPECT_EQ(places->colorOfNewAreas, shell->context().theme()->window());
  EXPECT_EQ(places->colorOfNewAreas.alpha(), 255);
  const QPalette before = QGuiApplication::palette();
  const bool wasDark = shell->context().theme()->isDark();
  QGuiApplication::setPalette(wasDark ? lightPalette() : darkPalette());
  QGuiApplication::processEvents();
  EXPECT_NE(shell->context().theme()->isDark(), wasDark);
  EXPECT_EQ(places->colorOfNewAreas, shell->context().theme()->window());
  QGuiApplication::setPalette(before);
}

TEST_F(PanelShellTest, ClickOutsideClosesThePanelOfATrayIcon) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  ASSERT_TRUE(shell->window()->isActive());
  clickElsewhere();
  EXPECT_FALSE(shell->isOpen());
}

TEST_F(PanelShellTest, ClickOnTheIconThatClosedThePanelByTakingFocusDoesNotReopenIt) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  clickElsewhere(); // the tray
  shell->toggle();
  EXPECT_FALSE(shell->isOpen());
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, ClickOnTheIconLongAfterOneOutsideOpens) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  clickElsewhere();
  queue->advance(longAfterTheClick);
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, OrdinaryWindowStaysOpenWithoutFocus) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  clickElsewhere();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, OnlyTheOrdinaryWindowHasAFrame) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  EXPECT_FALSE(shell->window()->flags().testFlag(Qt::FramelessWindowHint));
  shell.reset();
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  EXPECT_TRUE(shell->window()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(PanelShellTest, PanelOfATrayIconIsBelowIt) {
  const QRect icon(300, 0, 24, 24);
  makeShell(PanelWindow::Kind::attached);
  openPanel({.icon = icon});
  EXPECT_GE(shell->window()->y(), icon.bottom());
  EXPECT_NEAR(shell->window()->geometry().center().x(), icon.center().x(), 1);
}

TEST_F(PanelShellTest, PanelAboveItsIconGrowsUpwards) {
  const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
  const QRect icon(300, available.bottom() - 24, 24, 24);
  makeShell(PanelWindow::Kind::attached);
  openPanel({.icon = icon});
  for (const int height : {300, 600, 250}) {
    shell->window()->setMinimumHeight(height);
    shell->window()->setMaximumHeight(height);
    shell->window()->resize(400, height);
    QGuiApplication::processEvents();
    EXPECT_EQ(shell->window()->geometry().height(), height);
    EXPECT_LE(shell->window()->geometry().bottom(), icon.top());
    EXPECT_GE(shell->window()->geometry().bottom(), icon.top() - 10);
  }
}

TEST_F(PanelShellTest, ClosingTheOnlyOrdinaryWindowEndsTheProgram) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  EXPECT_TRUE(closesTheLastWindow());
  EXPECT_FALSE(shell->isOpen());
}

TEST_F(PanelShellTest, ClosingThePanelOfATrayIconDoesNotEndTheProgram) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  EXPECT_FALSE(closesTheLastWindow());
  EXPECT_FALSE(shell->isOpen());
}

TEST_F(PanelShellTest, WindowIsAsHighAsItsContentAndCannotBeResized) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  shell->window()->grabWindow(); // forces the layout
  queue->settle();
  const int wanted = std::max(200, qRound(shell->context().sizing()->windowTotalHeight()));
  EXPECT_EQ(shell->window()->size(), QSize(400, wanted));
  EXPECT_EQ(shell->window()->minimumSize(), QSize(400, wanted));
  EXPECT_EQ(shell->window()->maximumSize(), QSize(400, wanted));
}

TEST_F(PanelShellTest, HasADefaultSizeBeforeMeasuring) {
  makeShell(PanelWindow::Kind::ordinary);
  shell->open();
  EXPECT_EQ(shell->window()->size(), QSize(400, 490));
  EXPECT_EQ(shell->window()->minimumSize(), QSize(400, 490));
  EXPECT_EQ(PanelWindow(shell->context(), {}).size(), QSize(400, 490));
}

TEST_F(PanelShellTest, OrdinaryWindowThatGrowsMovesUpInsteadOfLeavingTheScreen) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  shell->window()->setPosition(100, screenHeight() - 200);
  shell->window()->setMaximumHeight(600);
  shell->window()->resize(400, 600);
  QGuiApplication::processEvents();
  EXPECT_EQ(shell->window()->frameGeometry().bottom(), screenHeight() - 1);
  EXPECT_EQ(shell->window()->x(), 100);
}

TEST_F(PanelShellTest, OrdinaryWindowWithRoomBelowKeepsItsPosition) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  shell->window()->setPosition(100, 30);
  shell->window()->setMaximumHeight(600);
  shell->window()->resize(400, 600);
  QGuiApplication::processEvents();
  EXPECT_EQ(shell->window()->position(), QPoint(100, 30));
}

TEST_F(PanelShellTest, IsInTheUpperRightCornerIfTheIconsPositionIsUnknown) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  QGuiApplication::processEvents();
  EXPECT_LT(shell->window()->y(), 20);
  EXPECT_GT(shell->window()->geometry().right(),
            QGuiApplication::primaryScreen()->availableGeometry().right() - 20);
}

TEST_F(PanelShellTest, IsNextToTheClickIfTheTrayReportsOnlyThat) {
  makeShell(PanelWindow::Kind::attached);
  openPanel({.click = QPoint(10, screenHeight() - 5)});
  QGuiApplication::processEvents(); // its size adapts to its content
  EXPECT_LT(shell->window()->x(), 20);
  EXPECT_GT(shell->window()->geometry().bottom(), screenHeight() - 20);
}

TEST_F(PanelShellTest, BecomesAnOrdinaryWindowAfterTheTrayStops) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  shell->close();
  kind = PanelWindow::Kind::ordinary;
  openPanel();
  EXPECT_TRUE(shell->isOpen());
  EXPECT_FALSE(shell->window()->flags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(machine->askCount(Question::usb), 1U); // that starts no scan
}

TEST_F(PanelShellTest, KeepsItsKindOfWindowWhileOpen) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  const PanelWindow* const window = shell->window();
  kind = PanelWindow::Kind::attached;
  openPanel();
  EXPECT_EQ(shell->window(), window);
}

class PanelAmongBarsTest : public PanelShellTest {
protected:
  /// Opens a panel whose list is higher than any screen.
  void openHighPanel(PanelWindow::Kind newKind, const TrayPlace& place = {}) {
    makeShell(newKind);
    shell->context().sizing()->measure(PanelSizing::Channel::list, &list, 5000);
    openPanel(place);
  }

  void leaveFree(const QRect& place) {
    freePlace = place;
    QScreen* const screen = shell->window()->screen();
    emit screen->availableGeometryChanged(place);
    queue->settle();
    QGuiApplication::processEvents();
  }

  double cap() const { return *shell->context().sizing()->screenHeight(); }

private:
  const QObject list;
};

TEST_F(PanelAmongBarsTest, ShrinksWhenABarAppears) {
  openHighPanel(PanelWindow::Kind::ordinary);
  EXPECT_EQ(shell->window()->height(), screenHeight() - 40);
  leaveFree({0, 0, 800, 500});
  EXPECT_EQ(shell->window()->height(), 500 - 40);
  EXPECT_EQ(shell->context().sizing()->windowTotalHeight(), 500 - 40);
  leaveFree({0, 0, 800, 700});
  EXPECT_EQ(shell->window()->height(), 700 - 40);
}

TEST_F(PanelAmongBarsTest, DoesNotOverlapBars) {
  openHighPanel(PanelWindow::Kind::ordinary);
  shell->window()->setPosition(100, 30);
  leaveFree({0, 0, 800, 500});
  EXPECT_LE(shell->window()->frameGeometry().bottom(), 499);
}

TEST_F(PanelAmongBarsTest, MovesAwayFromABarThatGrows) {
  openHighPanel(PanelWindow::Kind::attached, {.icon = QRect(300, 760, 24, 24)});
  leaveFree({0, 0, 800, 600});
  EXPECT_LT(shell->window()->geometry().bottom(), 600);
}

TEST_F(PanelAmongBarsTest, MovesAwayFromABarThatLeavesItsHeight) {
  for (const PanelWindow::Kind newKind :
       {PanelWindow::Kind::ordinary, PanelWindow::Kind::attached}) {
    freePlace = {0, 0, 800, 800};
    makeShell(newKind);
    openPanel({.icon = QRect(300, 760, 24, 24)});
    shell->window()->grabWindow(); // forces the layout
    queue->settle();
    shell->window()->setPosition(100, 700 - shell->window()->height());
    QGuiApplication::processEvents();
    const int height = shell->window()->height();
    leaveFree({0, 0, 800, 650});
    EXPECT_EQ(shell->window()->height(), height);
    EXPECT_LT(shell->window()->frameGeometry().bottom(), 650);
    shell.reset();
  }
}

TEST_F(PanelAmongBarsTest, ReadsTheBarsEachTimeItOpens) {
  openHighPanel(PanelWindow::Kind::attached);
  shell->close();
  freePlace = {0, 0, 800, 500}; // without a notification
  openPanel();
  EXPECT_EQ(cap(), 500);
  EXPECT_EQ(shell->window()->height(), 500 - 40);
}

TEST_F(PanelAmongBarsTest, ReadsTheBarsOfTheScreenThatItMovesTo) {
  openHighPanel(PanelWindow::Kind::ordinary);
  freePlace = {0, 0, 800, 500};
  emit shell->window()->screenChanged(shell->window()->screen());
  queue->settle();
  EXPECT_EQ(cap(), 500);
  EXPECT_EQ(shell->window()->height(), 500 - 40);
  leaveFree({0, 0, 800, 450});
  EXPECT_EQ(cap(), 450);
}

TEST_F(PanelAmongBarsTest, SurvivesTheRemovalOfItsScreen) {
  openHighPanel(PanelWindow::Kind::ordinary);
  emit shell->window()->screenChanged(nullptr);
  EXPECT_EQ(cap(), freePlace.height());
}

class HeldPanelTest : public PanelShellTest {
protected:
  void makeHeldShell() { makeShell(PanelWindow::Kind::attached, places); }

  std::shared_ptr<FakeWindowPlaces> places =
      std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::corner);
};

TEST_F(HeldPanelTest, IsHeldInTheCornerOfTheClick) {
  makeHeldShell();
  openPanel({.click = QPoint(790, 590)}); // the platform's screen has 800 x 800 points
  EXPECT_EQ(places->corners, std::vector{Qt::BottomRightCorner});
}

TEST_F(HeldPanelTest, RemembersTheCornerForAStartWithoutAClick) {
  makeHeldShell();
  openPanel();
  shell->close();
  openPanel({.click = QPoint(5, 790)});
  shell->close();
  openPanel();
  EXPECT_EQ(places->corners,
            (std::vector{Qt::TopRightCorner, Qt::BottomLeftCorner, Qt::BottomLeftCorner}));
}

TEST_F(HeldPanelTest, IsHeldOnceForEachOpening) {
  makeHeldShell();
  openPanel();
  shell->window()->setMaximumHeight(600);
  shell->window()->resize(400, 600);
  QGuiApplication::processEvents();
  EXPECT_EQ(places->corners.size(), 1U);
}

TEST_F(HeldPanelTest, IsNoHigherThanTheFreeAreaBetweenBars) {
  makeHeldShell();
  openPanel();
  places->events.freeHeightReported(300);
  const auto& sizing = *shell->context().sizing();
  EXPECT_LE(sizing.windowTotalHeight(), 300 - 40);
  shell->close();
  openPanel(); // the height is not sent again
  emit shell->window()->screenChanged(shell->window()->screen());
  EXPECT_EQ(*shell->context().sizing()->screenHeight(), 300);
}

TEST_F(HeldPanelTest, ClosesOnAClickOutsideAndIsReleased) {
  makeHeldShell();
  openPanel();
  EXPECT_EQ(places->holds, 1);
  places->events.clickedOutside();
  EXPECT_FALSE(shell->isOpen());
  EXPECT_EQ(places->holds, 0);
}

TEST_F(HeldPanelTest, IsReleasedHoweverItIsClosed) {
  makeHeldShell();
  openPanel();
  shell->window()->close();
  EXPECT_EQ(places->holds, 0);
}

class PanelHeldBesideItsIconTest : public PanelShellTest {
protected:
  using Calls = std::vector<std::string>;

  void SetUp() override {
    PanelShellTest::SetUp();
    makeShell(PanelWindow::Kind::attached, places);
  }

  std::shared_ptr<FakeWindowPlaces> places =
      std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::program);
};

TEST_F(PanelHeldBesideItsIconTest, IsHeldBeforeItIsShownAndReleasedWhenItCloses) {
  openPanel();
  EXPECT_EQ(places->calls, (Calls{"hold hidden window", "bring shown window to front"}));
  shell->close();
  EXPECT_EQ(places->calls.back(), "release");
  openPanel();
  EXPECT_EQ(places->holds, 1);
}

TEST_F(PanelHeldBesideItsIconTest, IsHeldOnceIfItIsOpenedTwice) {
  openPanel();
  openPanel();
  EXPECT_EQ(places->calls, (Calls{"hold hidden window", "bring shown window to front",
                                  "bring shown window to front"}));
}

TEST_F(PanelHeldBesideItsIconTest, ClosesOnAClickOutsideThatLeavesItKeyboardFocus) {
  openPanel();
  ASSERT_TRUE(shell->window()->isActive());
  places->events.clickedOutside();
  EXPECT_FALSE(shell->isOpen());
  EXPECT_EQ(places->holds, 0);
}

TEST_F(PanelHeldBesideItsIconTest, DoesNotReopenIfTheClickOutsideWasOnItsIcon) {
  openPanel();
  places->events.clickedOutside();
  shell->toggle();
  EXPECT_FALSE(shell->isOpen());
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelHeldBesideItsIconTest, IsNotHeldAsAnOrdinaryWindow) {
  kind = PanelWindow::Kind::ordinary;
  openPanel();
  EXPECT_EQ(places->calls, Calls{"bring shown window to front"});
}

TEST_F(PanelShellTest, IsOnTheScreenIfItsIconIsNot) {
  makeShell(PanelWindow::Kind::attached);
  for (const QRect& icon : {QRect(5000, -40, 24, 24), QRect(-24, -24, 24, 24)}) {
    openPanel({.icon = icon});
    EXPECT_TRUE(freePlace.contains(shell->window()->geometry().topLeft()));
    EXPECT_TRUE(freePlace.contains(shell->window()->geometry().topRight()));
    shell->close();
  }
}

class UntoldPanelTest : public PanelShellTest {
protected:
  void openUntoldPanel() {
    makeShell(PanelWindow::Kind::ordinary,
              std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::desktop));
    openPanel();
  }
  const PanelSizing& sizing() const { return *shell->context().sizing(); }
};

TEST_F(UntoldPanelTest, HasALargeHeightThatLeavesRoomForBarsAndTitle) {
  openUntoldPanel();
  const int height = std::min(720, screenHeight() - 128);
  EXPECT_EQ(shell->window()->size(), QSize(400, height));
  EXPECT_EQ(shell->window()->minimumSize(), QSize(400, height));
  EXPECT_EQ(shell->window()->maximumSize(), QSize(400, height));
}

TEST_F(UntoldPanelTest, KeepsItsHeightWhenItsContentChanges) {
  openUntoldPanel();
  const QSize size = shell->window()->size();
  shell->window()->grabWindow(); // forces the layout
  queue->settle();
  EXPECT_EQ(shell->window()->size(), size);
}

TEST_F(UntoldPanelTest, GivesTheListTheRestOfTheWindow) {
  openUntoldPanel();
  shell->window()->grabWindow();
  queue->settle();
  EXPECT_EQ(sizing().listAreaHeight(), shell->window()->height() - sizing().chromeHeight() - 2);
}

TEST_F(UntoldPanelTest, IsReopenedIfAnotherWindowHasKeyboardFocus) {
  openUntoldPanel();
  int shown = 0;
  QObject::connect(shell->window(), &QWindow::visibleChanged, shell->window(),
                   [&shown](bool isVisible) { shown += isVisible ? 1 : 0; });
  openPanel();
  EXPECT_EQ(shown, 0); // it is already in front
  clickElsewhere();
  openPanel();
  EXPECT_EQ(shown, 1);
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(UntoldPanelTest, FillsTheScreenWhileItIsMaximized) {
  openUntoldPanel();
  const QSize size = shell->window()->size();
  shell->window()->setWindowStates(Qt::WindowMaximized);
  QGuiApplication::processEvents();
  EXPECT_GT(shell->window()->width(), 400);
  EXPECT_GT(shell->window()->height(), size.height());
  EXPECT_EQ(sizing().listAreaHeight(), shell->window()->height() - sizing().chromeHeight() - 2);
  shell->window()->setWindowStates(Qt::WindowNoState);
  QGuiApplication::processEvents();
  EXPECT_EQ(shell->window()->size(), size);
}

TEST_F(UntoldPanelTest, CentresItsContentInAWideWindow) {
  openUntoldPanel();
  shell->window()->setMaximumSize({1000, 1000});
  shell->window()->resize(700, 500);
  QGuiApplication::processEvents();
  EXPECT_EQ(shell->window()->rootObject()->width(), 400);
  EXPECT_EQ(shell->window()->rootObject()->x(), 150);
  EXPECT_EQ(shell->window()->rootObject()->height(), 500);
}

TEST_F(UntoldPanelTest, DropsTheHeightsOfItsFormerWindow) {
  makeShell(PanelWindow::Kind::ordinary,
            std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::corner));
  openPanel();
  shell->window()->grabWindow();
  queue->settle();
  const double chrome = sizing().chromeHeight();
  EXPECT_GT(chrome, 0);
  shell->close();
  kind = PanelWindow::Kind::attached;
  openPanel();
  shell->window()->grabWindow();
  queue->settle();
  EXPECT_EQ(sizing().chromeHeight(), chrome);
}

TEST_F(UntoldPanelTest, FollowsItsContentAgainAfterATrayStarts) {
  makeShell(PanelWindow::Kind::ordinary,
            std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::corner));
  openPanel();
  shell->close();
  kind = PanelWindow::Kind::attached;
  openPanel();
  shell->window()->grabWindow();
  queue->settle();
  EXPECT_EQ(sizing().listAreaHeight(), sizing().windowTotalHeight() - sizing().chromeHeight() - 2);
}

} // namespace
} // namespace tamberline
