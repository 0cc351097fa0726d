#pragma once

#include <clocale>
#include <string>

namespace tamberline {

/// The process's C locale, as a graphical program sets it at its start.
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
