#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace tamberline {

/// Memory that a drive can be written from and read into directly: it begins at a page.
class ChunkBuffer {
public:
  /// Throws std::bad_alloc.
  explicit ChunkBuffer(std::size_t size);

  std::span<std::byte> bytes() { return {start_.get(), size_}; }

  /// Makes the content such that no drive and no file system can make it smaller.
  void fillRandomly();

private:
  struct Free {
    void operator()(std::byte* start) const;
  };

  std::unique_ptr<std::byte, Free> start_;
  std::size_t size_;
};

} // namespace tamberline
