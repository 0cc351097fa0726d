#include "ui/accessible_objects.h"

#include <QMetaEnum>
#include <QQuickItem>

#include <algorithm>
#include <functional>

namespace tamberline {
namespace {

void append(QAccessibleInterface* interface, std::vector<AccessibleObject>& objects) {
  if (interface == nullptr || !interface->isValid() || interface->state().invisible) {
    return;
  }
  objects.emplace_back(interface);
  for (int index = 0; index < interface->childCount(); ++index) {
    append(interface->child(index), objects);
  }
}

std::optional<AccessibleObject>
findWhere(QWindow& window, const std::function<bool(const AccessibleObject&)>& isWanted) {
  const std::vector<AccessibleObject> objects = accessibleObjects(window);
  const auto found = std::find_if(objects.begin(), objects.end(), isWanted);
  return found == objects.end() ? std::nullopt : std::optional(*found);
}

} // namespace

QQuickItem* AccessibleObject::item() const {
  return qobject_cast<QQuickItem*>(interface_->object());
}

QString AccessibleObject::text() const {
  const char* role = QMetaEnum::fromType<QAccessible::Role>().valueToKey(interface_->role());
  return QStringLiteral("%1 \"%2\"").arg(QLatin1String(role), name());
}

bool AccessibleObject::press() const {
  QAccessibleActionInterface* actions = interface_->actionInterface();
  if (actions == nullptr ||
      !actions->actionNames().contains(QAccessibleActionInterface::pressAction())) {
    return false;
  }
  actions->doAction(QAccessibleActionInterface::pressAction());
  return true;
}

std::vector<AccessibleObject> accessibleObjects(QWindow& window) {
  std::vector<AccessibleObject> objects;
  append(QAccessible::queryAccessibleInterface(&window), objects);
  return objects;
}

std::optional<AccessibleObject> findAccessible(QWindow& window, QAccessible::Role role,
                                               const QString& name) {
  return findWhere(window, [&](const AccessibleObject& object) {
    return object.role() == role && object.name() == name;
  });
}

std::optional<AccessibleObject> findAccessibleStarting(QWindow& window, QAccessible::Role role,
                                                       const QString& start) {
  return findWhere(window, [&](const AccessibleObject& object) {
    return object.role() == role && object.name().startsWith(start);
  });
}

} // namespace tamberline
