#pragma once

#include "machine_tree.h"

#include <filesystem>

namespace tamberline {

/// A new folder for temporary files that contains a tree; removed with this object.
class TreeFolder {
public:
  explicit TreeFolder(MachineTree tree);
  TreeFolder(const TreeFolder&) = delete;
  TreeFolder& operator=(const TreeFolder&) = delete;
  ~TreeFolder();

  const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
  MachineTree tree_;
};

} // namespace tamberline
