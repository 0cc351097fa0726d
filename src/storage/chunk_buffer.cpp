#include "storage/chunk_buffer.h"

#include "base/seeded_generator.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <random>

namespace tamberline {
namespace {

/// The size of a page on every system so far; blocks of drives are at most as large.
constexpr std::align_val_t pageAlignment{16384};

} // namespace

/// Touched as a whole, because the system gives memory only then: some file systems read into
/// untouched memory through their cache, and the others would have it given while the clock runs.
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
