// Writes files and folders so that a reader finds them whole or not at all, even if the program is
// killed or the machine stops meanwhile.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline {

/// The reason for which nothing was written, as a text for a person; absent after a success.
using WriteFailure = std::optional<std::string>;

/// Creates a folder with these files by name. Fails if something of its name exists, except for an
/// empty folder.
WriteFailure createFolder(const std::filesystem::path& folder,
                          const std::map<std::string, std::string>& files);

/// The same, but a file that is equal in `before` becomes another name of that file if the file
/// system allows it.
WriteFailure createFolderLike(const std::filesystem::path& folder,
                              const std::map<std::string, std::string>& files,
                              const std::filesystem::path& before,
                              const std::map<std::string, std::string>& filesBefore);

/// Creates a file; fails if something of its name exists, even a link that leads nowhere.
WriteFailure createFile(const std::filesystem::path& file, std::string_view content);

/// Creates a file or takes the place of the one that exists. Fails if something else has its name:
/// a folder, a link, a device.
WriteFailure replaceFile(const std::filesystem::path& file, std::string_view content);

/// Makes a file another name of `other`, which takes the place of the file. False if that cannot be
/// done here: file systems of memory sticks have one name for each file.
bool replaceByLink(const std::filesystem::path& file, const std::filesystem::path& other);

/// The names of files and folders that were not finished begin with this.
inline constexpr std::string_view unfinishedBeginning = ".unfinished-";

} // namespace tamberline
