#pragma once

#include <functional>

namespace tamberline {

/// Whether the user of this desktop lets programs animate. Main thread only.
class AnimationSetting {
public:
  AnimationSetting() = default;
  AnimationSetting(const AnimationSetting&) = delete;
  AnimationSetting& operator=(const AnimationSetting&) = delete;
  virtual ~AnimationSetting() = default;

  /// Reports the setting, possibly later, and again whenever it changes. Called once.
  virtual void follow(std::function<void(bool isAllowed)> report) = 0;
};

} // namespace tamberline
