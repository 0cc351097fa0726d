#pragma once

#include "i18n/loc.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <string_view>

namespace tamberline {

/// The texts of the panel's own controls, in the current language.
class PanelTexts {
  Q_GADGET
  QML_VALUE_TYPE(panelTexts)
  Q_PROPERTY(QString ejecting READ ejecting CONSTANT)
  Q_PROPERTY(QString hintClearSearch READ hintClearSearch CONSTANT)
  Q_PROPERTY(QString hintCollapseAll READ hintCollapseAll CONSTANT)
  Q_PROPERTY(QString hintExpandAll READ hintExpandAll CONSTANT)
  Q_PROPERTY(QString hintExplain READ hintExplain CONSTANT)
  Q_PROPERTY(QString hintManual READ hintManual CONSTANT)
  Q_PROPERTY(QString hintScan READ hintScan CONSTANT)
  Q_PROPERTY(QString hintShowAnswer READ hintShowAnswer CONSTANT)
  Q_PROPERTY(QString needsAttention READ needsAttention CONSTANT)
  Q_PROPERTY(QString noSearchResults READ noSearchResults CONSTANT)
  Q_PROPERTY(QString portList READ portList CONSTANT)
  Q_PROPERTY(QString quit READ quit CONSTANT)
  Q_PROPERTY(QString scanningPorts READ scanningPorts CONSTANT)
  Q_PROPERTY(QString searchPlaceholder READ searchPlaceholder CONSTANT)
  Q_PROPERTY(QString suggestionList READ suggestionList CONSTANT)

public:
  static QString ejecting() { return toQString(Loc::ejecting()); }
  static QString hintClearSearch() { return toQString(Loc::hintClearSearch()); }
  static QString hintCollapseAll() { return toQString(Loc::hintCollapseAll()); }
  static QString hintExpandAll() { return toQString(Loc::hintExpandAll()); }
  static QString hintExplain() { return toQString(Loc::hintExplain()); }
  static QString hintManual() { return toQString(Loc::hintManual()); }
  static QString hintScan() { return toQString(Loc::hintScan()); }
  static QString hintShowAnswer() { return toQString(Loc::hintShowAnswer()); }
  static QString needsAttention() { return toQString(Loc::needsAttention()); }
  static QString noSearchResults() { return toQString(Loc::noSearchResults()); }
  static QString portList() { return toQString(Loc::portList()); }
  static QString quit() { return toQString(Loc::quit()); }
  static QString scanningPorts() { return toQString(Loc::scanningPorts()); }
  static QString searchPlaceholder() { return toQString(Loc::searchPlaceholder()); }
  static QString suggestionList() { return toQString(Loc::suggestionList()); }

private:
  static QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  }
};

} // namespace tamberline
