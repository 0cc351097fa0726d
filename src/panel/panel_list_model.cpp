#include "panel/panel_list_model.h"

#include "controls/list_changes.h"
#include "views/row_sentences.h"
#include "views/shown_labels.h"

#include <QString>
#include <QVariant>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tamberline {
namespace {

/// The kind is part of the key, because a line of another kind needs another delegate.
std::vector<std::string> keysOf(const std::vector<PanelRow>& rows) {
  std::vector<std::string> keys;
  keys.reserve(rows.size());
  std::transform(rows.begin(), rows.end(), std::back_inserter(keys), [](const PanelRow& row) {
    return row.id + static_cast<char>('a' + static_cast<int>(row.kind));
  });
  return keys;
}

int asInt(std::size_t number) {
  return static_cast<int>(number);
}

} // namespace

int PanelListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : asInt(rows_.size());
}

QVariant PanelListModel::data(const QModelIndex& index, int role) const {
  const PanelRow* row = index.isValid() ? rowAt(index.row()) : nullptr;
  if (row == nullptr) {
    return {};
  }
  const PanelRow::TreePlace place = row->place.value_or(PanelRow::TreePlace{});
  switch (role) {
  case KindRole:
    return static_cast<int>(row->kind);
  case RowIdRole:
    return QString::fromStdString(row->id);
  case ContentRole:
    return std::visit([](const auto& content) { return QVariant::fromValue(*content); },
                      row->content);
  case Qt::DisplayRole:
  case SentenceRole:
    return shownLabel(rowSentence(*row), maxSentenceLength);
  case FirstOfCardRole:
    return row->isFirstOfCard;
  case LastOfCardRole:
    return row->isLastOfCard;
  case DepthRole:
    return place.depth;
  case LastSiblingRole:
    return place.isLast;
  case CanExpandRole:
    return row->canExpand;
  case ExpandedRole:
    return row->isExpanded;
  case TintRole:
    return QVariant::fromValue(place.tint);
  case PulseRole:
    return static_cast<int>(row->pulse);
  case AnswerRole:
    return QVariant::fromValue(row->answer ? **row->answer : RowAnswer{});
  default:
    return {};
  }
}

QHash<int, QByteArray> PanelListModel::roleNames() const {
  return {
      {KindRole, "kind"},
      {RowIdRole, "rowId"},
      {ContentRole, "content"},
      {SentenceRole, "sentence"},
      {FirstOfCardRole, "isFirstOfCard"},
      {LastOfCardRole, "isLastOfCard"},
      {DepthRole, "depth"},
      {LastSiblingRole, "isLast"},
      {CanExpandRole, "canExpand"},
      {ExpandedRole, "isExpanded"},
      {TintRole, "tint"},
      {PulseRole, "pulse"},
      {AnswerRole, "answer"},
  };
}

void PanelListModel::setRows(std::vector<PanelRow> rows) {
  applyChanges(rows);
  replaceChangedRows(std::move(rows));
}

const PanelRow* PanelListModel::rowAt(int index) const {
  const bool isInside = index >= 0 && index < asInt(rows_.size());
  return isInside ? &rows_[static_cast<std::size_t>(index)] : nullptr;
}

int PanelListModel::indexOf(const std::string& id) const {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [&](const PanelRow& row) { return row.id == id; });
  return found == rows_.end() ? -1 : asInt(static_cast<std::size_t>(found - rows_.begin()));
}

void PanelListModel::applyChanges(const std::vector<PanelRow>& rows) {
  const auto at = [](auto begin, std::size_t offset) {
    return begin + static_cast<std::ptrdiff_t>(offset);
  };
  for (const ListChange& change : listChanges(keysOf(rows_), keysOf(rows))) {
    const int first = asInt(change.first);
    const int last = asInt(change.first + change.count) - 1;
    const auto begin = at(rows_.begin(), change.first);
    switch (change.kind) {
    case ListChange::Kind::remove:
      beginRemoveRows({}, first, last);
      rows_.erase(begin, at(begin, change.count));
      endRemoveRows();
      break;
    case ListChange::Kind::move:
      beginMoveRows({}, first, last, {}, asInt(change.to));
      std::rotate(at(rows_.begin(), change.to), begin, at(begin, change.count));
      endMoveRows();
      break;
    case ListChange::Kind::insert:
      beginInsertRows({}, first, last);
      rows_.insert(begin, at(rows.begin(), change.to), at(rows.begin(), change.to + change.count));
      endInsertRows();
      break;
    }
  }
}

/// `rows_` must already be in the new order.
void PanelListModel::replaceChangedRows(std::vector<PanelRow> rows) {
  for (std::size_t index = 0; index < rows.size(); ++index) {
    if (rows_[index] != rows[index]) {
      rows_[index] = std::move(rows[index]);
      const QModelIndex changed = createIndex(asInt(index), 0);
      emit dataChanged(changed, changed);
    }
  }
}

} // namespace tamberline
