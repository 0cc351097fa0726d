#pragma once

#include "inventory/inventory.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace tamberline {

// Each reports on standard error why there is no result, and is then absent. Those that return an
// inventory need an application object.

/// Of a file that the user names.
std::optional<std::string> contentOf(const std::filesystem::path& file, std::size_t maxBytes);

/// Of a folder of saved reports, or a file with an inspection document.
std::optional<Inventory> inventoryIn(const std::filesystem::path& state);

/// Of the machine whose reports are in the folder, or of this one.
std::optional<Inventory> inventoryOfMachine(const std::optional<std::filesystem::path>& folder);

} // namespace tamberline
