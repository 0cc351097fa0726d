#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
struct xml_node_struct;
} // namespace pugi

namespace tamberline {

/// One value of a property list: a view that is valid as long as its PropertyList. A value returns
/// nothing if it is asked for another type than it has; nothing throws.
class PropertyListValue {
public:
  /// A value without a type, which returns nothing for every type.
  PropertyListValue() = default;
  explicit PropertyListValue(pugi::xml_node_struct* element) : element_(element) {}

  bool isDictionary() const;
  bool isArray() const;

  /// The value under `key` of a dictionary; of equal keys, the last one wins.
  PropertyListValue member(std::string_view key) const;
  /// The elements of an array, in order.
  std::vector<PropertyListValue> elements() const;

  std::optional<std::string> text() const;
  /// Absent beyond 64 signed bits; neither a boolean nor a real number is an integer.
  std::optional<std::int64_t> integer() const;
  /// The same, but numbers that need the 64th bit are negative: the registry writes negative
  /// numbers as if they were unsigned.
  std::optional<std::int64_t> wrappedInteger() const;
  std::optional<bool> boolean() const;
  std::optional<std::vector<unsigned char>> data() const;

private:
  pugi::xml_node_struct* element_ = nullptr;
};

/// A decoded XML property list. Movable; owns everything that its values refer to.
class PropertyList {
public:
  /// Absent if the bytes are not a well-formed XML property list in UTF-8, or exceed the limits
  /// below. The walks recurse, and each tag takes many times its size in memory; no real registry
  /// comes near the limits.
  static std::optional<PropertyList> decode(std::string bytes);

  static constexpr int maxNesting = 512;
  static constexpr std::size_t maxListBytes = 64'000'000;
  static constexpr std::ptrdiff_t maxTags = 500'000;

  PropertyList(PropertyList&& other) noexcept;
  PropertyList& operator=(PropertyList&& other) noexcept;
  PropertyList(const PropertyList&) = delete;
  PropertyList& operator=(const PropertyList&) = delete;
  ~PropertyList();

  PropertyListValue root() const;

private:
  struct Document;
  explicit PropertyList(std::unique_ptr<Document> document);

  std::unique_ptr<Document> document_;
};

} // namespace tamberline
