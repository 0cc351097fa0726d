#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace tamberline {

/// A program that runs during a test. It is killed when this object is destroyed, and when the
/// thread that created it ends in any way. Its output only goes here.
class ChildProgram {
public:
  /// Finds the program in PATH.
  explicit ChildProgram(const std::vector<std::string>& programAndArguments);
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;
  ~ChildProgram();

  /// Waits for a line of output that starts like this; the test fails if there is none.
  void waitForLine(std::string_view beginning);

  /// Its output so far.
  const std::string& output();

private:
  /// False if there is no output within this time, in milliseconds, or no more output is possible.
  bool readMore(int patience);

  int output_ = -1;
  pid_t process_ = 0;
  std::string text_;
};

} // namespace tamberline
