#pragma once

#include "async/main_queue.h"
#include "panel/answers_controller.h"
#include "panel/panel_list_model.h"
#include "panel/panel_texts.h"
#include "panel/row_pulses.h"
#include "scanner/port_scanner.h"
#include "views/panel.h"
#include "views/row_expansion.h"
#include "views/view_enums.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// What the panel can request besides a scan. An absent action does nothing, and its buttons are
/// disabled.
struct PanelActions {
  std::function<void(const std::string& mountPoint)> runBenchmark = {};
  std::function<void(const std::string& mountPoint)> stopBenchmark = {};
  std::function<void(const std::string& mountPoint)> eject = {};
  std::function<void()> openManual = {};
  std::function<void()> closePanel = {};
  std::function<void()> quit = {};
};

/// The panel's list and actions for QML. Passes the scanner's results to QML, and the user's
/// actions to the scanner and to `PanelActions`. Main thread only.
class PanelController final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Panel)
  QML_SINGLETON

  Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
  Q_PROPERTY(tamberline::views::PanelState state READ state NOTIFY stateChanged)
  /// Shown instead of the cards.
  Q_PROPERTY(QString message READ message NOTIFY stateChanged)
  /// What to do next or, below cards, why they say less than expected.
  Q_PROPERTY(QString hint READ hint NOTIFY stateChanged)
  Q_PROPERTY(bool isScanning READ isScanning NOTIFY isScanningChanged)
  Q_PROPERTY(tamberline::PanelTexts texts READ texts CONSTANT)
  Q_PROPERTY(bool canTestVolumes READ canTestVolumes CONSTANT)
  Q_PROPERTY(bool canEject READ canEject CONSTANT)
  Q_PROPERTY(bool canOpenManual READ canOpenManual CONSTANT)
  Q_PROPERTY(bool canQuit READ canQuit CONSTANT)

public:
  /// `answers` must outlive it.
  PanelController(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
                  const AnswersController& answers, PanelActions actions);

  /// The engine's instance; called by QML.
  static PanelController* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  PanelListModel* rows() { return &rows_; }
  views::PanelState state() const;
  QString message() const;
  QString hint() const;
  bool isScanning() const { return scanner_->isScanning.get(); }
  static PanelTexts texts() { return {}; }
  bool canTestVolumes() const { return actions_.runBenchmark != nullptr; }
  bool canEject() const { return actions_.eject != nullptr; }
  bool canOpenManual() const { return actions_.openManual != nullptr; }
  bool canQuit() const { return actions_.quit != nullptr; }

  Q_INVOKABLE void scan();
  Q_INVOKABLE void expandAll();
  Q_INVOKABLE void collapseAll();
  Q_INVOKABLE void toggle(int index);
  Q_INVOKABLE void setExpanded(int index, bool isExpanded);
  Q_INVOKABLE void runBenchmark(const QString& mountPoint) const;
  Q_INVOKABLE void stopBenchmark(const QString& mountPoint) const;
  Q_INVOKABLE void eject(const QString& mountPoint) const;
  Q_INVOKABLE void openManual() const;
  Q_INVOKABLE void close() const;
  Q_INVOKABLE void quit() const;

signals:
  void stateChanged();
  void isScanningChanged();

private:
  void observeScanner();
  void describe();
  void refreshRows();
  void showRows();
  bool updatePulses();
  void followTree();
  void removeVanishedRows();
  void followHighlight();
  void dropExpansion();

  std::shared_ptr<PortScanner> scanner_;
  const AnswersController& answers_;
  PanelActions actions_;
  RowExpansion expansion_;
  RowPulses pulses_;
  PanelListModel rows_;
  std::shared_ptr<const Panel> panel_;
  std::uint64_t shownTreeVersion_ = 0;
  bool wasHighlightShown_ = false;
  std::vector<Observation> observations_; // last: their callbacks use everything above
};

} // namespace tamberline
