#include "acquisition/kept_answers.h"
#include "acquisition/readable_answers.h"
#include "anonymity/anonymiser.h"
#include "commands.h"
#include "platform/posix/whole_files.h"
#include "platform/saved/saved_files.h"
#include "platform/saved/saved_reports.h"
#include "scan_output.h"
#include "single_scan.h"

#include <QSysInfo>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace tamberline {
namespace {

/// A scan asks for nothing more after a report that it cannot parse.
Answers allAnswers(KeptAnswers& machine) {
  const Answers known = machine.answers();
  for (const Question question : questionsOfAScan) {
    if (!known.contains(question)) {
      machine.answer(question);
    }
  }
  return machine.answers();
}

/// Why these answers cannot be saved, as a sentence; absent if they can.
std::optional<std::string> refusalOf(const Answers& answers,
                                     const std::vector<Question>& unreadable, bool isAnonymous) {
  if (const auto missing = missingReport(answers)) {
    return "the machine gave no report " + *missing + ", so nothing was saved";
  }
  const auto section = std::find_if(unreadable.begin(), unreadable.end(), asksForSection);
  if (isAnonymous && section != unreadable.end()) {
    return std::string(savedFileName(*section)) +
           " cannot be parsed, so nothing could be replaced in it, and nothing was saved";
  }
  return std::nullopt;
}

void reportUnreadable(const std::vector<Question>& unreadable, bool isAnonymous) {
  for (const Question question : unreadable) {
    reportProblem(std::string(savedFileName(question)) + " cannot be parsed; it was " +
                  (isAnonymous ? "left out" : "saved as it is"));
  }
}

/// The sections can be parsed.
Answers withoutSecrets(const Answers& answers) {
  Anonymiser anonymiser({QSysInfo::machineHostName().toStdString()});
  return anonymiser.anonymised(answers).value_or(Answers());
}

} // namespace

int run(const SaveCommand& command, const InspectOptions& options) {
  const auto machine = std::make_shared<KeptAnswers>(machineOf(options.reportsFolder));
  scanOnce(machine);
  const Answers answers = allAnswers(*machine);
  const std::vector<Question> unreadable = unreadableAnswers(answers);
  if (const auto refusal = refusalOf(answers, unreadable, command.isAnonymous)) {
    reportProblem(*refusal);
    return exitFailure;
  }
  const Answers saved = command.isAnonymous ? withoutSecrets(answers) : answers;
  if (const WriteFailure failure = createFolder(command.folder, savedFiles(saved))) {
    reportProblem("cannot save in '" + command.folder.string() + "': " + *failure);
    return exitFailure;
  }
  reportUnreadable(unreadable, command.isAnonymous);
  return EXIT_SUCCESS;
}

} // namespace tamberline
