#include "panel/search_controller.h"

#include "controls/engine_objects.h"
#include "tree/node_identifiers.h"
#include "views/search_suggestions.h"

#include <utility>

namespace tamberline {
namespace {

/// The times that the expanded rows need to appear, and the highlight to be visible before the list
/// scrolls.
constexpr std::chrono::milliseconds rowAppearTime{30};
constexpr std::chrono::milliseconds highlightFadeInTime{150};

} // namespace

SearchController::SearchController(std::shared_ptr<PortScanner> scanner,
                                   std::shared_ptr<MainQueue> queue,
                                   std::function<int(const std::string& id)> indexOfRow)
    : scanner_(std::move(scanner)), queue_(std::move(queue)), indexOfRow_(std::move(indexOfRow)),
      treeObservation_(scanner_->portTree.observe([this] { refreshSuggestions(); })) {}

SearchController::~SearchController() {
  queue_->cancel(nextStep_);
}

SearchController* SearchController::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<SearchController>(*engine);
}

void SearchController::setSearchText(const QString& text) {
  if (text == searchText_) {
    return;
  }
  searchText_ = text;
  refreshSuggestions();
  emit searchTextChanged();
}

void SearchController::setField(QQuickItem* field) {
  field_ = field;
  emit fieldChanged();
}

void SearchController::setScrollProxy(ScrollProxy* proxy) {
  scrollProxy_ = proxy;
  emit scrollProxyChanged();
}

void SearchController::jumpToSuggestion(int index) {
  if (const SearchEntry* entry = suggestions_.entryAt(index)) {
    jumpTo(std::string(entry->id)); // a copy: clearing the search clears the suggestions
  }
}

void SearchController::jumpToNode(const QString& id) {
  jumpTo(id.toStdString());
}

void SearchController::clear() {
  setSearchText({});
  focusField();
}

void SearchController::type(const QString& text) {
  focusField();
  setSearchText(searchText_ + text);
}

void SearchController::focusField() {
  if (field_ != nullptr) {
    field_->forceActiveFocus(Qt::OtherFocusReason);
  }
}

std::vector<SearchEntry> SearchController::filteredSuggestions() const {
  if (!isSearching()) {
    return {};
  }
  return tamberline::filteredSuggestions(shownSearchEntries(scanner_->portTree.get()),
                                         searchText_.toStdString());
}

void SearchController::refreshSuggestions() {
  suggestions_.setEntries(filteredSuggestions());
  emit suggestionsChanged();
}

void SearchController::jumpTo(const std::string& id) {
  clear();
  std::set<std::string> expanded = scanner_->expandedOverrideIDs.get();
  for (std::string& ancestor : ancestorIDs(id)) {
    expanded.insert(std::move(ancestor));
  }
  scanner_->expandedOverrideIDs.set(std::move(expanded));
  after(rowAppearTime, [this, id] { highlight(id); });
}

void SearchController::highlight(const std::string& id) {
  scanner_->highlightedNodeID.set(std::nullopt);
  scanner_->highlightedNodeID.set(id);
  after(highlightFadeInTime, [this, id] { scrollTo(id); });
}

void SearchController::scrollTo(const std::string& id) {
  nextStep_ = 0;
  if (const int index = indexOfRow_(id); scrollProxy_ != nullptr && index >= 0) {
    scrollProxy_->centre(index);
  }
}

/// Replaces the pending step, so that a new jump stops one that is still in progress.
void SearchController::after(std::chrono::milliseconds delay, MainQueue::Work step) {
  queue_->cancel(nextStep_);
  nextStep_ = queue_->postLater(delay, std::move(step));
}

} // namespace tamberline
