#include "platform/linux/udisks/udisks_ejector.h"

#include "platform/linux/udisks/disk_objects.h"
#include "platform/linux/udisks/eject_calls.h"
#include "platform/linux/udisks/system_bus.h"

#include <QVariantMap>

namespace tamberline {
namespace {

EjectOutcome failed(const QString& message) {
  return {.isEjected = false, .message = message.toStdString()};
}

bool isError(const QDBusMessage& answer) {
  return answer.type() != QDBusMessage::ReplyMessage;
}

QDBusMessage messageOf(const DiskCall& call) {
  QDBusMessage message =
      QDBusMessage::createMethodCall(QLatin1String(DiskService::name), call.object,
                                     QLatin1String(call.interface), QLatin1String(call.method));
  message << QVariantMap(); // no options
  return message;
}

/// A file system on several block devices has a mount on each of them, and the first call unmounts
/// them all. Another program may also have unmounted it meanwhile.
bool isAlreadyDone(const QDBusMessage& answer) {
  return answer.errorName() == QLatin1String("org.freedesktop.UDisks2.Error.NotMounted");
}

EjectOutcome runDiskCalls(const std::vector<DiskCall>& calls, const SystemBus& bus) {
  for (const DiskCall& call : calls) {
    const QDBusMessage answer = bus.callForAction(messageOf(call));
    if (isError(answer) && !isAlreadyDone(answer)) {
      return failed(answer.errorMessage());
    }
  }
  return {.isEjected = true};
}

} // namespace

EjectOutcome UDisksEjector::eject(const EjectRequest& request) {
  const SystemBus bus;
  if (!bus.isConnected()) {
    return failed(bus.error());
  }
  const QDBusMessage answer = bus.callForAnswer(askForDiskObjects());
  if (isError(answer)) {
    return failed(answer.errorMessage());
  }
  const std::optional<DiskObjects> objects = readDiskObjects(answer);
  const EjectPlan plan = objects ? makeEjectPlan(*objects, request) : EjectPlan{};
  if (plan.refusal) {
    return {.refusal = plan.refusal};
  }
  return plan.calls.empty() ? EjectOutcome{} : runDiskCalls(plan.calls, bus);
}

} // namespace tamberline
