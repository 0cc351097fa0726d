#pragma once

#include "inventory/inventory.h"

#include <filesystem>
#include <optional>

namespace tamberline {

// Each reports on standard error why there is no inventory, and is then absent. Each needs an
// application object.

/// Of a folder of saved reports, or a file with an inspection document.
std::optional<Inventory> inventoryIn(const std::filesystem::path& state);

/// Of the machine whose reports are in the folder, or of this one.
std::optional<Inventory> inventoryOfMachine(const std::optional<std::filesystem::path>& folder);

} // namespace tamberline
