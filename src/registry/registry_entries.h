#pragma once

#include "registry/property_list.h"

#include <functional>

namespace tamberline {

/// Calls `visit` for every dictionary in the walk of a registry dump, depth-first: each entry
/// before the entries under its "IORegistryEntryChildren".
void visitRegistryEntries(PropertyListValue value,
                          const std::function<void(PropertyListValue entry)>& visit);

} // namespace tamberline
