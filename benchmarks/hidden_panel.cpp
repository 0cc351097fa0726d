// hidden_panel DIR: opens the panel on the reports saved in the folder DIR, hides it after its
// first scan, and idles. This is the state of the program while only its tray icon is visible.

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
