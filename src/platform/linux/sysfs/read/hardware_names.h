#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tamberline {

/// What a database of hardware calls a device that does not name itself; empty where it knows
/// nothing.
struct HardwareNames {
  std::string vendor = {};
  std::string model = {};
};

/// Asked by hexadecimal vendor and product, four digits each.
using HardwareDatabase =
    std::function<HardwareNames(std::string_view vendorId, std::string_view productId)>;

} // namespace tamberline
