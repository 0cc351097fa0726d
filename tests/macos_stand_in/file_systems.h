#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tamberline {

/// The Mac's calls about file systems, controlled by a test. Only one test at a time.
struct MacFileSystems {
  struct Mounted {
    std::string device;
    std::string mountPoint;
    std::uint32_t blockSize = 4096;
    std::uint64_t availableBlocks = 0;
    std::uint64_t allBlocks = std::uint64_t{1} << 41U;
    std::int32_t number = 0;
  };

  std::vector<Mounted> mounted;
  /// The file system at each descriptor and each mount point.
  std::map<int, std::string> openFolders;
  /// Mounted between the first and the second read of the table.
  std::vector<Mounted> mountedMeanwhile;
  /// Later reads of the table fail.
  int looksThatSucceed = 1000;

  /// Requests for open files, as "48 on 7 with 1", and whether they fail.
  std::vector<std::string> requests;
  bool refusesRequests = false;
};

/// The state that the calls use; emptied at the start of each test that calls this.
MacFileSystems& freshMacFileSystems();

} // namespace tamberline
