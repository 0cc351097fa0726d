#include "platform/child_program.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/prctl.h>

namespace tamberline {
namespace {

constexpr int longEnoughForAnyMachine = 30'000; // milliseconds

} // namespace

ChildProgram::ChildProgram(const QString& program, const QStringList& arguments) {
  process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
  process_.start(program, arguments);
}

ChildProgram::~ChildProgram() {
  process_.kill();
  process_.waitForFinished(longEnoughForAnyMachine);
}

bool ChildProgram::hasSaid(const QByteArray& beginning) {
  while (!process_.canReadLine() && process_.waitForReadyRead(longEnoughForAnyMachine)) {
  }
  const QByteArray line = process_.readLine();
  const bool isThere = line.startsWith(beginning);
  EXPECT_TRUE(isThere) << process_.program().toStdString() << " said \"" << line.toStdString()
                       << "\", and as errors: " << errors().toStdString();
  return isThere;
}

} // namespace tamberline
