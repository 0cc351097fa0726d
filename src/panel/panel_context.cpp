#include "panel/panel_context.h"

#include "controls/engine_objects.h"

#include <type_traits>
#include <utility>

namespace tamberline {
namespace {

/// If a singleton has a default constructor, QML creates its own instance instead of calling
/// `create`.
template <typename... Singleton>
constexpr bool areNotDefaultConstructible = (!std::is_default_constructible_v<Singleton> && ...);
static_assert(
    areNotDefaultConstructible<AnswersController, Motion, Tooltips, PanelController, PanelSizing,
                               Popover, SearchController, StatusColors, Theme, UpdatedText>);

} // namespace

PanelContext::PanelContext(Outside outside)
    : theme_(outside.fontScale), sizing_(outside.queue), tooltips_(outside.queue),
      updated_(outside.scanner, outside.queue, std::move(outside.now)), answers_(outside.scanner),
      panel_(outside.scanner, outside.queue, answers_, std::move(outside.actions)),
      search_(outside.scanner, outside.queue,
              [this](const std::string& id) { return panel_.rows()->indexOf(id); }) {}

void PanelContext::attachTo(QQmlEngine& engine) {
  setEngineObject(engine, symbols_);
  setEngineObject(engine, theme_);
  setEngineObject(engine, statusColors_);
  setEngineObject(engine, sizing_);
  setEngineObject(engine, tooltips_);
  setEngineObject(engine, popover_);
  setEngineObject(engine, motion_);
  setEngineObject(engine, updated_);
  setEngineObject(engine, answers_);
  setEngineObject(engine, panel_);
  setEngineObject(engine, search_);
}

} // namespace tamberline
