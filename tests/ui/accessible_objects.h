// The panel as a screen reader sees it.
#pragma once

#include <QAccessible>
#include <QString>
#include <QWindow>

#include <optional>
#include <vector>

class QQuickItem;

namespace tamberline {

/// One object of the accessibility tree. Valid as long as its item.
class AccessibleObject {
public:
  explicit AccessibleObject(QAccessibleInterface* interface) : interface_(interface) {}

  QString name() const { return interface_->text(QAccessible::Name); }
  QString description() const { return interface_->text(QAccessible::Description); }
  QAccessible::Role role() const { return interface_->role(); }
  QAccessible::State state() const { return interface_->state(); }
  /// Null for the window itself.
  QQuickItem* item() const;

  /// Such as `Button "Scan again"`.
  QString text() const;

  /// False if the object cannot be pressed.
  bool press() const;

private:
  QAccessibleInterface* interface_;
};

/// All visible objects, in the order of the tree.
std::vector<AccessibleObject> accessibleObjects(QWindow& window);

/// The first visible object with the role and exactly this name.
std::optional<AccessibleObject> findAccessible(QWindow& window, QAccessible::Role role,
                                               const QString& name);

/// The first visible object with the role and a name that starts like this.
std::optional<AccessibleObject> findAccessibleStarting(QWindow& window, QAccessible::Role role,
                                                       const QString& start);

} // namespace tamberline
