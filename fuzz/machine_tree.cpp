#include "machine_tree.h"

#include "base/text.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

using Names = std::vector<std::string_view>;

bool isName(std::string_view name) {
  constexpr std::size_t longestName = 255;
  return !name.empty() && name != "." && name != ".." && name.size() <= longestName &&
         !contains(name, std::string_view("\0", 1));
}

bool areNames(Names::const_iterator first, Names::const_iterator last) {
  return std::all_of(first, last, isName);
}

bool canBePath(std::string_view path, const Names& names) {
  constexpr std::size_t maxPathText = 1000;
  constexpr std::size_t maxNames = 16;
  return path.size() <= maxPathText && names.size() <= maxNames &&
         areNames(names.begin(), names.end());
}

/// Whether the target cannot lead out of the tree: ".." may only be at its start, and no more often
/// than there are folders above.
bool canBeTarget(std::string_view target, std::size_t foldersAbove) {
  Names names = split(target, '/');
  const auto down =
      std::find_if(names.begin(), names.end(), [](std::string_view name) { return name != ".."; });
  const bool staysInside = static_cast<std::size_t>(down - names.begin()) <= foldersAbove;
  names.erase(names.begin(), down);
  return staysInside && canBePath(target, names);
}

/// A reader turns the content of a file into a path.
bool canBeContent(std::string_view line) {
  return !contains(line, "/..");
}

class Description {
public:
  void add(std::string_view line) {
    const std::size_t mark = line.find_first_of("=>");
    if (mark == std::string_view::npos) {
      folder_ = line.empty() ? "" : std::string(line) + "/";
      entryAt(std::string(line), TreeEntry::Kind::folder);
      return;
    }
    const std::string path = folder_ + std::string(line.substr(0, mark));
    const std::string_view content = line.substr(mark + 1);
    if (line[mark] == '=') {
      addLine(path, content);
    } else {
      addLink(path, content);
    }
  }

  MachineTree tree() && { return std::move(tree_); }

private:
  void addLine(const std::string& path, std::string_view line) {
    TreeEntry* file = canBeContent(line) ? entryAt(path, TreeEntry::Kind::file) : nullptr;
    if (file != nullptr) {
      file->content.append(line) += '\n';
    }
  }

  void addLink(const std::string& path, std::string_view target) {
    const auto foldersAbove = static_cast<std::size_t>(std::count(path.begin(), path.end(), '/'));
    TreeEntry* link =
        canBeTarget(target, foldersAbove) ? entryAt(path, TreeEntry::Kind::link) : nullptr;
    if (link != nullptr) {
      link->content = target;
    }
  }

  /// Creates the folders above it; null if something else is in the way.
  TreeEntry* entryAt(const std::string& path, TreeEntry::Kind kind) {
    constexpr std::size_t mostEntries = 1000;
    const Names names = split(path, '/');
    if (!canBePath(path, names) || tree_.size() + names.size() > mostEntries) {
      return nullptr;
    }
    std::size_t slash = path.find('/');
    while (slash != std::string::npos &&
           tree_[path.substr(0, slash)].kind == TreeEntry::Kind::folder) {
      slash = path.find('/', slash + 1);
    }
    if (slash != std::string::npos) {
      return nullptr;
    }
    TreeEntry& entry = tree_.try_emplace(path, TreeEntry{.kind = kind}).first->second;
    return entry.kind == kind ? &entry : nullptr;
  }

  std::string folder_;
  MachineTree tree_;
};

} // namespace

MachineTree describedTree(std::string_view description) {
  Description lines;
  for (const std::string_view line : split(description, '\n')) {
    lines.add(line);
  }
  return std::move(lines).tree();
}

} // namespace tamberline
