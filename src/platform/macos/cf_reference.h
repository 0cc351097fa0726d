#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <memory>
#include <type_traits>

namespace tamberline {

struct ReleaseCF {
  void operator()(const void* object) const { CFRelease(object); }
};

/// Owns what a function with "Create" or "Copy" in its name gave; null when it gave nothing.
template <typename Reference>
using CFReference = std::unique_ptr<std::remove_pointer_t<Reference>, ReleaseCF>;

} // namespace tamberline
