#pragma once

#include "registry/property_list.h"

#include <functional>

namespace tamberline {

/// Calls `visit` for every dictionary that the walk of a registry dump meets, depth-first: each
/// entry before the entries under its "IORegistryEntryChildren".
void visitRegistryEntries(PropertyListValue value,
                          const std::function<void(PropertyListValue entry)>& visit);

} // namespace tamberline
