#include "acquisition/registry_probes.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/property_list_text.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace tamberline {
namespace {

QCoro::Task<LastReading<USBHostDevices>> readContainerIDs(Acquisition acquisition) {
  return fetchContainerIDs(std::move(acquisition), nullptr);
}

class RegistryProbes : public testing::Test {
protected:
  template <typename Result>
  static QCoro::Task<> store(QCoro::Task<Result> probe,
                             std::shared_ptr<std::optional<Result>> result) {
    result->emplace(co_await probe);
  }

  /// What the probe finds when `output` is the answer.
  template <typename Result>
  Result probe(QCoro::Task<Result> (*fetch)(Acquisition), Question question,
               const std::string& output) {
    machine->answer(question, output);
    const auto result = std::make_shared<std::optional<Result>>();
    store(fetch({machine, queue}), result);
    queue->settle();
    EXPECT_TRUE(result->has_value());
    return result->value_or(Result{});
  }

  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
};

TEST_F(RegistryProbes, AskForTheirPartOfTheRegistry) {
  probe(fetchHPMPorts, Question::portControllers, "");
  probe(fetchPortPowerOut, Question::portPower, "");
  probe(fetchPortCurrentLimits, Question::deviceTree, "");
  probe(readContainerIDs, Question::usbHostDevices, "");
  probe(fetchFedDetails, Question::powerSource, "");
  EXPECT_EQ(
      machine->questions(),
      (std::vector<Question>{Question::portControllers, Question::portPower, Question::deviceTree,
                             Question::usbHostDevices, Question::powerSource}));
}

TEST_F(RegistryProbes, ReadTheDump) {
  const auto ports = probe(fetchHPMPorts, Question::portControllers,
                           propertyList("<array><dict><key>PortNumber</key><integer>2</integer>"
                                        "<key>PortDescription</key><string>Port-USB-C@2</string>"
                                        "</dict></array>"));
  ASSERT_EQ(ports.size(), 1U);
  EXPECT_EQ(ports.front().portNumber, 2);
}

TEST_F(RegistryProbes, ReadTwoThingsFromOneDump) {
  const BatteryController battery = probe(
      fetchPortPowerOut, Question::portPower,
      propertyList("<array><dict><key>ExternalConnected</key><true/><key>PowerOutDetails</key>"
                   "<array><dict><key>PortIndex</key><integer>2</integer></dict></array>"
                   "</dict></array>"));
  EXPECT_EQ(battery.portPowerOut.size(), 1U);
  ASSERT_TRUE(battery.charging);
  EXPECT_EQ(battery.charging->isExternalPowerConnected, true);

  const USBHostDevices devices =
      probe(readContainerIDs, Question::usbHostDevices,
            propertyList("<array><dict><key>locationID</key><integer>7</integer><key>bcdUSB</key>"
                         "<integer>512</integer><key>kUSBContainerID</key><string>box</string>"
                         "</dict></array>"))
          ->result;
  EXPECT_EQ(devices.containerIDs.find(7), "box");
  EXPECT_EQ(devices.abilities.find(7).value().usbVersion, 0x0200);
}

TEST_F(RegistryProbes, FindNothingInAnAnswerThatIsNoDump) {
  for (const std::string output : {"", "garbage", "<plist>", "<plist><dict/></plist>"}) {
    SCOPED_TRACE(output);
    EXPECT_TRUE(probe(fetchHPMPorts, Question::portControllers, output).empty());
    const BatteryController battery = probe(fetchPortPowerOut, Question::portPower, output);
    EXPECT_TRUE(battery.portPowerOut.empty());
    EXPECT_FALSE(battery.charging);
    EXPECT_TRUE(probe(fetchPortCurrentLimits, Question::deviceTree, output).empty());
    const auto devices = probe(readContainerIDs, Question::usbHostDevices, output);
    EXPECT_EQ(devices->result.containerIDs.size(), 0U);
    EXPECT_EQ(devices->result.abilities.size(), 0U);
    EXPECT_TRUE(probe(fetchFedDetails, Question::powerSource, output).ports.empty());
    EXPECT_EQ(probe(fetchFedDetails, Question::powerSource, output).bestAdapterIndex, 0);
  }
}

std::string dumpWithContainer(const std::string& identifier) {
  return propertyList("<array><dict><key>locationID</key><integer>1</integer>"
                      "<key>kUSBContainerID</key><string>" +
                      identifier + "</string></dict></array>");
}

TEST_F(RegistryProbes, ReadTheContainersAgainOnlyIfTheirDumpChanged) {
  LastReading<USBHostDevices> last;
  const auto readAgain = [&](const std::string& dump) {
    machine->answer(Question::usbHostDevices, dump);
    const auto result = std::make_shared<std::optional<LastReading<USBHostDevices>>>();
    store(fetchContainerIDs({machine, queue}, last), result);
    queue->settle();
    return result->value_or(nullptr);
  };
  last = readAgain(dumpWithContainer("box"));
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->result.containerIDs.find(1), "box");
  EXPECT_EQ(readAgain(dumpWithContainer("box")), last);
  const LastReading<USBHostDevices> changed = readAgain(dumpWithContainer("bag"));
  ASSERT_NE(changed, nullptr);
  EXPECT_EQ(changed->result.containerIDs.find(1), "bag");
}

} // namespace
} // namespace tamberline
