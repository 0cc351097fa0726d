#include "panel/panel_context.h"

#include <QQmlEngine>
#include <QVariant>

#include <type_traits>
#include <utility>

namespace tamberline {
namespace {

constexpr const char* property = "tamberlinePanelContext";

/// QML makes a singleton of its own of every type that it can, instead of asking `create`.
template <typename... Singleton>
constexpr bool areMadeHere = (!std::is_default_constructible_v<Singleton> && ...);
static_assert(areMadeHere<Hints, PanelController, PanelSizing, Popover, SearchController,
                          StatusColors, Theme, UpdatedText>);

} // namespace

PanelContext::PanelContext(Outside outside)
    : theme_(outside.fontScale), sizing_(outside.queue), hints_(outside.queue),
      updated_(outside.scanner, outside.queue, std::move(outside.now)),
      panel_(outside.scanner, outside.queue, std::move(outside.actions)),
      search_(outside.scanner, outside.queue,
              [this](const std::string& id) { return panel_.rows()->indexOf(id); }) {
  for (QObject* singleton : std::initializer_list<QObject*>{
           &theme_, &statusColors_, &sizing_, &hints_, &popover_, &updated_, &panel_, &search_}) {
    QQmlEngine::setObjectOwnership(singleton, QQmlEngine::CppOwnership);
  }
}

void PanelContext::attachTo(QQmlEngine& engine) {
  engine.setProperty(property, QVariant::fromValue(static_cast<void*>(this)));
}

PanelContext& PanelContext::of(const QQmlEngine& engine) {
  return *static_cast<PanelContext*>(engine.property(property).value<void*>());
}

} // namespace tamberline
