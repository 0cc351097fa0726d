#pragma once

#include "views/panel.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline {

nlohmann::ordered_json describe(const Panel& panel);

} // namespace tamberline
