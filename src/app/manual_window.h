#pragma once

#include <QPointer>
#include <QRect>
#include <QString>
#include <QWidget>

namespace tamberline {

/// Shows the manual in a window of its own, which is kept while it is open; Escape and the system's
/// keys for closing close it. Closing the window never ends the program; the window goes with its
/// owner. Main thread only.
class ManualWindow {
public:
  /// `folder` as for `loadDocument`.
  explicit ManualWindow(QString folder);
  ManualWindow(const ManualWindow&) = delete;
  ManualWindow& operator=(const ManualWindow&) = delete;
  ~ManualWindow();

  /// Brings the window to the front, or opens it. Where there is no manual, as in a build tree that
  /// has not made it, there is no window either, and standard error says why.
  void show();

private:
  void open();

  QString folder_;
  QPointer<QWidget> window_;
};

/// In the middle of the screen with its title, and with it not larger than what bars leave. Where
/// the frame begins, and the size of what is inside.
QRect manualWindowGeometry(const QRect& availableScreen);

} // namespace tamberline
