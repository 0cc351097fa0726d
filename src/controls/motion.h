#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// Whether rows move to their places instead of appearing there. Main thread only.
class Motion final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  /// False until it is known that the user does not mind.
  Q_PROPERTY(bool isAllowed READ isAllowed NOTIFY changed)

public:
  /// Not a default constructor, because QML would use that instead of `create`.
  explicit Motion(QObject* parent) : QObject(parent) {}

  /// The engine's instance; called by QML.
  static Motion* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  bool isAllowed() const { return isAllowed_; }
  void setAllowed(bool isAllowed);

signals:
  void changed();

private:
  bool isAllowed_ = false;
};

} // namespace tamberline
