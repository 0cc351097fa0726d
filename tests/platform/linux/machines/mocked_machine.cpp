#include "platform/linux/machines/mocked_machine.h"

#include <gtest/gtest.h>

#include <umockdev.h>

namespace tamberline {

namespace fs = std::filesystem;

void MockedMachine::Release::operator()(UMockdevTestbed* testbed) const {
  g_object_unref(testbed);
}

std::string usbStickAt(const std::string& socket, const std::string& name, int deviceNumber) {
  return "P: " + socket + R"(
E: DEVTYPE=usb_device
E: SUBSYSTEM=usb
A: idVendor=0781\n
A: idProduct=5567\n
A: bDeviceClass=00\n
A: speed=480\n
A: serial=MS-0417\n
A: bMaxPower=200mA\n
A: devnum=)" +
         std::to_string(deviceNumber) + "\\n\nA: product=" + name + "\\n\n";
}

MockedMachine::MockedMachine(const std::string& name) : testbed_(umockdev_testbed_new()) {
  if (name.empty()) {
    return;
  }
  const fs::path recording = folder() / (name + ".umockdev");
  EXPECT_TRUE(umockdev_testbed_add_from_file(testbed_.get(), recording.c_str(), nullptr));
  gchar* root = umockdev_testbed_get_root_dir(testbed_.get());
  const fs::path process = fs::path(root) / "proc" / "self";
  g_free(root);
  fs::create_directories(process);
  fs::copy_file(folder() / (name + ".mounts"), process / "mountinfo");
}

MockedMachine::~MockedMachine() = default;

fs::path MockedMachine::folder() {
  return LINUX_MACHINES_FOLDER;
}

void MockedMachine::attach(const std::string& recording) {
  EXPECT_TRUE(umockdev_testbed_add_from_string(testbed_.get(), recording.c_str(), nullptr));
}

void MockedMachine::detach(const std::string& path) {
  umockdev_testbed_uevent(testbed_.get(), ("/sys" + path).c_str(), "remove");
  umockdev_testbed_remove_device(testbed_.get(), ("/sys" + path).c_str());
}

void MockedMachine::setAttribute(const std::string& path, const std::string& name,
                                 const std::string& value) {
  umockdev_testbed_set_attribute(testbed_.get(), ("/sys" + path).c_str(), name.c_str(),
                                 value.c_str());
}

void MockedMachine::tellOfChange(const std::string& path) {
  umockdev_testbed_uevent(testbed_.get(), ("/sys" + path).c_str(), "change");
}

} // namespace tamberline
