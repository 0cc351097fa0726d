#pragma once

#include "views/panel_rows.h"

#include <QAbstractListModel>

#include <string>
#include <vector>

namespace tamberline {

/// The lines of the panel for its list view. `setRows` signals insertions, removals, moves and
/// changes of exactly the lines that differ. Main thread only.
class PanelListModel final : public QAbstractListModel {
  Q_OBJECT

public:
  enum Role : int {
    KindRole = Qt::UserRole + 1,
    RowIdRole,
    ContentRole, // of the type that the delegate of the kind requires
    SentenceRole,
    FirstOfCardRole,
    LastOfCardRole,
    DepthRole,
    LastSiblingRole,
    CanExpandRole,
    ExpandedRole,
    TintRole,
    PulseRole,
    AnswerRole,
  };

  using QAbstractListModel::QAbstractListModel;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  void setRows(std::vector<PanelRow> rows);

  /// Null if the index is outside the list.
  const PanelRow* rowAt(int index) const;
  /// -1 if no line has the identifier.
  int indexOf(const std::string& id) const;

private:
  void applyChanges(const std::vector<PanelRow>& rows);
  void replaceChangedRows(std::vector<PanelRow> rows);

  std::vector<PanelRow> rows_;
};

} // namespace tamberline
