#pragma once

#include "controls/child_layout.h"

#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Places its children one below the other, at their own sizes. Hidden children and those without
/// height take no space.
class Stack : public tamberline::ChildLayout {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double bottomPadding MEMBER bottomPadding_ NOTIFY bottomPaddingChanged)

public:
  explicit Stack(QQuickItem* parent = nullptr);

signals:
  void bottomPaddingChanged();

protected:
  void follow(QQuickItem* child) override;
  void place() override;

private:
  double bottomPadding_ = 0;
};

} // namespace tamberline
