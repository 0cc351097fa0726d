// The panel as somebody meets it who listens instead of looking.
#pragma once

#include <QAccessible>
#include <QString>
#include <QWindow>

#include <optional>
#include <vector>

class QQuickItem;

namespace tamberline {

/// One object of the accessibility tree. Holds as long as its item.
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

  /// False when the object cannot be pressed.
  bool press() const;

private:
  QAccessibleInterface* interface_;
};

/// All objects that are seen, in the order of the tree.
std::vector<AccessibleObject> accessibleObjects(QWindow& window);

/// The first object that is seen with the role and exactly the name.
std::optional<AccessibleObject> findAccessible(QWindow& window, QAccessible::Role role,
                                               const QString& name);

/// The first object that is seen with the role and a name that begins so.
std::optional<AccessibleObject> findAccessibleStarting(QWindow& window, QAccessible::Role role,
                                                       const QString& start);

} // namespace tamberline
