#pragma once

#include "platform/posix/descriptor.h"

#include <string>

namespace tamberline {

/// A terminal without a screen: what a program writes to it can be read here.
class PseudoTerminal {
public:
  explicit PseudoTerminal(unsigned short columns);

  /// What programs open to write to it.
  const std::string& path() const { return path_; }

  /// What was written since, without waiting for more.
  std::string takeOutput();

private:
  Descriptor reader_;
  std::string path_;
  /// Kept open, so that what was written stays when the program has ended.
  Descriptor writer_;
};

} // namespace tamberline
