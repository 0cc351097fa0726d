// hidden_panel DIR: opens the panel on the reports saved in the folder DIR, hides it after its
// first scan, and idles. A panel that was opened and closed is what a tray icon has behind it.

#include "benched_panel.h"
#include "platform/desktop.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: hidden_panel DIR\n", stderr);
    return 2;
  }
  tamberline::chooseGraphics();
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tamberline::BenchedPanel panel(argv[1]);
  panel.settle();
  panel.shell().close();
  return QApplication::exec();
}
