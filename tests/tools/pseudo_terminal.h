#pragma once

#include "platform/posix/descriptor.h"

#include <string>

namespace tamberline {

/// A terminal without a screen: the test reads what a program writes to it.
class PseudoTerminal {
public:
  explicit PseudoTerminal(unsigned short columns);

  /// The path that programs open to write to it.
  const std::string& path() const { return path_; }

  /// The output since the last call, without waiting for more.
  std::string takeOutput();

private:
  Descriptor reader_;
  std::string path_;
  /// Kept open, so that the output is still there after the program has ended.
  Descriptor writer_;
};

} // namespace tamberline
