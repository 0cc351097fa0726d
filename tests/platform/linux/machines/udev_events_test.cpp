#include "platform/linux/machines/mocked_machine.h"
#include "platform/linux/udev/udev_event_source.h"
#include "scanner/port_monitor.h"
#include "support/event_loop.h"
#include "support/hand_driven_queue.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <memory>
#include <string>

namespace tamberline {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;

const std::string controller = "/devices/pci0000:00/0000:00:14.0";
const std::string stick = controller + "/usb1/1-6";

const std::string stickRecording = usbStickAt(stick) + R"(
P: )" + stick + R"(/1-6:1.0
E: DEVTYPE=usb_interface
E: SUBSYSTEM=usb
A: bInterfaceClass=08\n

P: )" + stick + R"(/1-6:1.0/host5/target5:0:0/5:0:0:0/block/sdc
N: sdc
E: DEVTYPE=disk
E: SUBSYSTEM=block
A: dev=8:32\n
)";

class UdevEvents : public testing::Test {
protected:
  UdevEvents() { monitor.start(); }

  /// How often the monitor asks for a rescan after all earlier events are processed: events come in
  /// order, and the last one is from the power source.
  int rescansAfterwards() {
    const int before = powerEvents;
    machine.tellOfChange("/devices/LNXSYSTM:00/PNP0C0A:01/power_supply/BAT1");
    EXPECT_TRUE(runEventsUntil([&] { return powerEvents > before; }));
    const int rescansBefore = rescans;
    queue->advance(10s);
    return rescans - rescansBefore;
  }

  /// The real source; its reports about the power source are counted.
  class CountingSource final : public PortEventSource {
  public:
    CountingSource(std::shared_ptr<PortEventSource> source, int& powerEvents)
        : source_(std::move(source)), powerEvents_(powerEvents) {}

    void start(PortEvents events) override {
      source_->start({.registryChanged = events.registryChanged, .powerChanged = [this, events] {
                        events.powerChanged();
                        ++powerEvents_;
                      }});
    }
    void stop() override { source_->stop(); }
    bool isOnExternalPower() const override { return source_->isOnExternalPower(); }

  private:
    std::shared_ptr<PortEventSource> source_;
    int& powerEvents_;
  };

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};

  MockedMachine machine{"silent-laptop"};
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  int rescans = 0;
  int powerEvents = 0;
  PortMonitor monitor{
      [this] { ++rescans; },
      std::make_shared<CountingSource>(std::make_shared<UdevEventSource>(), powerEvents), queue};
};

TEST_F(UdevEvents, EndInOneRescanForAnAttachedDriveWithAllThatBelongsToIt) {
  machine.attach(stickRecording);
  EXPECT_EQ(rescansAfterwards(), 1);
}

TEST_F(UdevEvents, EndInOneRescanForADetachedDrive) {
  machine.attach(stickRecording);
  EXPECT_EQ(rescansAfterwards(), 1);
  machine.detach(stick + "/1-6:1.0/host5/target5:0:0/5:0:0:0/block/sdc");
  machine.detach(stick + "/1-6:1.0");
  machine.detach(stick);
  EXPECT_EQ(rescansAfterwards(), 1);
}

TEST_F(UdevEvents, EndInOneRescanForEachOtherKindOfDevice) {
  for (const std::string device :
       {"P: /devices/pci0000:00/0000:00:0d.2/domain0/0-0\nE: SUBSYSTEM=thunderbolt\n",
        "P: /devices/platform/USBC000:00/typec/port7\nE: SUBSYSTEM=typec\n",
        "P: /devices/pci0000:00/0000:00:07.0/0000:03:00.0\nE: SUBSYSTEM=pci\n"
        "A: removable=removable\\n\n\n"
        "P: /devices/pci0000:00/0000:00:07.0/0000:03:00.0/nvme/nvme3/nvme3n1\nE: "
        "SUBSYSTEM=block\n"}) {
    SCOPED_TRACE(device);
    machine.attach(device);
    EXPECT_EQ(rescansAfterwards(), 1);
  }
}

TEST_F(UdevEvents, IgnoreOtherDevices) {
  machine.attach("P: /devices/virtual/net/lo\nE: SUBSYSTEM=net\n");
  machine.attach("P: /devices/virtual/block/loop7\nE: SUBSYSTEM=block\n");
  machine.attach("P: /devices/pci0000:00/0000:00:06.0/nvme/nvme0/nvme0n1\nE: SUBSYSTEM=block\n");
  machine.attach("P: " + controller +
                 "/usb1/1-5/1-5:1.9\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_interface\n");
  EXPECT_EQ(rescansAfterwards(), 0);
}

TEST_F(UdevEvents, EndInOneRescanForAnAdapterThatIsPulled) {
  machine.setAttribute("/devices/LNXSYSTM:00/ACPI0003:00/power_supply/ADP1", "online", "0");
  machine.tellOfChange("/devices/LNXSYSTM:00/ACPI0003:00/power_supply/ADP1");
  EXPECT_EQ(rescansAfterwards(), 1);
}

TEST_F(UdevEvents, ReportNothingAfterStopping) {
  monitor.stop();
  machine.attach(stickRecording);
  QCoreApplication::processEvents();
  queue->advance(10s);
  EXPECT_EQ(rescans, 0);
}

class LiveProgram : public testing::Test {
protected:
  LiveProgram() {
    program.start(INSPECT_PROGRAM, {"--watch", "--json"});
    EXPECT_TRUE(program.waitForStarted());
  }

  /// The next document that the program prints.
  json nextDocument() {
    EXPECT_TRUE(runEventsUntil([this] { return program.canReadLine(); }));
    return json::parse(program.readLine().toStdString(), nullptr, /*allow_exceptions=*/false);
  }

  static bool holds(const json& document, const std::string& name) {
    return document.dump().find(name) != std::string::npos;
  }

  int argc_ = 1;
  std::string name_ = "test";
  char* argv_ = name_.data();
  QCoreApplication application_{argc_, &argv_};
  MockedMachine machine{"silent-laptop"};
  QProcess program;
};

TEST_F(LiveProgram, PrintsADocumentForEachChange) {
  EXPECT_FALSE(holds(nextDocument(), "Marble Stick"));
  machine.attach(stickRecording);
  EXPECT_TRUE(holds(nextDocument(), "Marble Stick"));
  machine.detach(stick);
  EXPECT_FALSE(holds(nextDocument(), "Marble Stick"));
  program.terminate();
  EXPECT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_EQ(program.readAllStandardOutput().toStdString(), "");
}

} // namespace
} // namespace tamberline
