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

/// How high the panel wants to be, from the heights that its content measures. All in points;
/// measurements take effect one turn of the queue later. Main thread only.
class PanelSizing : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Sizing)
  QML_SINGLETON

  /// While something is searched for, chromeBaseline keeps its last value.
  Q_PROPERTY(bool isSearching READ isSearching WRITE setSearching NOTIFY changed)
  Q_PROPERTY(double windowTotalHeight READ windowTotalHeight NOTIFY changed)
  Q_PROPERTY(double listAreaHeight READ listAreaHeight NOTIFY changed)
  /// The most that the list area can ever need on this screen.
  Q_PROPERTY(double maxListAreaHeight READ maxListAreaHeight NOTIFY changed)
  Q_PROPERTY(double maxSuggestionsHeight READ maxSuggestionsHeight NOTIFY changed)

public:
  /// Which of the two sums a measurement belongs to: heights of the list combine by maximum,
  /// those of the chrome by sum.
  enum class Channel : unsigned char { list, chrome };

  explicit PanelSizing(std::shared_ptr<MainQueue> queue);

  /// The engine's own.
  static PanelSizing* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  bool isSearching() const { return isSearching_; }
  void setSearching(bool isSearching);

  /// Absent without a screen.
  void setScreenHeight(std::optional<double> points);
  std::optional<double> screenHeight() const { return screenHeight_; }

  /// The height that the desktop gives the window whatever it asks for; absent where the window
  /// follows its content. The list has what is left of it.
  void setGivenHeight(std::optional<double> points);

  /// `source` is only told apart from others; a height of 0 takes its measurement back.
  void measure(Channel channel, const void* source, double height);

  double chromeHeight() const { return chromeHeight_; }
  double chromeBaseline() const { return chromeBaseline_; }
  double listHeight() const { return listHeight_; }
  double windowTotalHeight() const;
  double listAreaHeight() const;
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
  std::map<const void*, double> listHeights_;
  std::map<const void*, double> chromeHeights_;
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

/// The natural height of what the list area shows.
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
