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
  }
  tree.classDevice("power_supply", "x", "BAT0",
                   {{"type", "Battery"},
                    {"capacity", "-9223372036854775808"},
                    {"charge_full", "9223372036854775807"},
                    {"charge_full_design", "1"}});
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
