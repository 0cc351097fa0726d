#pragma once

#include <string>

namespace tamberline {

/// Collects the warnings of Qt and QML during its lifetime. Only one at a time.
class QmlWarnings {
public:
  QmlWarnings();
  QmlWarnings(const QmlWarnings&) = delete;
  QmlWarnings& operator=(const QmlWarnings&) = delete;
  ~QmlWarnings();

  /// One line for each; empty if there were none.
  std::string text() const;
};

} // namespace tamberline
