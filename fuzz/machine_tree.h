#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tamberline {

struct TreeEntry {
  enum class Kind : std::uint8_t { folder, file, link };

  Kind kind = Kind::folder;
  std::string content = {}; // the content of a file; the target of a link

  friend bool operator==(const TreeEntry&, const TreeEntry&) = default;
};

/// The entries of a folder, by path; a folder comes before its content.
using MachineTree = std::map<std::string, TreeEntry>;

/// Parses lines of three kinds:
///
///     sys/bus/usb/devices/1-1    the folder of the following lines; an empty line is the top
///     product=Dock               a line of a file, after those that it has already
///     driver>../../drivers/usb   a symbolic link
///
/// Lines that are impossible, or that could lead out of the folder, are left out.
MachineTree describedTree(std::string_view description);

} // namespace tamberline
