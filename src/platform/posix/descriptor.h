#pragma once

#include <unistd.h>
#include <utility>

namespace tamberline {

/// Owns an open file descriptor; a negative number means none.
class Descriptor {
public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }
  void close() {
    if (number_ >= 0) {
      ::close(std::exchange(number_, -1));
    }
  }

private:
  int number_;
};

} // namespace tamberline
