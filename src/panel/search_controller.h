#pragma once

#include "async/main_queue.h"
#include "controls/scroll_proxy.h"
#include "panel/suggestion_model.h"
#include "scanner/port_scanner.h"
#include "tree/search_entries.h"

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// The search text, its suggestions, and the jump to a suggestion. Main thread only.
class SearchController final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Search)
  QML_SINGLETON

  Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
  Q_PROPERTY(bool isSearching READ isSearching NOTIFY searchTextChanged)
  Q_PROPERTY(QAbstractItemModel* suggestions READ suggestions CONSTANT)
  Q_PROPERTY(bool hasSuggestions READ hasSuggestions NOTIFY suggestionsChanged)
  /// The text field. It also receives what is typed elsewhere on the panel.
  Q_PROPERTY(QQuickItem* field READ field WRITE setField NOTIFY fieldChanged)
  /// Scrolls the list; null until the list exists.
  Q_PROPERTY(tamberline::ScrollProxy* scrollProxy READ scrollProxy WRITE setScrollProxy NOTIFY
                 scrollProxyChanged)

public:
  /// `indexOfRow` returns the position of a node's row in the list, or -1 if it is not there.
  SearchController(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
                   std::function<int(const std::string& id)> indexOfRow);
  ~SearchController() override;
  SearchController(const SearchController&) = delete;
  SearchController& operator=(const SearchController&) = delete;

  /// The engine's instance; called by QML.
  static SearchController* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  QString searchText() const { return searchText_; }
  void setSearchText(const QString& text);
  bool isSearching() const { return !searchText_.isEmpty(); }
  SuggestionModel* suggestions() { return &suggestions_; }
  bool hasSuggestions() const { return suggestions_.rowCount() > 0; }
  QQuickItem* field() const { return field_; }
  void setField(QQuickItem* field);
  ScrollProxy* scrollProxy() const { return scrollProxy_; }
  void setScrollProxy(ScrollProxy* proxy);

  /// Expands the nodes that contain the suggestion, highlights it and scrolls to it.
  Q_INVOKABLE void jumpToSuggestion(int index);
  /// The same for any node of the port tree, by its identifier.
  Q_INVOKABLE void jumpToNode(const QString& id);
  /// Does nothing if nothing was found.
  Q_INVOKABLE void jumpToFirst() { jumpToSuggestion(0); }
  /// Also moves keyboard focus to the field, because the suggestions, which may have it, disappear.
  Q_INVOKABLE void clear();
  /// Appends to the search text and moves keyboard focus to the field.
  void type(const QString& text);

  void focusField();

signals:
  void searchTextChanged();
  void suggestionsChanged();
  void scrollProxyChanged();
  void fieldChanged();

private:
  std::vector<SearchEntry> filteredSuggestions() const;
  void refreshSuggestions();
  void jumpTo(const std::string& id);
  void highlight(const std::string& id);
  void scrollTo(const std::string& id);
  void after(std::chrono::milliseconds delay, MainQueue::Work step);

  std::shared_ptr<PortScanner> scanner_;
  std::shared_ptr<MainQueue> queue_;
  std::function<int(const std::string& id)> indexOfRow_;
  QString searchText_;
  SuggestionModel suggestions_;
  QPointer<QQuickItem> field_;
  QPointer<ScrollProxy> scrollProxy_;
  MainQueue::WorkItem nextStep_ = 0; // of the jump in progress
  Observation treeObservation_;
};

} // namespace tamberline
