#include "async/qt_main_queue.h"
#include "inspect/document.h"
#include "inspect/panel_text.h"
#include "inspect_options.h"
#include "platform/posix/child_process_runner.h"
#include "platform/preferred_languages.h"
#include "platform/saved/saved_reports_runner.h"
#include "scanner/port_scanner.h"
#include "scanner/silent_event_source.h"
#include "views/panel_inputs.h"

#include <QCoreApplication>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <unistd.h>

namespace {

using namespace tamberline;

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

/// False when standard output took less than the whole text.
bool print(std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
         std::fflush(stdout) == 0;
}

bool wantsColors() {
  const char* noColor = std::getenv("NO_COLOR");
  return (noColor == nullptr || *noColor == '\0') && isatty(STDOUT_FILENO) != 0;
}

std::string render(const PortScanner& scanner, bool asJson) {
  if (asJson) {
    constexpr int indent = 2;
    return inspectionDocument(scanner).dump(indent, ' ', /*ensure_ascii=*/false,
                                            nlohmann::json::error_handler_t::replace) +
           "\n";
  }
  return panelText(describePanel(panelInputs(scanner)), wantsColors());
}

std::shared_ptr<ToolRunner> toolsFor(const InspectOptions& options) {
  if (options.reportsFolder) {
    return savedMachineTools(*options.reportsFolder);
  }
  return std::make_shared<ChildProcessRunner>();
}

/// The program writes UTF-8 whatever the locale says, so Qt's notice about it helps nobody.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
  const QtMessageHandler usual =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  auto application = std::make_unique<QCoreApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return application;
}

QCoro::Task<> scanAndQuit(std::shared_ptr<PortScanner> scanner) {
  auto scan = scanner->scan();
  co_await scan;
  QCoreApplication::quit();
}

int inspect(const InspectOptions& options, int& argc, char** argv) {
  AppLanguage::choose(
      options.language.value_or(AppLanguage::forPreferredLanguages(preferredLanguages())));
  const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
  const auto scanner = PortScanner::create(
      {.acquisition = {.tools = toolsFor(options), .queue = std::make_shared<QtMainQueue>()},
       .events = std::make_shared<SilentEventSource>()});
  const auto scan = scanAndQuit(scanner);
  QCoreApplication::exec();
  const std::optional<std::string>& error = scanner->errorMessage.get();
  if (error) {
    std::fprintf(stderr, "tamberline-inspect: %s\n", error->c_str());
  }
  if (!print(render(*scanner, options.printsJson))) {
    std::fputs("tamberline-inspect: cannot write to standard output\n", stderr);
    return exitFailure;
  }
  return error ? exitFailure : EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
  const std::optional<InspectOptions> options = parseInspectOptions(argc, argv);
  if (!options) {
    std::fputs(inspectUsage.data(), stderr);
    return exitUsage;
  }
  if (options->showsHelp) {
    return print(inspectUsage) ? EXIT_SUCCESS : exitFailure;
  }
  if (options->showsVersion) {
    return print("tamberline-inspect " TAMBERLINE_VERSION "\n") ? EXIT_SUCCESS : exitFailure;
  }
  return inspect(*options, argc, argv);
}
