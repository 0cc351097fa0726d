#include "tree_folder.h"

#include "fuzz_target.h"

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tamberline {
namespace {

namespace fs = std::filesystem;

fs::path newFolder() {
  std::string name = fs::temp_directory_path() / "tamberline-fuzz-XXXXXX";
  require(::mkdtemp(name.data()) != nullptr, "there is a place for temporary files");
  return name;
}

bool write(const fs::path& file, const std::string& content) {
  const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  const ssize_t count = ::write(descriptor, content.data(), content.size());
  return ::close(descriptor) == 0 && count == static_cast<ssize_t>(content.size());
}

bool make(const fs::path& path, const TreeEntry& entry) {
  switch (entry.kind) {
  case TreeEntry::Kind::folder:
    return ::mkdir(path.c_str(), 0700) == 0;
  case TreeEntry::Kind::file:
    return write(path, entry.content);
  case TreeEntry::Kind::link:
    return ::symlink(entry.content.c_str(), path.c_str()) == 0;
  }
  return false;
}

bool remove(const fs::path& path, const TreeEntry& entry) {
  const bool isFolder = entry.kind == TreeEntry::Kind::folder;
  return (isFolder ? ::rmdir(path.c_str()) : ::unlink(path.c_str())) == 0;
}

} // namespace

TreeFolder::TreeFolder(MachineTree tree) : path_(newFolder()), tree_(std::move(tree)) {
  for (const auto& [name, entry] : tree_) {
    require(make(path_ / name, entry), "what is described can be laid out");
  }
}

TreeFolder::~TreeFolder() {
  for (auto entry = tree_.rbegin(); entry != tree_.rend(); ++entry) {
    require(remove(path_ / entry->first, entry->second), "what was laid out can be removed");
  }
  require(::rmdir(path_.c_str()) == 0, "nothing else came into the folder");
}

} // namespace tamberline
