#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace tamberline::sysfs {

/// Converts a value to an XML property list: objects become dictionaries and binary values become
/// data. Texts must be UTF-8 without control characters; null and floating-point numbers are not
/// allowed.
std::string asPropertyList(const nlohmann::json& value);

} // namespace tamberline::sysfs
