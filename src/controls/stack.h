#pragma once

#include "controls/child_layout.h"

#include <QtQml/qqmlregistration.h>

namespace tamberline {

/// Children one below the other, at their own sizes. Those that are hidden or have no height take
/// no room.
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
