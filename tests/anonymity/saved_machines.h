// The saved machines on which anonymity is tested, and what identifies them.
#pragma once

#include "acquisition/kept_answers.h"
#include "inventory/inventory.h"

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace tamberline {

std::vector<std::filesystem::path> sampleFolders();

/// The samples, and the folders in the folder that TAMBERLINE_REPORTS names.
std::vector<std::filesystem::path> savedMachineFolders();

Answers answersIn(const std::filesystem::path& folder);

/// From a scan of a machine that answers so.
Inventory inventoryOfAnswers(const Answers& answers);

/// Everything but names of volumes and identifiers, one line for each item.
std::string factsOf(const Inventory& inventory);

/// Everything that identifies, found in another way than the program does. Shorter texts than four
/// characters, which are replaced only where they are a whole value, are left out.
std::set<std::string> secretsIn(const Answers& answers);

} // namespace tamberline
