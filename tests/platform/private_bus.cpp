#include "platform/private_bus.h"

#include <cstdlib>
#include <unistd.h>

namespace tamberline {
namespace {

/// Abstract, so it leaves no file.
std::string address() {
  return "unix:abstract=tamberline-test-bus-" + std::to_string(getpid());
}

std::string configuration() {
  return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
         " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
         "<busconfig>\n"
         "  <listen>" +
         address() +
         "</listen>\n"
         "  <auth>EXTERNAL</auth>\n"
         "  <policy context=\"default\">\n"
         "    <allow send_destination=\"*\"/>\n"
         "    <allow receive_sender=\"*\"/>\n"
         "    <allow own=\"*\"/>\n"
         "  </policy>\n"
         "</busconfig>\n";
}

std::string savedConfiguration(const TemporaryFolder& folder) {
  folder.save("bus.conf", configuration());
  return (folder.path() / "bus.conf").string();
}

} // namespace

PrivateBus::PrivateBus(const TemporaryFolder& folder)
    : daemon_({"dbus-daemon", "--config-file=" + savedConfiguration(folder), "--nofork",
               "--print-address"}) {
  daemon_.waitForLine(address());
}

void PrivateBus::becomeSystemBus() {
  setenv("DBUS_SYSTEM_BUS_ADDRESS", address().c_str(), 1);
}

void PrivateBus::becomeSessionBus() {
  setenv("DBUS_SESSION_BUS_ADDRESS", address().c_str(), 1);
}

} // namespace tamberline
