#include "acquisition/kept_answers.h"
#include "anonymity/anonymiser.h"
#include "commands.h"
#include "platform/posix/whole_files.h"
#include "platform/saved/saved_files.h"
#include "scan_output.h"
#include "single_scan.h"

#include <QSysInfo>

#include <cstdlib>

namespace tamberline {

int run(const SaveCommand& command, const InspectOptions& options) {
  const auto machine = std::make_shared<KeptAnswers>(machineOf(options.reportsFolder));
  scanOnce(machine);
  std::optional<Answers> answers = machine->answers();
  if (const auto missing = missingReport(*answers)) {
    reportProblem("the machine gave no report " + *missing + ", so nothing was saved");
    return exitFailure;
  }
  if (command.isAnonymous) {
    answers = Anonymiser({QSysInfo::machineHostName().toStdString()}).anonymised(*answers);
  }
  if (!answers) {
    reportProblem("a report cannot be read, so nothing could be replaced in it or saved");
    return exitFailure;
  }
  if (const WriteFailure failure = createFolder(command.folder, savedFiles(*answers))) {
    reportProblem("cannot save in '" + command.folder.string() + "': " + *failure);
    return exitFailure;
  }
  return EXIT_SUCCESS;
}

} // namespace tamberline
