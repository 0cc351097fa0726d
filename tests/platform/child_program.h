#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace tamberline {

/// A program that runs beside a test. It is killed when this goes, and when the thread that made
/// this ends, however it does. What it writes goes nowhere but here.
class ChildProgram {
public:
  /// Finds the program like a shell does.
  explicit ChildProgram(const std::vector<std::string>& programAndArguments);
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;
  ~ChildProgram();

  /// Waits for a line of output that begins so; a test fails when there is none.
  void waitForLine(std::string_view beginning);

  /// What it has written up to now.
  const std::string& output();

private:
  /// False when nothing comes in the time, in milliseconds, or nothing can come any more.
  bool readMore(int patience);

  int output_ = -1;
  pid_t process_ = 0;
  std::string text_;
};

} // namespace tamberline
