#include "platform/posix/whole_files.h"

#include "platform/posix/descriptor.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tamberline {
namespace {

using Files = std::map<std::string, std::string>;
namespace fs = std::filesystem;

std::string reason(int error) {
  return std::strerror(error);
}

/// The name without a slash at the end, which would hide the folder's own name.
fs::path withName(const fs::path& path) {
  return path.has_filename() ? path : path.parent_path();
}

fs::path folderAbove(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

fs::path unfinished(const fs::path& path) {
  return folderAbove(path) / (std::string(unfinishedBeginning) + path.filename().string() + "-" +
                              std::to_string(getpid()));
}

/// False with the reason in errno.
bool writeAll(const Descriptor& file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = write(file.number(), content.data(), content.size());
    if (count >= 0) {
      content.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return fsync(file.number()) == 0;
}

/// A file that could not be written whole is removed again.
WriteFailure writeNewFile(const fs::path& path, std::string_view content) {
  const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  if (!file.isOpen()) {
    return reason(errno);
  }
  if (!writeAll(file, content)) {
    const int error = errno;
    unlink(path.c_str());
    return reason(error);
  }
  return std::nullopt;
}

/// Makes a new name in the folder last. File systems that cannot do that do it by themselves.
void synchronizeFolder(const fs::path& folder) {
  const Descriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.isOpen()) {
    fsync(opened.number());
  }
}

WriteFailure writeTemporary(const fs::path& path, std::string_view content) {
  unlink(path.c_str()); // of a process that was killed and had the same number
  return writeNewFile(path, content);
}

/// The file systems of memory sticks have one name for each file.
bool isWithoutLinks(int error) {
  return error == EPERM || error == EOPNOTSUPP || error == ENOSYS;
}

/// Reserves the name with an empty file and puts the finished one in its place. Only a kill between
/// these two calls can leave the empty file.
WriteFailure takeName(const fs::path& finished, const fs::path& name) {
  if (WriteFailure failure = writeNewFile(name, "")) {
    return failure;
  }
  if (std::rename(finished.c_str(), name.c_str()) != 0) {
    const int error = errno;
    unlink(name.c_str());
    return reason(error);
  }
  return std::nullopt;
}

bool isLinked(const fs::path& path, const fs::path& other) {
  return link(other.c_str(), path.c_str()) == 0;
}

WriteFailure fillFolder(const fs::path& folder, const Files& files, const fs::path& before,
                        const Files& filesBefore) {
  if (mkdir(folder.c_str(), 0777) != 0) {
    return reason(errno);
  }
  for (const auto& [name, content] : files) {
    const auto earlier = filesBefore.find(name);
    const bool isUnchanged = earlier != filesBefore.end() && earlier->second == content;
    if (isUnchanged && isLinked(folder / name, before / name)) {
      continue;
    }
    if (WriteFailure failure = writeNewFile(folder / name, content)) {
      return failure;
    }
  }
  synchronizeFolder(folder);
  return std::nullopt;
}

} // namespace

WriteFailure createFolder(const fs::path& folder, const Files& files) {
  return createFolderLike(folder, files, {}, {});
}

/// Renaming refuses to replace anything but an empty folder.
WriteFailure createFolderLike(const fs::path& folder, const Files& files, const fs::path& before,
                              const Files& filesBefore) {
  const fs::path target = withName(folder);
  const fs::path temporary = unfinished(target);
  std::error_code ignored;
  fs::remove_all(temporary, ignored); // of a process that was killed and had the same number
  WriteFailure failure = fillFolder(temporary, files, before, filesBefore);
  if (!failure && std::rename(temporary.c_str(), target.c_str()) != 0) {
    const bool isTaken = errno == ENOTEMPTY || errno == EEXIST || errno == ENOTDIR;
    failure = reason(isTaken ? EEXIST : errno);
  }
  if (failure) {
    fs::remove_all(temporary, ignored);
    return failure;
  }
  synchronizeFolder(folderAbove(target));
  return std::nullopt;
}

/// A new name for a finished file never takes the place of another one.
WriteFailure createFile(const fs::path& file, std::string_view content) {
  const fs::path temporary = unfinished(file);
  WriteFailure failure = writeTemporary(temporary, content);
  if (!failure && link(temporary.c_str(), file.c_str()) != 0) {
    failure = isWithoutLinks(errno) ? takeName(temporary, file) : WriteFailure(reason(errno));
  }
  unlink(temporary.c_str());
  if (!failure) {
    synchronizeFolder(folderAbove(file));
  }
  return failure;
}

/// Renaming one name of a file to another of the same file does nothing, so the temporary one may
/// still be there.
bool replaceByLink(const fs::path& file, const fs::path& other) {
  const fs::path temporary = unfinished(file);
  unlink(temporary.c_str()); // of a process that was killed and had the same number
  const bool isReplaced =
      isLinked(temporary, other) && std::rename(temporary.c_str(), file.c_str()) == 0;
  unlink(temporary.c_str());
  return isReplaced;
}

WriteFailure replaceFile(const fs::path& file, std::string_view content) {
  struct stat status = {};
  if (lstat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    return S_ISDIR(status.st_mode) ? reason(EISDIR) : "Not a regular file";
  }
  const fs::path temporary = unfinished(file);
  WriteFailure failure = writeTemporary(temporary, content);
  if (!failure && std::rename(temporary.c_str(), file.c_str()) != 0) {
    failure = reason(errno);
  }
  if (failure) {
    unlink(temporary.c_str());
    return failure;
  }
  synchronizeFolder(folderAbove(file));
  return std::nullopt;
}

} // namespace tamberline
