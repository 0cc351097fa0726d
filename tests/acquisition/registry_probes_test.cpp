#include "acquisition/registry_probes.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"
#include "support/property_list_text.h"

#include <gtest/gtest.h>

#include <optional>

namespace tamberline {
namespace {

class RegistryProbes : public testing::Test {
protected:
  template <typename Result>
  static QCoro::Task<> store(QCoro::Task<Result> probe,
                             std::shared_ptr<std::optional<Result>> result) {
    result->emplace(co_await probe);
  }

  /// What the probe finds when the tool prints `output` for it.
  template <typename Result>
  Result probe(QCoro::Task<Result> (*fetch)(Acquisition), const std::string& fileName,
               const std::string& output) {
    tools->answer(fileName, output);
    const auto result = std::make_shared<std::optional<Result>>();
    store(fetch({tools, queue}), result);
    queue->settle();
    EXPECT_TRUE(result->has_value());
    return result->value_or(Result{});
  }

  std::shared_ptr<FakeTools> tools = std::make_shared<FakeTools>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
};

TEST_F(RegistryProbes, RunTheRegistryToolWithTheArgumentsOfEachProbe) {
  probe(fetchHPMPorts, "AppleHPMDevice.plist", "");
  probe(fetchPortPowerOut, "AppleSmartBattery.plist", "");
  probe(fetchPortCurrentLimits, "IODeviceTree.plist", "");
  probe(fetchContainerIDs, "IOUSBHostDevice.plist", "");
  probe(fetchFedDetails, "IOPMPowerSource.plist", "");
  EXPECT_EQ(tools->commandLines(), (std::vector<std::string>{
                                       "/usr/sbin/ioreg -a -r -c AppleHPMDevice -l",
                                       "/usr/sbin/ioreg -a -r -c AppleSmartBattery -l",
                                       "/usr/sbin/ioreg -a -l -p IODeviceTree",
                                       "/usr/sbin/ioreg -a -r -c IOUSBHostDevice -l",
                                       "/usr/sbin/ioreg -c IOPMPowerSource -r -a",
                                   }));
}

TEST_F(RegistryProbes, ReadTheDumpThatTheToolPrints) {
  const auto ports = probe(fetchHPMPorts, "AppleHPMDevice.plist",
                           propertyList("<array><dict><key>PortNumber</key><integer>2</integer>"
                                        "<key>PortDescription</key><string>Port-USB-C@2</string>"
                                        "</dict></array>"));
  ASSERT_EQ(ports.size(), 1U);
  EXPECT_EQ(ports.front().portNumber, 2);
}

TEST_F(RegistryProbes, FindNothingInOutputThatIsNoDump) {
  for (const std::string output : {"", "garbage", "<plist>", "<plist><dict/></plist>"}) {
    SCOPED_TRACE(output);
    EXPECT_TRUE(probe(fetchHPMPorts, "AppleHPMDevice.plist", output).empty());
    EXPECT_TRUE(probe(fetchPortPowerOut, "AppleSmartBattery.plist", output).empty());
    EXPECT_TRUE(probe(fetchPortCurrentLimits, "IODeviceTree.plist", output).empty());
    EXPECT_EQ(probe(fetchContainerIDs, "IOUSBHostDevice.plist", output).size(), 0U);
    EXPECT_TRUE(probe(fetchFedDetails, "IOPMPowerSource.plist", output).ports.empty());
    EXPECT_EQ(probe(fetchFedDetails, "IOPMPowerSource.plist", output).bestAdapterIndex, 0);
  }
}

} // namespace
} // namespace tamberline
