#pragma once

#include "storage/volume_files.h"

namespace tamberline {

/// The real files of mounted volumes. Files are opened close-on-exec and never through a symbolic
/// link. If a file system cannot bypass the cache, writes go through it, and cached pages are
/// dropped before reading.
class PosixVolumeFiles final : public VolumeFiles {
public:
  std::unique_ptr<VolumeFolder> openFolder(const std::string& mountPoint) override;
};

} // namespace tamberline
