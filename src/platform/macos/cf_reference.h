#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <memory>
#include <type_traits>

namespace tamberline {

struct ReleaseCF {
  void operator()(const void* object) const { CFRelease(object); }
};

/// Owns an object returned by a function with "Create" or "Copy" in its name; null if it returned
/// none.
template <typename Reference>
using CFReference = std::unique_ptr<std::remove_pointer_t<Reference>, ReleaseCF>;

} // namespace tamberline
