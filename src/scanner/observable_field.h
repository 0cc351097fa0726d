#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tamberline {

/// Whether values of the type can be compared. Containers satisfy equality_comparable even if their
/// elements do not, so the elements are checked.
template <typename Value>
struct SupportsEquality : std::bool_constant<std::equality_comparable<Value>> {};
template <typename Value>
struct SupportsEquality<std::vector<Value>> : SupportsEquality<Value> {};
template <typename Value>
struct SupportsEquality<std::optional<Value>> : SupportsEquality<Value> {};
template <typename Key, typename Value>
struct SupportsEquality<std::map<Key, Value>> : SupportsEquality<Value> {};

/// Observers are notified of a write only if the value changed, or always if values cannot be
/// compared.
template <typename Value>
bool shouldNotifyObservers([[maybe_unused]] const Value& oldValue,
                           [[maybe_unused]] const Value& newValue) {
  if constexpr (SupportsEquality<Value>::value) {
    return !(oldValue == newValue);
  } else {
    return true;
  }
}

/// Ends an observation in its destructor. May outlive the field.
class Observation {
public:
  Observation() = default;
  explicit Observation(std::function<void()> end) : end_(std::move(end)) {}
  Observation(Observation&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
  Observation& operator=(Observation&& other) noexcept {
    std::swap(end_, other.end_);
    return *this;
  }
  Observation(const Observation&) = delete;
  Observation& operator=(const Observation&) = delete;
  ~Observation() {
    if (end_) {
      end_();
    }
  }

private:
  std::function<void()> end_;
};

/// A value with observers. While they are notified, observers may start and end observations and
/// write the field. Main thread only.
template <typename Value>
class ObservableField {
public:
  ObservableField() = default;
  explicit ObservableField(Value initial) : value_(std::move(initial)) {}

  const Value& get() const { return value_; }

  void set(Value newValue) {
    const bool shouldNotify = shouldNotifyObservers(value_, newValue);
    value_ = std::move(newValue);
    if (shouldNotify) {
      notify();
    }
  }

  /// The same as setting an equal value, without copying it.
  void rewrite() {
    if (!SupportsEquality<Value>::value) {
      notify();
    }
  }

  [[nodiscard]] Observation observe(std::function<void()> onChange) {
    const std::uint64_t key = nextKey_++;
    observers_->emplace(key, std::move(onChange));
    return Observation([observers = std::weak_ptr(observers_), key] {
      if (const auto alive = observers.lock()) {
        alive->erase(key);
      }
    });
  }

private:
  using Observers = std::map<std::uint64_t, std::function<void()>>;

  void notify() {
    const std::shared_ptr<Observers> observers = observers_;
    for (auto next = observers->begin(); next != observers->end();) {
      const std::uint64_t key = next->first;
      const std::function<void()> onChange = next->second;
      onChange();
      next = observers->upper_bound(key);
    }
  }

  Value value_{};
  std::shared_ptr<Observers> observers_ = std::make_shared<Observers>();
  std::uint64_t nextKey_ = 0;
};

/// A field that only its owner may write; everyone may read and observe it.
template <typename Value, typename Owner>
class PublishedField : private ObservableField<Value> {
public:
  using ObservableField<Value>::get;
  using ObservableField<Value>::observe;

private:
  friend Owner;
  using ObservableField<Value>::rewrite;
  using ObservableField<Value>::set;
};

} // namespace tamberline
