#pragma once

#include <memory>
#include <utility>

namespace tamberline {

/// An immutable value whose copies share it, so that copying costs the same whatever it holds.
/// Equal values are equal, whether shared or not.
template <typename Value>
class SharedValue {
public:
  explicit(false) SharedValue(Value value)
      : value_(std::make_shared<const Value>(std::move(value))) {}
  /// May be part of a larger object, which then lives as long.
  explicit SharedValue(std::shared_ptr<const Value> value) : value_(std::move(value)) {}

  const Value& operator*() const { return *value_; }
  const Value* operator->() const { return value_.get(); }

  friend bool operator==(const SharedValue& left, const SharedValue& right) {
    return left.value_ == right.value_ || *left == *right;
  }

private:
  std::shared_ptr<const Value> value_;
};

} // namespace tamberline
