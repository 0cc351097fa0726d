#pragma once

#include <QPointer>
#include <QRect>
#include <QString>
#include <QWidget>

namespace tamberline {

/// Shows the manual in a separate window, which is kept while it is open. Escape and the system's
/// keys for closing close it. Closing the window never ends the program; the window is destroyed
/// with this object. Main thread only.
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

/// Centred on the screen together with its title bar, and not larger than the area that bars leave
/// free. The position is that of the frame, the size that of the content.
QRect manualWindowGeometry(const QRect& availableScreen);

} // namespace tamberline
