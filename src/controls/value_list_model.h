#pragma once

#include <QAbstractListModel>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// A short list of values as a model that keeps its delegates when values change, so that they keep
/// keyboard focus. Values are added and removed at the end only. Main thread only.
class ValueListModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QVariantList values READ values WRITE setValues NOTIFY valuesChanged)

public:
  enum Role { ValueRole = Qt::UserRole }; // "value" in QML

  QVariantList values() const { return values_; }
  void setValues(const QVariantList& values);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

signals:
  void valuesChanged();

private:
  void changeLength(qsizetype common, const QVariantList& values);

  QVariantList values_;
};

} // namespace tamberline
