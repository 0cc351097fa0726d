#include "storage/chunk_buffer.h"

#include "base/seeded_generator.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <random>

namespace tamberline {
namespace {

/// At least the page size of all supported systems and the block size of drives.
constexpr std::align_val_t pageAlignment{16384};

} // namespace

/// Writes to all of the memory, because the system allocates pages only on first use. Some file
/// systems read into unallocated pages through their cache; with the others the allocation would be
/// part of the measured time.
ChunkBuffer::ChunkBuffer(std::size_t size)
    : start_(static_cast<std::byte*>(operator new(size, pageAlignment))), size_(size) {
  std::memset(start_.get(), 0, size_);
}

void ChunkBuffer::fillRandomly() {
  std::mt19937_64 generator = seededGenerator();
  for (std::size_t offset = 0; offset < size_; offset += sizeof(std::uint64_t)) {
    const std::uint64_t word = generator();
    std::memcpy(start_.get() + offset, &word, std::min(sizeof(word), size_ - offset));
  }
}

void ChunkBuffer::Free::operator()(std::byte* start) const {
  operator delete(start, pageAlignment);
}

} // namespace tamberline
