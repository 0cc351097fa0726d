#pragma once

#include "async/main_queue.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// Computes the panel's height from the measured heights of its content. All in points.
/// Measurements take effect later, through the queue. Main thread only.
class PanelSizing : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Sizing)
  QML_SINGLETON

  /// During a search, chromeBaseline keeps its last value.
  Q_PROPERTY(bool isSearching READ isSearching WRITE setSearching NOTIFY changed)
  Q_PROPERTY(double windowTotalHeight READ windowTotalHeight NOTIFY changed)
  Q_PROPERTY(double listAreaHeight READ listAreaHeight NOTIFY changed)
  /// Whether the list is longer than its area will be once the window has followed its content.
  Q_PROPERTY(bool listScrolls READ listScrolls NOTIFY changed)
  /// The max height of the list area on this screen.
  Q_PROPERTY(double maxListAreaHeight READ maxListAreaHeight NOTIFY changed)
  Q_PROPERTY(double maxSuggestionsHeight READ maxSuggestionsHeight NOTIFY changed)

public:
  /// How measurements are combined: the max of the list's heights, the sum of the chrome's.
  enum class Channel : unsigned char { list, chrome };

  explicit PanelSizing(std::shared_ptr<MainQueue> queue);

  /// The engine's instance; called by QML.
  static PanelSizing* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  bool isSearching() const { return isSearching_; }
  void setSearching(bool isSearching);

  /// Absent if there is no screen.
  void setScreenHeight(std::optional<double> points);
  std::optional<double> screenHeight() const { return screenHeight_; }

  /// The height that the desktop forces on the window; absent if the window follows its content.
  /// The list gets what the other parts leave.
  void setGivenHeight(std::optional<double> points);

  /// `source` only identifies the measurement; a height of 0 removes it.
  void measure(Channel channel, const QObject* source, double height);

  double chromeHeight() const { return chromeHeight_; }
  double chromeBaseline() const { return chromeBaseline_; }
  double listHeight() const { return listHeight_; }
  double windowTotalHeight() const;
  double listAreaHeight() const;
  bool listScrolls() const;
  double maxListAreaHeight() const;
  double maxSuggestionsHeight() const;

signals:
  void changed();

private:
  struct PendingCombination {};

  void combineSoon();
  void combine();
  double shownHeight() const { return givenHeight_.value_or(windowTotalHeight()); }

  std::shared_ptr<MainQueue> queue_;
  std::shared_ptr<PendingCombination> pendingCombination_; // posted work holds it weakly
  std::map<const QObject*, double> listHeights_;
  std::map<const QObject*, double> chromeHeights_;
  std::optional<double> screenHeight_;
  std::optional<double> givenHeight_;
  double chromeHeight_ = 0;
  double chromeBaseline_ = 0;
  double listHeight_ = 0;
  bool isSearching_ = false;
};

/// One measured height. In QML: `ChromeHeightKey { height: header.height }`.
class HeightKey : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(double height READ height WRITE setHeight NOTIFY heightChanged)

public:
  HeightKey(PanelSizing::Channel channel, QObject* parent) : QObject(parent), channel_(channel) {}
  HeightKey(const HeightKey&) = delete;
  HeightKey& operator=(const HeightKey&) = delete;
  ~HeightKey() override;

  double height() const { return height_; }
  void setHeight(double height);

signals:
  void heightChanged();

private:
  PanelSizing* sizing() const;

  QPointer<PanelSizing> measuredBy_; // null until it has a height

  PanelSizing::Channel channel_;
  double height_ = 0;
};

/// The natural height of the list area's content.
class ListHeightKey : public tamberline::HeightKey {
  Q_OBJECT
  QML_ELEMENT

public:
  explicit ListHeightKey(QObject* parent = nullptr)
      : HeightKey(PanelSizing::Channel::list, parent) {}
};

/// The height of one of the parts around the list.
class ChromeHeightKey : public tamberline::HeightKey {
  Q_OBJECT
  QML_ELEMENT

public:
  explicit ChromeHeightKey(QObject* parent = nullptr)
      : HeightKey(PanelSizing::Channel::chrome, parent) {}
};

} // namespace tamberline
