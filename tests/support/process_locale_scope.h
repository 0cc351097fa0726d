#pragma once

#include <clocale>
#include <string>

namespace tamberline {

/// Sets the process's C locale, as a graphical program does when it starts.
class ProcessLocaleScope {
public:
  explicit ProcessLocaleScope(const char* name)
      : before_(std::setlocale(LC_ALL, nullptr)), isSet_(std::setlocale(LC_ALL, name) != nullptr) {}
  ProcessLocaleScope(const ProcessLocaleScope&) = delete;
  ProcessLocaleScope& operator=(const ProcessLocaleScope&) = delete;
  ~ProcessLocaleScope() { std::setlocale(LC_ALL, before_.c_str()); }

  bool isSet() const { return isSet_; }

private:
  std::string before_;
  bool isSet_;
};

} // namespace tamberline
