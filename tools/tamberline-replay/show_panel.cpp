#include "show_panel.h"

#include "async/awaitables.h"
#include "text_places.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds moment{20};
/// The chevrons turn for 150 ms, and the window follows its content in a few steps.
constexpr int minStableFrames = 12;
constexpr int maxFrames = 500;

/// Waits until the size of the window has not changed for a while.
QCoro::Task<> waitForStableSize(PanelWindow* window, std::shared_ptr<MainQueue> queue) {
  QSize size = window->size();
  int rest = 0;
  for (int moments = 0; rest < minStableFrames && moments < maxFrames; ++moments) {
    Delay wait(queue, moment);
    co_await wait;
    rest = window->size() == size ? rest + 1 : 0;
    size = window->size();
  }
}

QCoro::Task<> until(std::function<bool()> condition, std::shared_ptr<MainQueue> queue) {
  while (!condition()) {
    Delay wait(queue, moment);
    co_await wait;
  }
}

QString asQString(const std::filesystem::path& path) {
  return QString::fromStdString(path.string());
}

bool writeFile(const std::filesystem::path& path, const QByteArray& content) {
  QFile file(asQString(path));
  return file.open(QFile::WriteOnly) && file.write(content) == content.size() && file.flush();
}

/// The program's exit status.
int exitStatusAfter(bool wasWritten, const std::filesystem::path& file) {
  if (!wasWritten) {
    std::fprintf(stderr, "tamberline-replay: cannot write '%s'\n", file.c_str());
  }
  return wasWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}

int savePicture(PanelWindow& window, const ReplayOptions& options) {
  const bool wasWritten = window.grabWindow().save(asQString(*options.screenshot), "PNG");
  const int status = exitStatusAfter(wasWritten, *options.screenshot);
  if (status != EXIT_SUCCESS || !options.places) {
    return status;
  }
  return exitStatusAfter(writeFile(*options.places, textPlaces(window)), *options.places);
}

} // namespace

QCoro::Task<> showPanel(PanelShell* shell, std::shared_ptr<PortScanner> scanner,
                        std::function<bool()> hasPlayed, std::shared_ptr<MainQueue> queue,
                        ReplayOptions options) {
  shell->open();
  auto scanned = until([scanner] { return !scanner->isScanning.get(); }, queue);
  co_await scanned;
  if (options.screenshot) {
    auto played = until(std::move(hasPlayed), queue);
    co_await played;
  }
  if (options.expandsAll) {
    shell->context().panel()->expandAll();
  }
  if (!options.searchText.empty()) {
    // A search does not change the height of the window, which depends on whether all parts had
    // theirs before.
    auto complete = waitForStableSize(shell->window(), queue);
    co_await complete;
    shell->context().search()->setSearchText(QString::fromStdString(options.searchText));
  }
  if (!options.screenshot) {
    co_return;
  }
  auto still = waitForStableSize(shell->window(), queue);
  co_await still;
  QGuiApplication::exit(savePicture(*shell->window(), options));
}

} // namespace tamberline
