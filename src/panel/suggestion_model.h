#pragma once

#include "tree/search_entries.h"

#include <QAbstractListModel>

#include <vector>

namespace tamberline {

/// The search results for their list view. Main thread only.
class SuggestionModel final : public QAbstractListModel {
  Q_OBJECT

public:
  enum Role : int { NameRole = Qt::UserRole + 1, DetailRole, BreadcrumbRole, SentenceRole };

  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  void setEntries(std::vector<SearchEntry> entries);

  /// Null if the index is outside the list; valid until the entries change.
  const SearchEntry* entryAt(int index) const;

private:
  std::vector<SearchEntry> entries_;
};

} // namespace tamberline
