#pragma once

#include "scanner/port_scanner.h"
#include "views/panel_answers.h"

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// The answers of the last scan, for the rows and for the strip above the cards. Main thread only.
class AnswersController final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Answers)
  QML_SINGLETON

  /// Of type answerLine. Empty if nothing needs attention.
  Q_PROPERTY(QVariantList lines READ lines NOTIFY stripChanged)
  /// How many more there are; empty if none.
  Q_PROPERTY(QString more READ more NOTIFY stripChanged)
  Q_PROPERTY(QString otherHeadlines READ otherHeadlines NOTIFY stripChanged)

public:
  explicit AnswersController(std::shared_ptr<PortScanner> scanner);

  /// The engine's instance; called by QML.
  static AnswersController* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  const PanelAnswers& answers() const { return answers_; }
  QVariantList lines() const { return asVariants(strip_.lines); }
  QString more() const { return shownLabel(strip_.more); }
  QString otherHeadlines() const;

signals:
  void answersChanged();
  void stripChanged();

private:
  void find();

  std::shared_ptr<PortScanner> scanner_;
  PanelAnswers answers_{{}};
  AnswerStrip strip_;
  std::vector<Observation> observations_; // last: their callbacks use everything above
};

} // namespace tamberline
