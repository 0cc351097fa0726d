#include "platform/linux/desktop/tray_menu.h"

#include <utility>

namespace tamberline {
namespace {

constexpr int menuId = 0;
constexpr uint onlyRevision = 1;

/// A single underscore marks the access key of an entry. Our entries have none, so underscores are
/// doubled.
QString asLabel(QString text) {
  return text.replace(QLatin1Char('_'), QLatin1String("__"));
}

} // namespace

TrayMenu::TrayMenu(MenuEntries entries, QObject* parent)
    : QObject(parent), entries_(std::move(entries)) {
  registerTrayMessages();
}

bool TrayMenu::isEntry(int id) const {
  return id > menuId && static_cast<std::size_t>(id) <= entries_.size();
}

QVariantMap TrayMenu::properties(int id) const {
  if (id == menuId) {
    return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
  }
  if (!isEntry(id)) {
    return {};
  }
  return {{QStringLiteral("label"), asLabel(entries_[static_cast<std::size_t>(id) - 1].text)},
          {QStringLiteral("enabled"), true},
          {QStringLiteral("visible"), true}};
}

/// Hosts may ask for some properties only; they ignore the others.
uint TrayMenu::GetLayout(int parentId, int recursionDepth, const QStringList& /*propertyNames*/,
                         TrayMenuLayout& layout) const {
  layout = {.id = parentId, .properties = properties(parentId), .children = {}};
  if (parentId == menuId && recursionDepth != 0) {
    for (int id = 1; isEntry(id); ++id) {
      const TrayMenuLayout entry{.id = id, .properties = properties(id), .children = {}};
      layout.children.append(QDBusVariant(QVariant::fromValue(entry)));
    }
  }
  return onlyRevision;
}

/// An empty list of identifiers means all entries.
TrayMenuItems TrayMenu::GetGroupProperties(const QList<int>& ids,
                                           const QStringList& /*propertyNames*/) const {
  TrayMenuItems items;
  for (int id = menuId; id == menuId || isEntry(id); ++id) {
    if (ids.isEmpty() || ids.contains(id)) {
      items.append({.id = id, .properties = properties(id)});
    }
  }
  return items;
}

QDBusVariant TrayMenu::GetProperty(int id, const QString& name) const {
  const QVariant value = properties(id).value(name);
  return QDBusVariant(value.isValid() ? value : QVariant(QString()));
}

void TrayMenu::Event(int id, const QString& name, const QDBusVariant& /*data*/,
                     uint /*timestamp*/) {
  if (name == QLatin1String("clicked") && isEntry(id)) {
    entries_[static_cast<std::size_t>(id) - 1].chosen();
  }
}

/// Returns the identifiers that do not exist.
QList<int> TrayMenu::EventGroup(const TrayMenuEvents& events) {
  QList<int> unknown;
  for (const TrayMenuEvent& event : events) {
    if (event.id == menuId || isEntry(event.id)) {
      Event(event.id, event.name, event.data, event.timestamp);
    } else {
      unknown.append(event.id);
    }
  }
  return unknown;
}

/// Returns whether the host must read the layout again. It never changes.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static): the bus calls it
bool TrayMenu::AboutToShow(int /*id*/) const {
  return false;
}

QList<int> TrayMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) const {
  for (const int id : ids) {
    if (id != menuId && !isEntry(id)) {
      idErrors.append(id);
    }
  }
  return {};
}

} // namespace tamberline
