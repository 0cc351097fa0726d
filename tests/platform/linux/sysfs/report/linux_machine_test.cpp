#include "platform/linux/sysfs/report/linux_machine.h"
#include "platform/linux/sysfs/sysfs_tree.h"
#include "registry/property_list.h"
#include "reports/report_decoding.h"
#include "support/fake_machine.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/stat.h>
#include <thread>
#include <vector>

namespace tamberline {
namespace {

using namespace std::string_literals;

class LinuxMachineTest : public testing::Test {
protected:
  int readings = 0;
  LinuxMachine machine{[this] {
    ++readings;
    return sysfs::Machine();
  }};
};

TEST_F(LinuxMachineTest, AnswersEveryQuestionOfAScanFromOneReading) {
  for (const Question question : questionsOfAScan) {
    EXPECT_FALSE(machine.answer(question).empty());
  }
  EXPECT_EQ(readings, 1);
}

TEST_F(LinuxMachineTest, IsReadAnewForTheNextScan) {
  machine.answer(Question::usb);
  machine.answer(Question::power);
  machine.answer(Question::usb);
  EXPECT_EQ(readings, 2);
  machine.answer(Question::power);
  EXPECT_EQ(readings, 2);
}

TEST_F(LinuxMachineTest, IsReadOnceWhenAskedFromSeveralThreads) {
  std::vector<std::thread> threads;
  for (const Question question : questionsOfAScan) {
    threads.emplace_back([this, question] { machine.answer(question); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(readings, 1);
}

TEST_F(LinuxMachineTest, HasNoNewerUsbSection) {
  EXPECT_EQ(machine.answer(Question::newerUsb), "");
}

/// Asks a whole scan's questions about a tree; the scan can read all answers.
void expectAnswers(const SysfsTree& tree) {
  LinuxMachine machine([&] { return tree.read(); });
  for (const Question question : questionsOfAScan) {
    const std::string answer = machine.answer(question);
    EXPECT_TRUE(decodeReport(answer) || PropertyList::decode(answer)) << answer.substr(0, 1000);
  }
}

/// Offers, a cable and video with values at the ends of their types.
void addHostilePower(const SysfsTree& tree, const std::string& port) {
  for (const std::string value : {"9223372036854775807", "-9223372036854775808", "0", "\xff"}) {
    const std::string offer =
        "/usb_power_delivery/source-capabilities/" + std::to_string(value.size()) + value.front();
    for (const char* kind :
         {":fixed_supply", ":variable_supply", ":battery", ":programmable_supply"}) {
      tree.attributes(port + "-partner" + offer + kind, {{"voltage", value},
                                                         {"minimum_voltage", value},
                                                         {"maximum_voltage", value},
                                                         {"maximum_current", value},
                                                         {"maximum_power", value}});
    }
  }
  tree.attributes(port + "-cable", {{"type", "\xff"}, {"plug_type", "]]>"}});
  tree.attributes(port + "-cable/identity",
                  {{"id_header", "0x18000000"}, {"product_type_vdo1", "0x7fffffffffffffff"}});
  tree.attributes(port + "-partner/x-partner.0/displayport",
                  {{"pin_assignment", "[["}, {"hpd", "-9223372036854775808"}});
}

TEST(OddLinuxMachines, AnswerOnAnEmptyMachine) {
  expectAnswers(SysfsTree());
}

TEST(OddLinuxMachines, AnswerIfEverythingHasTheWrongType) {
  const SysfsTree files;
  for (const char* folder : {"bus", "class"}) {
    files.attribute(folder, "a file");
  }
  expectAnswers(files);
  const SysfsTree loops;
  for (const char* folder : {"bus/usb/devices", "class/typec", "class/block",
                             "bus/thunderbolt/devices", "class/power_supply"}) {
    loops.link(folder, "../../" + std::string(folder));
  }
  expectAnswers(loops);
}

TEST(OddLinuxMachines, AnswerWithHostileDevices) {
  const SysfsTree tree;
  const std::string long_(1'000'000, '\xE4');
  for (const std::string name : {"usb1", "1-1", "1-1.1", "1-1.2"}) {
    tree.attributes("bus/usb/devices/" + name, {{"idVendor", "\x01\xff&<>"},
                                                {"idProduct", long_},
                                                {"product", "\xff]]>\0\x1b"s + long_},
                                                {"manufacturer", "&#0;"},
                                                {"serial", "\n\n\n\0"s},
                                                {"speed", "-1"},
                                                {"bMaxPower", "99999999999999999999mA"},
                                                {"bDeviceClass", "09"}});
    tree.bytes("bus/usb/devices/" + name + "/bos_descriptors", std::string(100'000, '\xff'));
    tree.bytes("bus/usb/devices/" + name + "/descriptors", std::string(100'000, '\x12'));
    tree.attributes("bus/usb/devices/" + name + "/" + name + ":1.0/" + name + "-port1",
                    {{"over_current_count", "-9223372036854775808"}, {"state", long_}});
    tree.link("bus/usb/devices/" + name + "/" + name + ":1.0/" + name + "-port1/peer",
              name + "-port1");
  }
  tree.attributes("bus/thunderbolt/devices/0-0", {{"device_name", long_}});
  tree.attributes("bus/thunderbolt/devices/0-ffffffffffffffff",
                  {{"generation", "-9223372036854775808"}, {"rx_lanes", long_}});
  for (const std::string name : {"port0", "port254", "port255", "port-1", "port4294967295"}) {
    tree.attributes("class/typec/" + name, {{"power_role", "[[]]"}, {"port_type", long_}});
    tree.attributes("class/typec/" + name + "-partner/identity",
                    {{"id_header", "0xffffffffffffffff"}, {"product", "-1"}});
    addHostilePower(tree, "class/typec/" + name);
  }
  tree.classDevice("power_supply", "x", "BAT0",
                   {{"type", "Battery"},
                    {"capacity", "-9223372036854775808"},
                    {"charge_full", "9223372036854775807"},
                    {"charge_full_design", "1"},
                    {"status", "Discharging"},
                    {"voltage_now", "9223372036854775807"},
                    {"current_now", "-9223372036854775808"},
                    {"power_now", "-9223372036854775808"},
                    {"charge_control_start_threshold", "-9223372036854775808"},
                    {"charge_control_end_threshold", long_},
                    {"charge_behaviour", "[\xff]]>"}});
  tree.classDevice("power_supply", "x", "USB",
                   {{"type", "USB"},
                    {"online", "1"},
                    {"voltage_now", "9223372036854775807"},
                    {"current_now", "9223372036854775807"},
                    {"model_name", long_},
                    {"voltage_max", "9223372036854775807"},
                    {"current_max", "9223372036854775807"}});
  expectAnswers(tree);
}

} // namespace
} // namespace tamberline
