#pragma once

#include "storage/volume_files.h"

namespace tamberline {

/// The real files of mounted volumes. Files are opened close-on-exec and never through a symbolic
/// link. Where a file system refuses to go past the cache, writing goes through it, and reading
/// begins with forgetting what the cache holds.
class PosixVolumeFiles final : public VolumeFiles {
public:
  std::unique_ptr<VolumeFolder> openFolder(const std::string& mountPoint) override;
};

} // namespace tamberline
