#pragma once

#include <nlohmann/json_fwd.hpp>

namespace tamberline {

/// The document must be valid UTF-8 and read back unchanged, and every bar and fraction in it must
/// be within its range.
void requireSoundDocument(const nlohmann::ordered_json& document);

} // namespace tamberline
