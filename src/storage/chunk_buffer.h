#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace tamberline {

/// Page-aligned memory, which drives can read and write directly.
class ChunkBuffer {
public:
  /// Throws std::bad_alloc.
  explicit ChunkBuffer(std::size_t size);

  std::span<std::byte> bytes() { return {start_.get(), size_}; }

  /// Fills it with random data, which no drive or file system can compress.
  void fillRandomly();

private:
  struct Free {
    void operator()(std::byte* start) const;
  };

  std::unique_ptr<std::byte, Free> start_;
  std::size_t size_;
};

} // namespace tamberline
