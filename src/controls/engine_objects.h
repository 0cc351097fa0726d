// The C++ objects that QML's singletons and items use, one of each type per engine. They are set
// before the engine loads anything, must outlive it, and are owned by C++.
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

/// Null if the engine has none.
template <typename Object>
Object* engineObject(const QQmlEngine& engine) {
  return engine.property(QMetaType::fromType<Object*>().name()).template value<Object*>();
}

} // namespace tamberline
