#include "app/look.h"
#include "grid_picture.h"
#include "symbol_sheet.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int exitUsage = 2;

int save(const QImage& picture, const QString& file) {
  if (picture.isNull() || !picture.save(file)) {
    std::fprintf(stderr, "document-pictures: cannot make '%s'\n", qPrintable(file));
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  QGuiApplication::setFont(tamberline::ownFont()); // lengths depend on its size
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() == 3 && arguments[1] == "symbols") {
    return save(tamberline::symbolSheet(), arguments[2]);
  }
  if (arguments.size() == 4 && arguments[1] == "grid") {
    return save(tamberline::withGrid(QImage(arguments[2])), arguments[3]);
  }
  std::fputs("usage: document-pictures symbols FILE.png\n"
             "       document-pictures grid PANEL.png FILE.png\n",
             stderr);
  return exitUsage;
}
