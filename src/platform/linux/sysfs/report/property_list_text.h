#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace tamberline::sysfs {

/// A value as an XML property list: objects become dictionaries, binary values data. Texts must be
/// UTF-8 without control characters; null and reals have no place in it.
std::string asPropertyList(const nlohmann::json& value);

} // namespace tamberline::sysfs
