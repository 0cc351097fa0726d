#pragma once

#include "registry/property_list.h"
#include "support/property_list_text.h"

#include <optional>
#include <string>
#include <utility>

namespace tamberline {

/// The list with `content` as its value; throws if it cannot be decoded.
inline PropertyList decodedList(const std::string& content) {
  std::optional<PropertyList> list = PropertyList::decode(propertyList(content));
  return std::move(list.value());
}

} // namespace tamberline
