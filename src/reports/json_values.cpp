#include "reports/json_values.h"

#include "base/never_destroyed.h"
#include "base/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>

namespace tamberline {
namespace {

using nlohmann::json;

const json* find(const json& object, std::string_view key) {
  const auto found = object.find(key);
  return found == object.end() ? nullptr : &*found;
}

const std::string* findText(const json& object, std::string_view key) {
  const json* value = find(object, key);
  return value == nullptr ? nullptr : value->get_ptr<const std::string*>();
}

} // namespace

std::optional<std::string> textMember(const json& object, std::string_view key) {
  const std::string* text = findText(object, key);
  return text == nullptr ? std::nullopt : std::optional(*text);
}

std::string textMember(const json& object, std::string_view key, std::string_view fallback) {
  const std::string* text = findText(object, key);
  return text == nullptr ? std::string(fallback) : *text;
}

std::optional<std::int64_t> integerMember(const json& object, std::string_view key) {
  const json* value = find(object, key);
  if (value == nullptr || !value->is_number_integer()) {
    return std::nullopt;
  }
  constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (value->is_number_unsigned() && value->get<std::uint64_t>() > largest) {
    return std::nullopt;
  }
  return value->get<std::int64_t>();
}

std::optional<std::int64_t> integerTextMember(const json& object, std::string_view key) {
  const std::string* text = findText(object, key);
  return text == nullptr ? std::nullopt : parseDecimal(*text);
}

bool flagMember(const json& object, std::string_view key) {
  const std::string* text = findText(object, key);
  return text != nullptr && *text == "TRUE";
}

std::optional<bool> knownFlagMember(const json& object, std::string_view key) {
  const std::string* text = findText(object, key);
  const bool isKnown = text != nullptr && (*text == "TRUE" || *text == "FALSE");
  return isKnown ? std::optional(*text == "TRUE") : std::nullopt;
}

const json& objectMember(const json& object, std::string_view key) {
  static const NeverDestroyed<json> none(json::object());
  const json* value = find(object, key);
  return value != nullptr && value->is_object() ? *value : *none;
}

const json& objectsMember(const json& object, std::string_view key) {
  static const NeverDestroyed<json> none(json::array());
  const json* value = find(object, key);
  const bool isArrayOfObjects = value != nullptr && value->is_array() &&
                                std::all_of(value->begin(), value->end(),
                                            [](const json& entry) { return entry.is_object(); });
  return isArrayOfObjects ? *value : *none;
}

} // namespace tamberline
