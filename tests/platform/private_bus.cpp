#include "platform/private_bus.h"

#include <QByteArray>
#include <QCoreApplication>

namespace tamberline {
namespace {

/// Abstract, so that no file is left behind.
QByteArray address() {
  return "unix:abstract=tamberline-test-bus-" +
         QByteArray::number(QCoreApplication::applicationPid());
}

std::string configuration() {
  return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
         " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
         "<busconfig>\n"
         "  <listen>" +
         address().toStdString() +
         "</listen>\n"
         "  <auth>EXTERNAL</auth>\n"
         "  <policy context=\"default\">\n"
         "    <allow send_destination=\"*\"/>\n"
         "    <allow receive_sender=\"*\"/>\n"
         "    <allow own=\"*\"/>\n"
         "  </policy>\n"
         "</busconfig>\n";
}

QString savedConfiguration(const TemporaryFolder& folder) {
  folder.save("bus.conf", configuration());
  return QString::fromStdString((folder.path() / "bus.conf").string());
}

} // namespace

PrivateBus::PrivateBus(const TemporaryFolder& folder)
    : daemon_(QStringLiteral("dbus-daemon"),
              {QStringLiteral("--config-file=") + savedConfiguration(folder),
               QStringLiteral("--nofork"), QStringLiteral("--print-address")}) {
  daemon_.hasSaid(address());
}

void PrivateBus::becomeSystemBus() {
  qputenv("DBUS_SYSTEM_BUS_ADDRESS", address());
}

} // namespace tamberline
