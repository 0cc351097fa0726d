#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tamberline {

/// The Mac's calls about file systems in the hands of a test. One test at a time.
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
  /// What lies on which of these file systems, by descriptor and mount point.
  std::map<int, std::string> openFolders;
  /// Mounted between the first look at the table and the second.
  std::vector<Mounted> mountedMeanwhile;
  /// Later looks at the table fail.
  int looksThatSucceed = 1000;

  /// Requests to open files, as "48 on 7 with 1", and whether they fail.
  std::vector<std::string> requests;
  bool refusesRequests = false;
};

/// What the calls answer from; empty again at the start of each test that asks.
MacFileSystems& freshMacFileSystems();

} // namespace tamberline
