#include "platform/linux/sysfs/sysfs_tree.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline::sysfs {
namespace {

/// A machine with Thunderbolt devices and the PCI functions that they bring.
class TunneledDrivesTest : public testing::Test {
protected:
  void router(const std::string& address, const std::string& name,
              const std::string& authorized = "1") const {
    tree.attributes("bus/thunderbolt/devices/" + address,
                    {{"device_name", name}, {"authorized", authorized}});
  }

  /// A function behind bridges, with everything below it marked as removable.
  void function(const std::string& path) const {
    const std::string folder = "devices/pci0000:00/" + path;
    tree.attribute(folder + "/removable", "removable");
    const std::string name = path.substr(path.rfind('/') + 1);
    tree.link("bus/pci/devices/" + name, "../../../" + folder);
  }

  void drive(const std::string& path, const std::string& name, const std::string& number) {
    function(path);
    const std::string controller = "devices/pci0000:00/" + path + "/nvme/" + name;
    const std::string disk = controller + "/" + name + "n1";
    tree.attributes(controller, {{"model", "Model " + name}, {"serial", "Serial " + name}});
    tree.attribute(disk + "/dev", "259:" + number);
    tree.attribute(disk + "/" + name + "n1p1/dev", "259:" + number + "1");
    tree.link("class/block/" + name + "n1", "../../" + disk);
    tree.link("class/block/" + name + "n1p1", "../../" + disk + "/" + name + "n1p1");
    mounts += "36 35 259:" + number + "1 / /media/" + name + " rw shared:1 - ext4 /dev/" + name +
              "n1p1 rw\n";
    tree.mountTable(mounts);
  }

  /// "router: model serial at mount point", one line for each drive.
  std::string drives() const {
    std::string text;
    for (const auto& [address, router] : tree.read().thunderbolt.routers) {
      for (const Drive& drive : router.drives) {
        text += router.name + ": " + drive.name + ", " + drive.serialNumber;
        for (const Volume& volume : drive.volumes) {
          text += " at " + volume.mountPoint;
        }
        text += "\n";
      }
    }
    return text;
  }

  SysfsTree tree;
  std::string mounts;
};

TEST_F(TunneledDrivesTest, StandUnderTheOnlyEnclosure) {
  router("0-0", "Laptop");
  router("0-1", "Slate");
  drive("0000:00:07.0/0000:03:00.0/0000:04:00.0/0000:06:00.0", "nvme1", "5");
  EXPECT_EQ(drives(), "Slate: Model nvme1, Serial nvme1 at /media/nvme1\n");
}

TEST_F(TunneledDrivesTest, AreNotThoseOfTheComputer) {
  router("0-0", "Laptop");
  router("0-1", "Slate");
  drive("0000:00:06.0/0000:02:00.0", "nvme0", "1");
  std::filesystem::remove(tree.sysfs() / "devices/pci0000:00/0000:00:06.0/0000:02:00.0/removable");
  EXPECT_EQ(drives(), "");
}

TEST_F(TunneledDrivesTest, OfAChainAreToldByTheBridgesBeforeThem) {
  router("0-0", "Laptop");
  router("0-1", "Dock");
  router("0-301", "Slate");
  drive("0000:00:07.0/0000:03:00.0/0000:04:02.0/0000:05:00.0/0000:06:00.0/0000:07:00.0", "nvme1",
        "5");
  EXPECT_EQ(drives(), "Slate: Model nvme1, Serial nvme1 at /media/nvme1\n");
}

TEST_F(TunneledDrivesTest, OfAChainWithoutItsFirstRouterAreLeftOut) {
  router("0-0", "Laptop");
  router("0-301", "Slate");
  router("0-501", "Basalt");
  drive("0000:00:07.0/0000:03:00.0/0000:04:02.0/0000:05:00.0/0000:06:00.0/0000:07:00.0", "nvme1",
        "5");
  EXPECT_EQ(drives(), "");
}

TEST_F(TunneledDrivesTest, OnTwoPortsAreToldByTheOrderOfThese) {
  router("0-0", "Laptop");
  router("0-1", "First");
  router("0-3", "Second");
  drive("0000:00:07.2/0000:53:00.0/0000:54:00.0/0000:55:00.0", "nvme1", "5");
  drive("0000:00:07.0/0000:03:00.0/0000:04:00.0/0000:06:00.0", "nvme2", "6");
  EXPECT_EQ(drives(), "First: Model nvme2, Serial nvme2 at /media/nvme2\n"
                      "Second: Model nvme1, Serial nvme1 at /media/nvme1\n");
}

TEST_F(TunneledDrivesTest, BesideADockWithoutPciAreInTheOther) {
  router("0-0", "Laptop");
  router("0-1", "Harbour Dock");
  router("0-3", "Slate");
  drive("0000:00:07.2/0000:53:00.0/0000:54:00.0/0000:55:00.0", "nvme1", "5");
  EXPECT_EQ(drives(), "Slate: Model nvme1, Serial nvme1 at /media/nvme1\n");
}

TEST_F(TunneledDrivesTest, AreNotGuessed) {
  router("0-0", "Laptop");
  router("0-1", "Slate");
  router("0-3", "Basalt");
  drive("0000:00:07.2/0000:53:00.0/0000:54:00.0/0000:55:00.0", "nvme1", "5");
  EXPECT_EQ(drives(), "");
}

TEST_F(TunneledDrivesTest, AreNotInEnclosuresThatAreNotAuthorised) {
  router("0-0", "Laptop");
  router("0-1", "Slate", "0");
  router("0-3", "Basalt");
  drive("0000:00:07.2/0000:53:00.0/0000:54:00.0/0000:55:00.0", "nvme1", "5");
  EXPECT_EQ(drives(), "Basalt: Model nvme1, Serial nvme1 at /media/nvme1\n");
}

} // namespace
} // namespace tamberline::sysfs
