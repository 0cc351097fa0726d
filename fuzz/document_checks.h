#pragma once

#include <nlohmann/json_fwd.hpp>

namespace tamberline {

/// The document can be written in UTF-8, reads back as itself, and no bar or fraction in it is
/// beyond its ends.
void requireSoundDocument(const nlohmann::ordered_json& document);

} // namespace tamberline
