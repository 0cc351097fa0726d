#include "scan_output.h"

#include "inspect/answer_text.h"
#include "inspect/document.h"
#include "inspect/json_text.h"
#include "inspect/panel_text.h"
#include "inspect/text_tree.h"
#include "platform/posix/command_line.h"
#include "views/panel_inputs.h"
#include "views/scan_answers.h"

#include <QDateTime>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <optional>

namespace tamberline {

std::string render(const PortScanner& scanner, OutputFormat format, const TextStyle& style) {
  if (format != OutputFormat::text) {
    const int indent = format == OutputFormat::documentInOneLine ? -1 : 2;
    return jsonText(inspectionDocument(scanner), indent) + "\n";
  }
  const std::string answers = answerText(answersOf(scanner), style.useColors, style.columns);
  return (answers.empty() ? "" : answers + "\n") +
         panelText(describePanel(panelInputs(scanner)), style.useColors, style.columns);
}

std::string timeHeading(const TextStyle& style) {
  const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
  const TextLine line = {{"──── " + time.toStdString() + " ────", Color::Grey}};
  return renderTextTrees({{{line}, {}}}, style.useColors);
}

bool print(std::string_view text) {
  return printToStandardOutput(text, "tamberline-inspect");
}

void reportProblem(const std::string& problem) {
  std::fprintf(stderr, "tamberline-inspect: %s\n", problem.c_str());
}

bool reportScanError(const PortScanner& scanner) {
  const std::optional<std::string>& error = scanner.errorMessage.get();
  if (error) {
    reportProblem(*error);
  }
  return !error;
}

} // namespace tamberline
