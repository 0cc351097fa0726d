#include "controls/row_motion.h"

#include <QEasingCurve>
#include <QQuickWindow>

#include <utility>

namespace tamberline {
namespace {

constexpr int movingMilliseconds = 160;

double slideOf(const QQuickItem& row) {
  return row.property("slide").toDouble();
}

} // namespace

RowMotion::RowMotion(QQuickItem* parent) : QQuickItem(parent) {
  animation_.setDuration(movingMilliseconds);
  animation_.setEasingCurve(QEasingCurve::OutCubic);
  animation_.setStartValue(1.0);
  animation_.setEndValue(0.0);
  connect(&animation_, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& share) { draw(share.toDouble()); });
  connect(&animation_, &QVariantAnimation::finished, this, [this] { moving_.clear(); });
}

void RowMotion::setModel(QAbstractItemModel* model) {
  model_ = model;
  connect(model, &QAbstractItemModel::rowsAboutToBeInserted, this, &RowMotion::remember);
  connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &RowMotion::remember);
  connect(model, &QAbstractItemModel::rowsAboutToBeMoved, this, &RowMotion::remember);
  emit modelChanged();
}

void RowMotion::setAllowed(bool isAllowed) {
  if (isAllowed != isAllowed_) {
    isAllowed_ = isAllowed;
    emit isAllowedChanged();
  }
}

/// A change of the rows is often several changes of the model before the next frame.
void RowMotion::remember() {
  if (!isAllowed_ || isChangePending_ || window() == nullptr || !window()->isVisible()) {
    return;
  }
  isChangePending_ = true;
  for (QQuickItem* row : rows()) {
    placesBefore_[row] = row->y() + slideOf(*row);
  }
  polish();
}

void RowMotion::updatePolish() {
  if (!std::exchange(isChangePending_, false)) {
    return;
  }
  animation_.stop();
  draw(0);
  moving_.clear();
  QMetaObject::invokeMethod(list_, "forceLayout");
  const auto before = std::exchange(placesBefore_, {});
  for (QQuickItem* row : rows()) {
    const auto place = before.find(row);
    const bool isNew = place == before.end();
    const double distance = isNew ? 0 : place->second - row->y();
    if (isNew || distance != 0) {
      moving_.push_back({row, distance, isNew});
    }
  }
  if (!before.empty()) { // the first rows are there without further ado
    draw(1);
    animation_.start();
  }
}

void RowMotion::draw(double share) {
  for (const MovingRow& row : moving_) {
    if (row.item != nullptr) {
      row.item->setProperty("slide", row.distance * share);
      row.item->setOpacity(row.isNew ? 1 - share : 1);
    }
  }
}

/// Those that the list view has created.
std::vector<QQuickItem*> RowMotion::rows() const {
  std::vector<QQuickItem*> rows;
  const auto* const content = list_->property("contentItem").value<QQuickItem*>();
  for (QQuickItem* child : content->childItems()) {
    if (child->isVisible() && child->property("slide").isValid()) {
      rows.push_back(child);
    }
  }
  return rows;
}

} // namespace tamberline
