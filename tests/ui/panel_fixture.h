#pragma once

#include "app/panel_shell.h"
#include "support/fake_ejector.h"
#include "support/fake_machine.h"
#include "support/fake_volume_files.h"
#include "support/hand_driven_animations.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"
#include "ui/accessible_objects.h"
#include "ui/qml_warnings.h"

#include <QQuickItem>
#include <QString>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// A panel in a window of its own, over a real scanner whose machine, clock and events are in the
/// test's hands. Whatever QML warns of fails the test.
class PanelFixture : public testing::Test {
protected:
  PanelFixture();
  ~PanelFixture() override;
  PanelFixture(const PanelFixture&) = delete;
  PanelFixture& operator=(const PanelFixture&) = delete;

  /// Settings that a test can change before the panel opens.
  struct Setting {
    double fontScale = 1;
    bool isBoundByScreen = true;
    bool hasActions = true;
    /// The scanner tests and ejects volumes, instead of only recording the requests.
    bool areVolumesLive = false;
  };

  /// A scanner over the saved reports of samples/`name`, instead of the fake machine.
  void useSample(const std::string& name);
  /// A scanner over the fake machine that knows nothing yet.
  std::shared_ptr<PortScanner> anotherScanner() { return scannerOver(machine); }

  /// Opens the panel and finishes its first scan.
  void openPanel(Setting setting);
  void openPanel() { openPanel(Setting{}); }
  /// The same without running the queue: the first scan is in progress.
  void openPanelWhileScanning(Setting setting);
  void closePanel();

  /// Renders one frame.
  void draw();
  /// Runs everything that can happen at the current time, until the panel is stable.
  void settle();
  /// Moves the clock and settles. Animations finish in a single frame, as on a very slow machine.
  void advance(std::chrono::milliseconds duration);
  /// Runs another whole scan.
  void rescan();

  void expandAll();
  void collapseAll();

  PanelWindow& window() { return *shell->window(); }
  PanelContext& context() { return shell->context(); }
  PanelListModel& rows() { return *context().panel()->rows(); }
  std::vector<AccessibleObject> objects() { return accessibleObjects(window()); }

  bool isShown(QAccessible::Role role, const QString& name) {
    return findAccessible(window(), role, name).has_value();
  }
  bool isTextShown(const QString& text) { return isShown(QAccessible::StaticText, text); }
  /// Fails if there is no such object.
  AccessibleObject find(QAccessible::Role role, const QString& name);
  /// Presses the button whose name starts like this, and settles.
  void press(const QString& buttonName);

  void typeKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void typeText(const QString& text);
  /// Moves the pointer to the position and clicks.
  void click(QPointF position);
  void movePointer(QPointF position);

  QQuickItem* listView();
  double listPosition() { return listView()->property("contentY").toDouble(); }
  /// Whether the row's content is within the visible part of the list.
  bool isInView(const QQuickItem& row);
  /// The item of a row of the list; null if the list has not created one.
  QQuickItem* rowItem(int index);
  int indexOfRowNamed(const QString& start);

  QmlWarnings warnings;
  HandDrivenAnimations animations;
  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<SimulatedEventSource> events = std::make_shared<SimulatedEventSource>();
  std::chrono::system_clock::time_point now{std::chrono::seconds(1'000'000)};
  std::shared_ptr<FakeVolumeFiles> files = std::make_shared<FakeVolumeFiles>();
  std::shared_ptr<FakeEjector> ejector = std::make_shared<FakeEjector>();
  std::shared_ptr<PortScanner> scanner;
  std::unique_ptr<PanelShell> shell;

  std::vector<std::string> testedVolumes;
  std::vector<std::string> stoppedVolumes;
  std::vector<std::string> ejectedVolumes;
  int manualCount = 0;
  int closeCount = 0;
  int quitCount = 0;

private:
  std::shared_ptr<PortScanner> scannerOver(std::shared_ptr<MachineSource> machine);
  PanelActions actions(const Setting& setting);
};

} // namespace tamberline
