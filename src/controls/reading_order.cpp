#include "controls/reading_order.h"

#include <algorithm>
#include <vector>

namespace tamberline {
namespace {

struct Row {
  int index = 0;
  QQuickItem* item = nullptr;
};

std::vector<Row> rowsOf(const QQuickItem& content) {
  std::vector<Row> rows;
  for (QQuickItem* child : content.childItems()) {
    const QVariant index = child->property("index");
    if (index.isValid()) {
      rows.push_back({index.toInt(), child});
    }
  }
  return rows;
}

bool isBefore(const Row& first, const Row& second) {
  return first.index < second.index;
}

} // namespace

void ReadingOrder::setList(QQuickItem* list) {
  list_ = list;
  const auto* const content = list->property("contentItem").value<QQuickItem*>();
  connect(content, &QQuickItem::childrenChanged, this, &QQuickItem::polish);
  emit listChanged();
}

void ReadingOrder::setModel(QAbstractItemModel* model) {
  model_ = model;
  connect(model, &QAbstractItemModel::rowsMoved, this, &QQuickItem::polish);
  emit modelChanged();
}

void ReadingOrder::updatePolish() {
  if (list_ == nullptr) {
    return;
  }
  std::vector<Row> rows = rowsOf(*list_->property("contentItem").value<QQuickItem*>());
  if (std::is_sorted(rows.begin(), rows.end(), isBefore)) {
    return;
  }
  std::stable_sort(rows.begin(), rows.end(), isBefore);
  for (std::size_t next = 1; next < rows.size(); ++next) {
    rows[next].item->stackAfter(rows[next - 1].item);
  }
}

} // namespace tamberline
