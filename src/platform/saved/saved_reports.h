#pragma once

#include "acquisition/machine_source.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tamberline {

/// The name of the file that holds the answer in a folder of saved reports.
const char* savedFileName(Question question);

/// Whether the last component of a path may be a symbolic link.
enum class Links : std::uint8_t { follow, refuse };

/// What was read from a file.
struct FileContent {
  std::optional<std::string> bytes;
  /// Why there are no bytes, as a text for a person; otherwise empty.
  std::string failure;
};

/// Reads a regular file. Fails for any other kind of file, even one that has just taken the place
/// of a regular file, for an unreadable file and for more than `maxBytes`. Never blocks.
FileContent readRegularFile(const std::filesystem::path& path, std::size_t maxBytes,
                            Links links = Links::follow);

/// Answers from a folder of saved reports (docs/report-folder.md): each file holds the output of
/// one tool. A missing or unreadable file counts as empty output, and so does a link: the folder
/// may come from anyone, and a link in it could lead to a private file.
class SavedReports final : public MachineSource {
public:
  explicit SavedReports(std::filesystem::path folder);

  std::string answer(Question question) override;

private:
  std::filesystem::path folder_;
};

/// Answers in the same format for reports from every release of the system. The mount table is not
/// saved, so reports from releases whose USB section has no volumes show none.
std::shared_ptr<MachineSource> savedMachine(const std::filesystem::path& folder);

} // namespace tamberline
