#pragma once

#include <string>

namespace tamberline {

/// Collects what Qt and QML warn of while it lives. One at a time.
class QmlWarnings {
public:
  QmlWarnings();
  QmlWarnings(const QmlWarnings&) = delete;
  QmlWarnings& operator=(const QmlWarnings&) = delete;
  ~QmlWarnings();

  /// One line for each; empty when there was none.
  std::string text() const;
};

} // namespace tamberline
