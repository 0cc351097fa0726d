#include "platform/linux/sysfs/read/pci_path.h"

#include "platform/linux/sysfs/read/attribute_files.h"

#include <algorithm>
#include <string_view>

namespace tamberline::sysfs {
namespace {

/// Function names have the form "0000:00:14.0".
bool isPciFunction(std::string_view name) {
  constexpr std::string_view shape = "xxxx:xx:xx.x";
  constexpr std::string_view digits = "0123456789abcdef";
  return name.size() == shape.size() &&
         std::equal(name.begin(), name.end(), shape.begin(), [&](char character, char expected) {
           return expected == 'x' ? digits.find(character) != std::string_view::npos
                                  : character == expected;
         });
}

} // namespace

bool PciPath::isRemovable() const {
  return std::any_of(functions.begin(), functions.end(), [](const std::filesystem::path& folder) {
    return readTextOrNothing(folder / "removable") == "removable";
  });
}

PciPath pciPathOf(const std::filesystem::path& device) {
  PciPath path;
  std::filesystem::path folder;
  for (const std::filesystem::path& part : device) {
    folder /= part;
    if (isPciFunction(part.string())) {
      path.functions.push_back(folder);
    }
  }
  return path;
}

} // namespace tamberline::sysfs
