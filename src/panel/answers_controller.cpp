#include "panel/answers_controller.h"

#include "controls/engine_objects.h"
#include "views/scan_answers.h"

#include <utility>

namespace tamberline {

AnswersController::AnswersController(std::shared_ptr<PortScanner> scanner)
    : scanner_(std::move(scanner)) {
  find();
  // A scan writes the tree last, so by then everything else is of the same scan.
  observations_.push_back(scanner_->portTree.observe([this] { find(); }));
  observations_.push_back(scanner_->benchmarks.observe([this] { find(); }));
}

AnswersController* AnswersController::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<AnswersController>(*engine);
}

QString AnswersController::otherHeadlines() const {
  return shownParagraphs(strip_.otherHeadlines, maxTooltipLength);
}

void AnswersController::find() {
  std::vector<Answer> found = answersOf(*scanner_);
  if (found == answers_.all()) {
    return;
  }
  answers_ = PanelAnswers(std::move(found));
  emit answersChanged();
  AnswerStrip strip = answerStrip(answers_.all());
  if (strip != strip_) {
    strip_ = std::move(strip);
    emit stripChanged();
  }
}

} // namespace tamberline
