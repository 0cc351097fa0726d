#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace tamberline {

/// A program that runs beside a test and is killed when this goes, and when the test's process ends
/// however it does. Belongs to the thread that makes it.
class ChildProgram {
public:
  ChildProgram(const QString& program, const QStringList& arguments);
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;
  ~ChildProgram();

  /// Waits for a first line of output that begins so; a test fails when there is none.
  bool hasSaid(const QByteArray& beginning);

  qint64 processId() const { return process_.processId(); }
  bool isRunning() { return !process_.waitForFinished(0); }
  QByteArray errors() { return process_.readAllStandardError(); }

private:
  QProcess process_;
};

} // namespace tamberline
