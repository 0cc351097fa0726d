#include "platform/linux/sysfs/read/mounted_file_systems.h"
#include "platform/linux/sysfs/sysfs_tree.h"

#include <gtest/gtest.h>

namespace tamberline::sysfs {
namespace {

class UsbVolumes : public testing::Test {
protected:
  UsbVolumes() {
    tree.attributes("bus/usb/devices/2-1", {{"idVendor", "04e8"}});
    tree.attributes("bus/usb/devices/2-1.4", {{"idVendor", "04e8"}});
  }

  void block(const std::string& name, const std::string& path, const std::string& number) const {
    const std::string device = "devices/" + path;
    tree.attribute(device + "/dev", number);
    tree.link("class/block/" + name, "../../" + device);
  }

  void mount(const std::string& number, const std::string& root, const std::string& point,
             const std::string& source, const std::string& type = "ext4") {
    mounts += "36 35 " + number + " " + root + " " + point + " rw shared:1 - " + type + " " +
              source + " rw\n";
    tree.mountTable(mounts);
  }

  /// "1-2: name at mount point, …", one line for each device with volumes.
  std::string volumes() const {
    std::string text;
    for (const auto& [address, device] : tree.read().usb.devices) {
      for (const Volume& volume : device.volumes) {
        text += address.name() + ": " + volume.name + " at " + volume.mountPoint + "\n";
      }
    }
    return text;
  }

  SysfsTree tree;
  std::string mounts;
  const std::string disk = "pci/usb2/2-1/2-1.4/2-1.4:1.0/host4/block/sda";
};

TEST_F(UsbVolumes, BelongToTheNearestDeviceAbove) {
  block("sda", disk, "8:0");
  block("sda1", disk + "/sda1", "8:1");
  tree.udevData("b8:1", "S:disk/by-label/x\nE:ID_FS_LABEL=no\nE:ID_FS_LABEL_ENC=Field\\x20Notes\n");
  mount("8:1", "/", "/media/Field\\040Notes", "/dev/sda1");
  EXPECT_EQ(volumes(), "2-1.4: Field Notes at /media/Field Notes\n");
}

TEST_F(UsbVolumes, OfOtherDisksAreIgnored) {
  block("nvme0n1", "pci/0000:01:00.0/nvme/nvme0/nvme0n1", "259:0");
  mount("259:0", "/", "/", "/dev/nvme0n1");
  EXPECT_EQ(volumes(), "");
}

TEST_F(UsbVolumes, AreFoundThroughEncryptionAndVolumeGroups) {
  block("sda", disk, "8:0");
  block("sda2", disk + "/sda2", "8:2");
  block("dm-0", "virtual/block/dm-0", "253:0");
  block("dm-1", "virtual/block/dm-1", "253:1");
  tree.attribute("devices/virtual/block/dm-1/dm/name", "vault-plans");
  tree.link("devices/" + disk + "/sda2/holders/dm-0", "x");
  tree.link("devices/virtual/block/dm-0/holders/dm-1", "x");
  tree.link("devices/virtual/block/dm-1/holders/dm-0", "x"); // a cycle
  mount("0:61", "/", "/plans", "/dev/mapper/vault-plans", "btrfs");
  EXPECT_EQ(volumes(), "2-1.4: vault-plans at /plans\n");
}

TEST_F(UsbVolumes, AreNotFoundByTheirSourceExceptOnBtrfs) {
  block("sda", disk, "8:0");
  mount("0:70", "/", "/home/me/fake", "/dev/sda", "fuse.sshfs");
  mount("0:71", "/", "/srv/memory", "/dev/sda", "tmpfs");
  mount("8:16", "/", "/media/other", "/dev/sda", "ext4");
  EXPECT_EQ(volumes(), "");
  mount("0:72", "/", "/media/many", "/dev/sda", "btrfs");
  EXPECT_EQ(volumes(), "2-1.4: sda at /media/many\n");
}

TEST_F(UsbVolumes, AreFoundByTheNumberOfTheirDevice) {
  block("sda", disk, "8:0");
  mount("8:0", "/", "/media/served", "/dev/disk/by-uuid/1", "fuseblk");
  EXPECT_EQ(volumes(), "2-1.4: sda at /media/served\n");
}

TEST_F(UsbVolumes, AreShownOnceWhereTheyAreMountedAsAWhole) {
  block("sda", disk, "8:0");
  mount("8:0", "/shared", "/srv", "/dev/sda");
  EXPECT_EQ(volumes(), "2-1.4: sda at /srv\n");
  mount("8:0", "/", "/media/a", "/dev/sda");
  mount("8:0", "/", "/media/b", "/dev/sda");
  EXPECT_EQ(volumes(), "2-1.4: sda at /media/a\n");
}

TEST_F(UsbVolumes, WithInvalidMountPointsAreLeftOut) {
  block("sda", disk, "8:0");
  mount("8:0", "/", "/media/\xff", "/dev/sda");
  EXPECT_EQ(volumes(), "");
}

TEST(MountTable, IsReadLineByLine) {
  const auto mounts = mountedFileSystemsIn("22 1 8:1 / /a\\040b rw - ext4 /dev/sda1 rw\n"
                                           "23 1 0:5 /@ /c rw shared:1 master:2 - btrfs none rw\n"
                                           "24 1 8:2 / /d rw shared:1\n"
                                           "25 1 8:3 / /e rw -\n"
                                           "no line\n\n");
  ASSERT_EQ(mounts.size(), 2U);
  EXPECT_EQ(mounts[0].mountPoint, "/a b");
  EXPECT_EQ(mounts[0].source, "/dev/sda1");
  EXPECT_EQ(mounts[1].deviceNumber, "0:5");
  EXPECT_EQ(mounts[1].root, "/@");
  EXPECT_EQ(mounts[1].type, "btrfs");
  EXPECT_EQ(mounts[1].source, "none");
}

} // namespace
} // namespace tamberline::sysfs
