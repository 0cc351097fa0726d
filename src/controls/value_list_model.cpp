#include "controls/value_list_model.h"

#include <algorithm>

namespace tamberline {

void ValueListModel::setValues(const QVariantList& values) {
  if (values == values_) {
    return;
  }
  const qsizetype common = std::min(values.size(), values_.size());
  for (qsizetype row = 0; row < common; ++row) {
    if (values[row] != values_[row]) {
      values_[row] = values[row];
      const QModelIndex changed = index(static_cast<int>(row));
      emit dataChanged(changed, changed);
    }
  }
  changeLength(common, values);
  emit valuesChanged();
}

/// Removes or adds the values after the common part.
void ValueListModel::changeLength(qsizetype common, const QVariantList& values) {
  const auto first = static_cast<int>(common);
  if (values_.size() > common) {
    beginRemoveRows({}, first, static_cast<int>(values_.size()) - 1);
    values_ = values_.first(common);
    endRemoveRows();
  } else if (values.size() > common) {
    beginInsertRows({}, first, static_cast<int>(values.size()) - 1);
    values_ = values;
    endInsertRows();
  }
}

int ValueListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(values_.size());
}

QVariant ValueListModel::data(const QModelIndex& index, int role) const {
  const bool isKnown = checkIndex(index, CheckIndexOption::IndexIsValid) && role == ValueRole;
  return isKnown ? values_.at(index.row()) : QVariant();
}

QHash<int, QByteArray> ValueListModel::roleNames() const {
  return {{ValueRole, "value"}};
}

} // namespace tamberline
