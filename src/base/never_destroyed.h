#pragma once

#include <utility>

namespace tamberline {

/// A value for static storage that is constructed once and never destroyed. Background work that is
/// no longer waited for, such as a tool that hangs, may still read it while the program ends.
template <typename Value>
class NeverDestroyed {
public:
  explicit NeverDestroyed(Value value) : value_(new Value(std::move(value))) {}
  NeverDestroyed(const NeverDestroyed&) = delete;
  NeverDestroyed& operator=(const NeverDestroyed&) = delete;
  ~NeverDestroyed() = default;

  const Value& operator*() const { return *value_; }

private:
  const Value* value_;
};

} // namespace tamberline
