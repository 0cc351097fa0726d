#include "ui/panel_fixture.h"

#include "platform/saved/saved_reports.h"
#include "ui/visible_items.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <stdexcept>
#include <utility>

namespace tamberline {
namespace {

constexpr int mostRounds = 60;
/// The delay of the second attempt at a report that failed.
constexpr std::chrono::milliseconds scanTakes{150};

void sendMouse(QWindow& window, QEvent::Type type, QPointF position, Qt::MouseButtons buttons) {
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, position, window.mapToGlobal(position), button, buttons, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &event);
}

} // namespace

PanelFixture::PanelFixture() {
  answerWithEmptyReports(*machine);
  scanner = scannerOver(machine);
}

PanelFixture::~PanelFixture() {
  closePanel();
  queue->end();
  EXPECT_EQ(warnings.text(), "");
}

std::shared_ptr<PortScanner> PanelFixture::scannerOver(std::shared_ptr<MachineSource> source) {
  return PortScanner::create({.acquisition = {.machine = std::move(source), .queue = queue},
                              .events = events,
                              .benchmark = std::make_shared<Benchmark>(files),
                              .ejector = ejector,
                              .now = [this] { return now; }});
}

PanelActions PanelFixture::actions(const Setting& setting) {
  if (!setting.hasActions) {
    return {};
  }
  PanelActions actions{
      .runBenchmark = [this](const std::string& volume) { testedVolumes.push_back(volume); },
      .stopBenchmark = [this](const std::string& volume) { stoppedVolumes.push_back(volume); },
      .eject = [this](const std::string& volume) { ejectedVolumes.push_back(volume); },
      .openManual = [this] { ++manualCount; },
      .closePanel = [this] { ++closeCount; },
      .quit = [this] { ++quitCount; }};
  if (setting.areVolumesLive) {
    actions.runBenchmark = [this](const std::string& volume) { scanner->runBenchmark(volume); };
    actions.stopBenchmark = [this](const std::string& volume) { scanner->stopBenchmark(volume); };
    actions.eject = [this](const std::string& volume) { scanner->eject(volume); };
  }
  return actions;
}

void PanelFixture::useSample(const std::string& name) {
  scanner = scannerOver(savedMachine(SAMPLES_FOLDER "/" + name));
}

void PanelFixture::openPanelWhileScanning(Setting setting) {
  shell = std::make_unique<PanelShell>(
      PanelContext::Outside{.scanner = scanner,
                            .queue = queue,
                            .now = [this] { return now; },
                            .fontScale = setting.fontScale,
                            .actions = actions(setting)},
      PanelShell::Placement{.isBoundByScreen = setting.isBoundByScreen});
  shell->open();
}

void PanelFixture::openPanel(Setting setting) {
  openPanelWhileScanning(setting);
  advance(scanTakes);
}

void PanelFixture::closePanel() {
  shell.reset();
}

/// Finishes all layouts.
void PanelFixture::draw() {
  QEvent update(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(&window(), &update);
}

void PanelFixture::settle() {
  std::string previous;
  for (int round = 0; round < mostRounds; ++round) {
    queue->settle();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    draw();
    std::string places = placesOfVisibleItems(window());
    if (places == previous) {
      return;
    }
    previous = std::move(places);
  }
}

void PanelFixture::advance(std::chrono::milliseconds duration) {
  queue->advance(duration);
  settle();
  animations.advanceBy(duration);
  settle();
}

void PanelFixture::rescan() {
  scanner->scan();
  advance(scanTakes);
}

void PanelFixture::expandAll() {
  context().panel()->expandAll();
  settle();
}

void PanelFixture::collapseAll() {
  context().panel()->collapseAll();
  settle();
}

AccessibleObject PanelFixture::find(QAccessible::Role role, const QString& name) {
  const std::optional<AccessibleObject> found = findAccessible(window(), role, name);
  if (!found) {
    throw std::runtime_error("nothing is called " + name.toStdString());
  }
  return *found;
}

void PanelFixture::press(const QString& buttonName) {
  const auto button = findAccessibleStarting(window(), QAccessible::Button, buttonName);
  ASSERT_TRUE(button) << "no button is called " << buttonName.toStdString();
  EXPECT_TRUE(button->press());
  settle();
}

void PanelFixture::typeKey(int key, Qt::KeyboardModifiers modifiers) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers);
    QCoreApplication::sendEvent(&window(), &event);
  }
  settle();
}

void PanelFixture::typeText(const QString& text) {
  for (const QChar character : text) {
    QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, character);
    QCoreApplication::sendEvent(&window(), &event);
  }
  settle();
}

void PanelFixture::movePointer(QPointF position) {
  sendMouse(window(), QEvent::MouseMove, position, Qt::NoButton);
  settle();
}

void PanelFixture::click(QPointF position) {
  sendMouse(window(), QEvent::MouseButtonPress, position, Qt::LeftButton);
  sendMouse(window(), QEvent::MouseButtonRelease, position, Qt::NoButton);
  settle();
}

QQuickItem* PanelFixture::listView() {
  for (const AccessibleObject& object : objects()) {
    if (object.role() == QAccessible::List && object.item()->property("visibleHeight").isValid()) {
      return object.item();
    }
  }
  throw std::runtime_error("the panel shows no list of ports");
}

bool PanelFixture::isInView(const QQuickItem& row) {
  const QQuickItem& area = *listView()->parentItem();
  const QRectF place = row.mapRectToItem(&area, QRectF(0, 0, row.width(), row.height()));
  return place.top() >= -0.5 && place.bottom() <= area.height() + 0.5;
}

QQuickItem* PanelFixture::rowItem(int index) {
  QQuickItem* row = nullptr;
  QMetaObject::invokeMethod(listView(), "itemAtIndex", Q_RETURN_ARG(QQuickItem*, row),
                            Q_ARG(int, index));
  return row;
}

int PanelFixture::indexOfRowNamed(const QString& start) {
  for (int index = 0; index < rows().rowCount(); ++index) {
    if (rows().index(index).data(PanelListModel::SentenceRole).toString().startsWith(start)) {
      return index;
    }
  }
  return -1;
}

} // namespace tamberline
