#include "platform/linux/udisks/mocked_disks.h"

#include "platform/linux/udisks/system_bus.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <gtest/gtest.h>

#include <utility>

namespace tamberline {
namespace {

/// Calls a method of the mock that is only for tests; returns the values of the answer.
QVariantList ask(const char* method, const QVariantList& arguments) {
  QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.UDisks2"), QStringLiteral("/org/freedesktop/UDisks2"),
      QStringLiteral("org.example.TestDisks"), QLatin1String(method));
  message.setArguments(arguments);
  const QDBusMessage answer = SystemBus().callForAnswer(message);
  EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
  return answer.arguments();
}

} // namespace

void MockedDisks::addDrive(const char* name, QJsonObject properties) {
  set("drives", name, std::move(properties));
}

void MockedDisks::addBlock(const char* name, const MockedBlock& block) {
  QJsonObject description = {{"drive", QString::fromStdString(block.drive)},
                             {"number", block.deviceNumber},
                             {"inside", QString::fromStdString(block.inside)},
                             {"sharing", QString::fromStdString(block.sharing)}};
  QJsonArray mountPoints;
  for (const std::string& mountPoint : block.mountPoints) {
    mountPoints.append(QString::fromLatin1(QByteArray::fromStdString(mountPoint).toHex()));
  }
  if (!mountPoints.isEmpty()) {
    description["mounted"] = mountPoints;
  }
  set("blocks", name, description);
}

void MockedDisks::letFail(const char* method, const char* error, const char* text) {
  set("errors", method, QJsonArray{error, text});
}

void MockedDisks::letGather(const char* method, int calls) {
  set("gatherings", method, calls);
}

void MockedDisks::set(const char* part, const char* name, const QJsonValue& value) {
  QJsonObject object = parameters_[QLatin1String(part)].toObject();
  object[QLatin1String(name)] = value;
  parameters_[QLatin1String(part)] = object;
}

void MockedDisks::start() {
  const QByteArray parameters = QJsonDocument(parameters_).toJson(QJsonDocument::Compact);
  service_ = std::make_unique<ChildProgram>(
      std::vector<std::string>{"/usr/bin/python3", // the one for which Debian installs its modules
                               "-m", "dbusmock", "--logfile", "/dev/null", "--template",
                               UDISKS2_MOCK, "--parameters", parameters.toStdString()});
  service_->waitForLine("ready");
}

std::string MockedDisks::calls() {
  std::string text;
  for (const QString& call : ask("Calls", {}).value(0).toStringList()) {
    text += call.toStdString() + "\n";
  }
  return text;
}

void MockedDisks::makeOdd(const QString& interface, const QString& property, const QString& kind) {
  ask("MakeOdd", {interface, property, kind});
}

void MockedDisks::makeListOdd(const QString& kind) {
  ask("MakeListOdd", {kind});
}

} // namespace tamberline
