#include "controls/motion.h"

#include "controls/engine_objects.h"

namespace tamberline {

Motion* Motion::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<Motion>(*engine);
}

void Motion::setAllowed(bool isAllowed) {
  if (isAllowed != isAllowed_) {
    isAllowed_ = isAllowed;
    emit changed();
  }
}

} // namespace tamberline
