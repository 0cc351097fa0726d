#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tamberline {

struct TreeEntry {
  enum class Kind : std::uint8_t { folder, file, link };

  Kind kind = Kind::folder;
  std::string content = {}; // of a file; of a link where it leads

  friend bool operator==(const TreeEntry&, const TreeEntry&) = default;
};

/// What is in a folder, by path; a folder comes before what is in it.
using MachineTree = std::map<std::string, TreeEntry>;

/// From lines of three kinds:
///
///     sys/bus/usb/devices/1-1    the folder that what follows is in; an empty line is the top
///     product=Dock               a line of a file, behind those that it has already
///     driver>../../drivers/usb   a symbolic link
///
/// Lines that ask for what cannot be, or for what could lead out of the folder, are left out.
MachineTree describedTree(std::string_view description);

} // namespace tamberline
