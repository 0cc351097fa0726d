// The objects behind QML's singletons and items, one of each type for an engine. They are handed to
// the engine before it loads anything, must outlive it, and stay in C++'s hands.
#pragma once

#include <QMetaType>
#include <QQmlEngine>
#include <QVariant>

#include <type_traits>

namespace tamberline {

template <typename Object>
void setEngineObject(QQmlEngine& engine, Object& object) {
  if constexpr (std::is_base_of_v<QObject, Object>) {
    QQmlEngine::setObjectOwnership(&object, QQmlEngine::CppOwnership);
  }
  engine.setProperty(QMetaType::fromType<Object*>().name(), QVariant::fromValue(&object));
}

/// Null where the engine has none.
template <typename Object>
Object* engineObject(const QQmlEngine& engine) {
  return engine.property(QMetaType::fromType<Object*>().name()).template value<Object*>();
}

} // namespace tamberline
