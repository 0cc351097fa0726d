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

/// The search field, its suggestions, and the way to what was found. Main thread only.
class SearchController final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Search)
  QML_SINGLETON

  Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
  Q_PROPERTY(bool isSearching READ isSearching NOTIFY searchTextChanged)
  Q_PROPERTY(QAbstractItemModel* suggestions READ suggestions CONSTANT)
  Q_PROPERTY(bool hasSuggestions READ hasSuggestions NOTIFY suggestionsChanged)
  /// The text field; typing anywhere on the panel goes on in it.
  Q_PROPERTY(QQuickItem* field READ field WRITE setField NOTIFY fieldChanged)
  /// Moves the list; null until the list appears.
  Q_PROPERTY(tamberline::ScrollProxy* scrollProxy READ scrollProxy WRITE setScrollProxy NOTIFY
                 scrollProxyChanged)

public:
  /// `indexOfRow` tells where in the list a node's row stands, -1 when nowhere.
  SearchController(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
                   std::function<int(const std::string& id)> indexOfRow);
  ~SearchController() override;
  SearchController(const SearchController&) = delete;
  SearchController& operator=(const SearchController&) = delete;

  /// The engine's own.
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

  /// Opens what contains the suggestion, highlights it, and scrolls to it.
  Q_INVOKABLE void jumpToSuggestion(int index);
  /// Does nothing when nothing was found.
  Q_INVOKABLE void jumpToFirst() { jumpToSuggestion(0); }
  /// Leaves the keyboard in the field, wherever it was: the suggestions go.
  Q_INVOKABLE void clear();
  /// Appends to the search text, and gives the keyboard to the field.
  void type(const QString& text);

  /// Takes the keyboard to the field.
  void focusField();

signals:
  void searchTextChanged();
  void suggestionsChanged();
  void scrollProxyChanged();
  void fieldChanged();

private:
  std::vector<SearchEntry> filteredSuggestions() const;
  void refreshSuggestions();
  void jumpTo(const SearchEntry& entry);
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
  MainQueue::WorkItem nextStep_ = 0; // of the jump under way
  Observation treeObservation_;
};

} // namespace tamberline
