#include "panel/suggestion_model.h"

#include "views/shown_labels.h"

#include <utility>

namespace tamberline {
namespace {

std::string sentenceOf(const SearchEntry& entry) {
  std::string sentence = entry.name;
  for (const std::string& part : {entry.detail, entry.breadcrumb}) {
    sentence += part.empty() ? "" : ", " + part;
  }
  return sentence;
}

} // namespace

int SuggestionModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant SuggestionModel::data(const QModelIndex& index, int role) const {
  const SearchEntry* entry = index.isValid() ? entryAt(index.row()) : nullptr;
  if (entry == nullptr) {
    return {};
  }
  switch (role) {
  case Qt::DisplayRole:
  case NameRole:
    return shownLabel(entry->name);
  case DetailRole:
    return shownLabel(entry->detail);
  case BreadcrumbRole:
    return shownTooltip(entry->breadcrumb);
  case SentenceRole:
    return shownLabel(sentenceOf(*entry), maxSentenceLength);
  default:
    return {};
  }
}

QHash<int, QByteArray> SuggestionModel::roleNames() const {
  return {{NameRole, "name"},
          {DetailRole, "detail"},
          {BreadcrumbRole, "breadcrumb"},
          {SentenceRole, "sentence"}};
}

void SuggestionModel::setEntries(std::vector<SearchEntry> entries) {
  if (entries == entries_) {
    return;
  }
  beginResetModel();
  entries_ = std::move(entries);
  endResetModel();
}

const SearchEntry* SuggestionModel::entryAt(int index) const {
  const bool isInside = index >= 0 && index < rowCount();
  return isInside ? &entries_[static_cast<std::size_t>(index)] : nullptr;
}

} // namespace tamberline
