#!/usr/bin/env python3
"""Writes the fictional machines of this folder as umockdev recordings, one file for each, with a
mount table beside it if something is mounted:  python3 make_machines.py

The devices have all the attributes of the kernel's descriptions, so that other tools can list them too."""

import pathlib
import struct

HUB, AUDIO, HID, STORAGE, VIDEO, VENDOR = 9, 1, 3, 8, 14, 0xFF


class Machine:
    def __init__(self, name):
        self.name = name
        self.blocks = []
        self.mounts = []
        self.paths = {}
        self.links = {}
        self.device_numbers = {}

    def add(self, path, subsystem, properties=(), attributes=(), links=(), node=None, binary=()):
        lines = [f"P: {path}"]
        if node:
            lines.append(f"N: {node}")
        lines += [f"E: {key}={value}" for key, value in properties]
        lines.append(f"E: SUBSYSTEM={subsystem}")
        lines += [f"A: {key}={value}\\n" for key, value in attributes if value is not None]
        lines += [f"H: {key}={value.hex().upper()}" for key, value in binary]
        lines += [f"L: {key}={value}" for key, value in links]
        self.blocks.append((path, lines))

    # A link from a folder to a path of the machine, relative like the kernel's links.
    @staticmethod
    def relative(folder, target):
        here, there = folder.strip("/").split("/"), target.strip("/").split("/")
        while here and there and here[0] == there[0]:
            here, there = here[1:], there[1:]
        return "/".join([".."] * len(here) + there)

    # Behind the bridges in the path; what a Thunderbolt device brings is removable.
    def pci(self, function, pci_class, driver, removable=False):
        path = f"/devices/pci0000:00/{function}"
        if path not in self.paths.values():
            self.paths[function] = path
            self.add(path, "pci", [("DRIVER", driver)],
                     [("class", pci_class), ("removable", "removable" if removable else None)],
                     links=[("driver", self.relative(path, f"/bus/pci/drivers/{driver}"))])
        return path

    def root_hub(self, bus, pci, speed, ports, connectors=None, peer_bus=None, location=None,
                 removable=False):
        path = f"{self.pci(pci, '0x0c0330', 'xhci_hcd', removable)}/usb{bus}"
        self.paths[f"usb{bus}"] = path
        super_speed = speed >= 5000
        self._device(
            path, f"usb{bus}", bus, 1, "0", 0x1D6B, 3 if super_speed else 2,
            "xHCI Host Controller", "Linux 6.12.0 xhci-hcd", pci.split("/")[-1], speed, 0, HUB,
            ports)
        for port in range(1, ports + 1):
            self._port(f"usb{bus}", port, (connectors or {}).get(port),
                       f"usb{peer_bus}-port{port}" if peer_bus else None,
                       (location or {}).get(port))

    def device(self, name, vendor, product, text, maker, speed, milliamperes, klass=VENDOR,
               serial=None, ports=0, peer=None, container=None, gigabits=(), authorized=1):
        bus = int(name.split("-")[0])
        parent = name.rsplit(".", 1)[0] if "." in name else f"usb{bus}"
        path = f"{self.paths[parent]}/{name}"
        self.paths[name] = path
        number = self.device_numbers.get(bus, 1) + 1
        self._device(path, name, bus, number, name.split("-")[1], vendor, product, text, maker,
                     serial, speed, milliamperes, klass, ports, container, gigabits, authorized)
        for port in range(1, ports + 1):
            self._port(name, port, None, f"{peer}-port{port}" if peer else None, None)

    def _device(self, path, name, bus, number, devpath, vendor, product, text, maker, serial,
                speed, milliamperes, klass, ports, container=None, gigabits=(), authorized=1):
        self.device_numbers[bus] = number
        version = 0x0320 if speed >= 10000 else 0x0300 if speed >= 5000 else \
            0x0210 if gigabits else 0x0200
        unit = 8 if speed >= 5000 else 2
        packet = 9 if speed >= 5000 else 64
        descriptor = struct.pack(
            "<BBHBBBBHHHBBBB", 18, 1, version, HUB if ports else 0, 0, 0, packet, vendor, product,
            0x0100, 0, 0, 0, 1)
        interface = struct.pack("<BBBBBBBBB", 9, 4, 0, 0, 1, klass, 0, 0, 0)
        endpoint = struct.pack("<BBBBHB", 7, 5, 0x81, 3, 8, 12)
        configuration = struct.pack(
            "<BBHBBBBB", 9, 2, 9 + len(interface) + len(endpoint), 1, 1, 0, 0xE0,
            min(milliamperes // unit, 255)) + interface + endpoint
        binary = [("descriptors", descriptor + configuration)]
        capabilities = self.capabilities(container, gigabits)
        if capabilities:
            content = b"".join(capabilities)
            binary.append(("bos_descriptors", struct.pack(
                "<BBHB", 5, 15, 5 + len(content), len(capabilities)) + content))
        self.add(
            path, "usb",
            [("DEVTYPE", "usb_device"), ("DRIVER", "usb"), ("BUSNUM", f"{bus:03}"),
             ("DEVNUM", f"{number:03}"), ("MAJOR", "189"), ("MINOR", str((bus - 1) * 128 + number - 1)),
             ("DEVNAME", f"/dev/bus/usb/{bus:03}/{number:03}")],
            [("busnum", bus), ("devnum", number), ("devpath", devpath), ("speed", f"{speed:g}"),
             ("idVendor", f"{vendor:04x}"), ("idProduct", f"{product:04x}"), ("bcdDevice", "0100"),
             ("version", f" {version >> 8:x}.{version & 0xFF:02x}"),
             ("authorized", authorized),
             ("bDeviceClass", f"{HUB if ports else 0:02x}"), ("bDeviceSubClass", "00"),
             ("bDeviceProtocol", "00"), ("bMaxPacketSize0", packet), ("bNumConfigurations", 1),
             ("bConfigurationValue", 1), ("bNumInterfaces", " 1"), ("bmAttributes", "e0"),
             ("bMaxPower", f"{milliamperes}mA"), ("maxchild", ports), ("rx_lanes", 1),
             ("tx_lanes", 1), ("configuration", ""), ("product", text), ("manufacturer", maker),
             ("serial", serial)],
            node=f"bus/usb/{bus:03}/{number:03}", binary=binary,
            links=[("driver", self.relative(path, "/bus/usb/drivers/usb"))])
        interface_name = f"{bus}-0:1.0" if name.startswith("usb") else f"{name}:1.0"
        driver = {HUB: "hub", HID: "usbhid", STORAGE: "uas", AUDIO: "snd-usb-audio",
                  VIDEO: "uvcvideo"}.get(klass, "cdc_ncm")
        interface_path = f"{path}/{interface_name}"
        self.links[name] = []
        self.add(
            interface_path, "usb", [("DEVTYPE", "usb_interface"), ("DRIVER", driver)],
            [("bInterfaceNumber", "00"), ("bAlternateSetting", " 0"), ("bNumEndpoints", "01"),
             ("bInterfaceClass", f"{klass:02x}"), ("bInterfaceSubClass", "00"),
             ("bInterfaceProtocol", "00")],
            links=[("driver", self.relative(interface_path, f"/bus/usb/drivers/{driver}"))])
        self.paths[f"{name}:interface"] = interface_path

    # The speeds of one lane that a USB 3 device knows, in Gb/s, and its container.
    @staticmethod
    def capabilities(container, gigabits):
        capabilities = []
        if gigabits:
            capabilities.append(struct.pack("<BBBI", 7, 0x10, 2, 2))
            capabilities.append(struct.pack("<BBBBHBBH", 10, 0x10, 3, 0, 0x0E, 1, 10, 0x7FF))
        if any(speed > 5 for speed in gigabits):
            sublinks = b"".join(struct.pack("<HH", 0x4030, speed) for speed in gigabits)
            capabilities.append(struct.pack("<BBBBIHH", 12 + len(sublinks), 0x10, 0x0A, 0,
                                            len(gigabits) - 1, 0x1101, 0) + sublinks)
        if container:
            capabilities.append(struct.pack("<BBBB", 20, 0x10, 4, 0) + bytes.fromhex(container))
        return capabilities

    # Ports are folders of the hub's interface.
    def _port(self, hub, port, connector, peer, location):
        interface = self.paths[f"{hub}:interface"]
        lines = next(lines for path, lines in self.blocks if path == interface)
        folder = f"{hub}-port{port}"
        lines.append(f"A: {folder}/connect_type=hotplug\\n")
        lines.append(f"A: {folder}/over_current_count=0\\n")
        if connector is not None:
            target = self.relative(f"{interface}/{folder}",
                                   f"/devices/platform/USBC000:00/typec/port{connector}")
            lines.append(f"L: {folder}/connector={target}")
        if peer:
            lines.append(f"L: {folder}/peer=../../{peer}")
        if location:
            lines += self.location_lines(location, f"{folder}/")

    @staticmethod
    def location_lines(location, prefix=""):
        panel, vertical, horizontal = location
        values = [("panel", panel), ("vertical_position", vertical),
                  ("horizontal_position", horizontal), ("dock", "no"), ("lid", "no")]
        return [f"A: {prefix}physical_location/{key}={value}\\n" for key, value in values]

    def typec(self, number, role, port_type="[dual] source sink", offered=None, location=None,
              mode="default", taken=None):
        path = f"/devices/platform/USBC000:00/typec/port{number}"
        self.paths[f"port{number}"] = path
        attributes = [("power_role", role), ("port_type", port_type),
                      ("data_role", "[host] device"), ("power_operation_mode", mode)]
        if offered:
            attributes += self.offers(offered)
        for position, (millivolts, milliamperes) in enumerate(taken or (), 1):
            folder = f"usb_power_delivery/sink-capabilities/{position}:fixed_supply"
            attributes += [(f"{folder}/voltage", f"{millivolts}mV"),
                           (f"{folder}/operational_current", f"{milliamperes}mA")]
        self.add(path, "typec", [("DEVTYPE", "typec_port")], attributes)
        if location:
            self.blocks[-1][1].extend(self.location_lines(location))

    @staticmethod
    def offers(offered):
        attributes = []
        for position, (millivolts, milliamperes) in enumerate(offered, 1):
            folder = f"usb_power_delivery/source-capabilities/{position}:fixed_supply"
            attributes += [(f"{folder}/voltage", f"{millivolts}mV"),
                           (f"{folder}/maximum_current", f"{milliamperes}mA")]
        return attributes

    # `ranges` are programmable; `pins` are the assignments of the pins to video and USB.
    def partner(self, number, vendor, product, video=False, offered=None, ranges=(), pins=None):
        path = f"{self.paths[f'port{number}']}/port{number}-partner"
        attributes = [("identity/id_header", f"0x{0x6C000000 | vendor:08x}"),
                      ("identity/product", f"0x{product << 16 | 0x0100:08x}")]
        if offered:
            attributes += self.offers(offered)
        for position, (lowest, highest, milliamperes) in enumerate(ranges, len(offered or ()) + 1):
            folder = f"usb_power_delivery/source-capabilities/{position}:programmable_supply"
            attributes += [(f"{folder}/minimum_voltage", f"{lowest}mV"),
                           (f"{folder}/maximum_voltage", f"{highest}mV"),
                           (f"{folder}/maximum_current", f"{milliamperes}mA")]
        if video:
            mode = f"port{number}-partner.0"
            attributes += [(f"{mode}/svid", "ff01"), (f"{mode}/active", "yes")]
            if pins:
                attributes += [(f"{mode}/displayport/pin_assignment", pins),
                               (f"{mode}/displayport/hpd", 1)]
        self.add(path, "typec", [("DEVTYPE", "typec_partner")], attributes)

    # `speed` is the number of the cable's speed in its identity: 0 is USB 2, 3 is 20 Gb/s per lane.
    def cable(self, number, kind, optical=False, speed=None, amperes=None):
        path = f"{self.paths[f'port{number}']}/port{number}-cable"
        identity = []
        if speed is not None:
            header = (4 if kind == "active" else 3) << 27 | 0x2AC1
            product = speed | {3: 1, 5: 2}[amperes] << 5 | 2 << 18
            identity = [("usb_power_delivery_revision", "3.1"),
                        ("identity/id_header", f"0x{header:08x}"),
                        ("identity/product_type_vdo1", f"0x{product:08x}")]
        self.add(path, "typec", [("DEVTYPE", "typec_cable")],
                 [("type", kind), ("plug_type", "type-c"), *identity,
                  ("identity/product_type_vdo2", f"0x{0x400 if optical else 0:08x}")])

    def supply(self, name, kind, parent="/devices/platform/USBC000:00", **attributes):
        self.add(f"{parent}/power_supply/{name}", "power_supply",
                 [("POWER_SUPPLY_NAME", name)], [("type", kind), *attributes.items()])

    def router(self, name, text, maker, uid, generation, speed=None, lanes=None, firmware=None,
               ports=(), connectors=None):
        domain = name.split("-")[0]
        base = f"/devices/pci0000:00/0000:00:0d.2/domain{domain}"
        route = name.split("-")[1]
        parent = f"{domain}-0" if len(route) <= 2 and route != "0" else \
            f"{domain}-{route[-2:].lstrip('0')}" if len(route) > 2 else None
        path = f"{self.paths[parent]}/{name}" if parent else f"{base}/{name}"
        self.paths[name] = path
        attributes = [("device_name", text), ("vendor_name", maker), ("unique_id", uid),
                      ("generation", generation), ("nvm_version", firmware),
                      ("authorized", 1)]
        if speed:
            attributes += [("rx_speed", speed), ("tx_speed", speed), ("rx_lanes", lanes),
                           ("tx_lanes", lanes)]
        links = []
        for port in ports:
            attributes.append((f"usb4_port{port}/link", "none"))
            if connectors:
                links.append((f"usb4_port{port}/connector",
                              self.relative(f"{path}/usb4_port{port}",
                                            self.paths[f"port{connectors[port]}"])))
        self.add(path, "thunderbolt", [("DEVTYPE", "thunderbolt_device")], attributes, links)

    def disk(self, usb_device, name, number, label=None, partitions=()):
        host = f"{self.paths[usb_device]}/{usb_device}:1.0/host4/target4:0:0/4:0:0:0/block/{name}"
        self._block(host, name, number, "disk", label)
        for partition, partition_number, partition_label, holder in partitions:
            self._block(f"{host}/{partition}", partition, partition_number, "partition",
                        partition_label, holder)

    # A drive that a Thunderbolt device connects by PCI, with one partition.
    def nvme(self, function, name, model, serial, number, label):
        path = f"{self.pci(function, '0x010802', 'nvme', removable=True)}/nvme/{name}"
        self.add(path, "nvme", [], [("model", model), ("serial", serial)])
        major, minor = number.split(":")
        self._block(f"{path}/{name}n1", f"{name}n1", number, "disk", None)
        self._block(f"{path}/{name}n1/{name}n1p1", f"{name}n1p1", f"{major}:{int(minor) + 1}",
                    "partition", label)

    def mapped(self, name, number, mapped_name, label=None, holders=()):
        self._block(f"/devices/virtual/block/{name}", name, number, "disk", label, *holders,
                    mapped=mapped_name)

    def _block(self, path, name, number, kind, label, *holders, mapped=None):
        major, minor = number.split(":")
        properties = [("DEVTYPE", kind), ("DEVNAME", f"/dev/{name}"), ("MAJOR", major),
                      ("MINOR", minor)]
        if label:
            properties.append(("ID_FS_LABEL_ENC", label.replace(" ", "\\x20")))
        attributes = [("dev", number)] + ([("dm/name", mapped)] if mapped else [])
        links = [(f"holders/{holder}", self.relative(f"{path}/holders",
                                                     f"/devices/virtual/block/{holder}"))
                 for holder in holders if holder]
        self.add(path, "block", properties, attributes, links)

    def mount(self, number, point, source, root="/", kind="ext4"):
        self.mounts.append(f"{40 + len(self.mounts)} 24 {number} {root} {point} rw,relatime "
                           f"shared:1 - {kind} {source} rw")

    def write(self, folder):
        text = "\n\n".join("\n".join(lines) for _, lines in self.blocks) + "\n"
        (folder / f"{self.name}.umockdev").write_text(text, encoding="utf-8")
        mounts = ["22 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw",
                  "23 22 0:21 / /proc rw - proc proc rw", *self.mounts]
        (folder / f"{self.name}.mounts").write_text("\n".join(mounts) + "\n", encoding="utf-8")


# The dock has its own USB controller, which is reached through PCI Express; the monitor has a hub on the
# controller of the laptop's ports. The laptop's own camera and radio are on a third controller, which is
# built in and therefore shown alone (docs/linux.md).
def docked_laptop():
    machine = Machine("docked-laptop")
    machine.typec(0, "source [sink]", offered=[(5000, 3000)], mode="usb_power_delivery",
                  taken=[(5000, 3000), (20000, 5000)])
    machine.partner(0, 0x2AC1, 0x0D0C,
                    offered=[(5000, 3000), (9000, 3000), (15000, 3000), (20000, 4800)])
    machine.cable(0, "active", speed=3, amperes=5)
    machine.typec(1, "[source] sink", offered=[(5000, 3000)], taken=[(5000, 3000), (20000, 5000)])
    machine.partner(1, 0x2B07, 0x0042, video=True, pins="C [D] E")
    machine.cable(1, "active", optical=True)
    machine.typec(2, "[source] sink", offered=[(5000, 1500)])
    machine.router("0-0", "Ridgeline 14", "Alder & Moss", "d4010000-0082-8c1e-a200", 4,
                   firmware="41.0", ports=(1, 3), connectors={1: 0, 3: 1})
    machine.router("0-1", "Harbor 9 USB4 Dock", "Pier Seven", "3a780000-0072-641e-8230", 4,
                   "20.0 Gb/s", 2, "5.12")
    machine.router("0-301", "Quarry Slate NVMe", "Quarry", "81350000-0040-7d18-2200", 3,
                   "20.0 Gb/s", 2, "24.1")
    machine.root_hub(1, "0000:00:0d.0", 480, 3, {1: 0, 2: 1, 3: 2}, peer_bus=2)
    machine.root_hub(2, "0000:00:0d.0", 10000, 3, {1: 0, 2: 1, 3: 2}, peer_bus=1)
    in_dock = "0000:00:07.0/0000:20:00.0/0000:21:02.0/0000:2c:00.0"
    machine.root_hub(3, in_dock, 480, 2, peer_bus=4, removable=True)
    machine.root_hub(4, in_dock, 10000, 2, peer_bus=3, removable=True)
    machine.root_hub(5, "0000:00:14.0", 480, 4)
    machine.device("5-2", 0x30C9, 0x0093, "Built-in Camera", "Lumen", 480, 500, VIDEO)
    machine.device("5-4", 0x8087, 0x0033, "Bluetooth Radio", "Alder & Moss", 12, 100)
    machine.nvme("0000:00:07.0/0000:20:00.0/0000:21:04.0/0000:2d:00.0/0000:2e:01.0/0000:2f:00.0",
                 "nvme1", "Slate 2TB", "QS-0077", "259:4", "Footage")
    machine.mount("259:5", "/media/ana/Footage", "/dev/nvme1n1p1")
    machine.device("1-2", 0x2B07, 0x2070, "Monitor Hub", "Lumen", 480, 100, HUB, ports=4)
    machine.device("1-2.3", 0x30C9, 0x00A1, "Monitor Camera", "Lumen", 480, 500, VIDEO)
    machine.device("3-1", 0x2AC1, 0x2513, "USB2 Hub", "Pier Seven", 480, 0, HUB, ports=4,
                   peer="4-1")
    machine.device("3-1.1", 0x2AC1, 0x3300, "Dock Audio", "Pier Seven", 12, 100, AUDIO)
    machine.device("3-1.4", 0x046D, 0xC52B, None, None, 12, 98, HID)
    machine.device("4-1", 0x2AC1, 0x2514, "USB3 Hub", "Pier Seven", 10000, 0, HUB, ports=4,
                   peer="3-1")
    machine.device("4-1.2", 0x2AC1, 0x8156, "2.5G Ethernet", "Pier Seven", 5000, 256, VENDOR,
                   serial="00E04C680001")
    machine.device("4-1.3", 0x2D01, 0x0577, "Basalt Portable", "Quarry", 10000, 896, STORAGE,
                   serial="QB20417", gigabits=(5, 10))
    machine.disk("4-1.3", "sda", "8:0", partitions=[("sda1", "8:1", "Field Notes", None)])
    machine.mount("8:1", "/media/ana/Field\\040Notes", "/dev/sda1", kind="exfat")
    machine.supply("BAT0", "Battery", "/devices/LNXSYSTM:00/PNP0C0A:00", status="Charging",
                   capacity=71, cycle_count=212, energy_full=48200000,
                   energy_full_design=57000000, power_now=31200000, voltage_now=15400000,
                   charge_control_start_threshold=0, charge_control_end_threshold=100)
    machine.supply("AC", "Mains", "/devices/LNXSYSTM:00/ACPI0003:00", online=1)
    machine.supply("ucsi-source-psy-USBC000:001", "USB", online=1, usb_type="C [PD] PD_PPS",
                   voltage_now=20000000, voltage_max=20000000, current_now=3250000,
                   current_max=4800000)
    return machine


def silent_laptop():
    machine = Machine("silent-laptop")
    machine.typec(0, "[source] sink")
    machine.partner(0, 0x0781, 0x5583)
    machine.typec(1, "source [sink]")
    machine.partner(1, 0x05AC, 0x1A31)
    machine.root_hub(1, "0000:00:14.0", 480, 6)
    machine.root_hub(2, "0000:00:14.0", 5000, 4)
    machine.device("1-5", 0x0BDA, 0x5634, "Webcam", "Sable Optics", 480, 500, VIDEO, authorized=0)
    machine.device("2-2", 0x0781, 0x5583, "Cinder Stick", "Sable", 5000, 224, STORAGE,
                   serial="4C530001")
    machine.disk("2-2", "sda", "8:0", label="Holiday")
    machine.mount("8:0", "/run/media/jo/Holiday", "/dev/sda", kind="vfat")
    machine.supply("BAT1", "Battery", "/devices/LNXSYSTM:00/PNP0C0A:01", status="Full",
                   capacity=100, cycle_count=34, charge_full=4200000,
                   charge_full_design=4400000)
    machine.supply("ADP1", "Mains", "/devices/LNXSYSTM:00/ACPI0003:00", online=1)
    machine.supply("hidpp_battery_0", "Battery", "/devices/virtual", scope="Device",
                   status="Discharging", capacity=40)
    return machine


def two_controllers():
    machine = Machine("two-controllers")
    machine.root_hub(1, "0000:00:14.0", 480, 10, peer_bus=2)
    machine.root_hub(2, "0000:00:14.0", 10000, 6, peer_bus=1)
    machine.root_hub(3, "0000:03:00.0", 480, 2, peer_bus=4)
    machine.root_hub(4, "0000:03:00.0", 20000, 2, peer_bus=3)
    machine.device("1-3", 0x04D9, 0x0169, "Clatter 87 Keyboard", "Marrow Keys", 1.5, 100, HID)
    machine.device("1-4", 0x093A, 0x2510, "Optical Mouse", "", 1.5, 100, HID)
    machine.device("1-9", 0x1234, 0xABCD, None, None, 480, 500)
    machine.device("4-1", 0x152D, 0x0583, "Granite Dual SSD", "Quarry", 20000, 896, STORAGE,
                   serial="GD-77")
    machine.disk("4-1", "sdb", "8:16", partitions=[("sdb1", "8:17", None, None)])
    machine.mount("0:51", "/srv/backup", "/dev/sdb1", root="/@backup", kind="btrfs")
    return machine


def hubs_in_hubs():
    machine = Machine("hubs-in-hubs")
    machine.root_hub(1, "0000:00:14.0", 480, 4, peer_bus=2)
    machine.root_hub(2, "0000:00:14.0", 5000, 4, peer_bus=1)
    container = "5b1dbf47e7fc4b5c9c8e5a6d1f2e3d4c"
    for speed, bus, other in ((480, 1, 2), (5000, 2, 1)):
        product = 0x0610 if speed == 480 else 0x0620
        machine.device(f"{bus}-1", 0x05E3, product, "4-Port Hub", "Tern", speed, 100, HUB,
                       ports=4, peer=f"{other}-1")
        machine.device(f"{bus}-1.4", 0x05E3, product, "4-Port Hub", "Tern", speed, 100, HUB,
                       ports=4, peer=f"{other}-1.4")
        machine.device(f"{bus}-1.4.4", 0x2109, 0x2817 if speed == 480 else 0x0817,
                       None, None, speed, 0, HUB, ports=4, container=container)
    machine.device("1-1.4.4.1", 0x046D, 0xC077, "Mouse", "Fen", 1.5, 100, HID)
    machine.device("1-2", 0x1A40, 0x0101, "USB 2.0 Hub", "", 480, 100, HUB, ports=4)
    machine.device("1-2.1", 0x0D8C, 0x0014, "Headset", "Fen", 12, 100, AUDIO)
    machine.device("2-1.4.4.2", 0x174C, 0x55AA, "Slate Disk", "Quarry", 5000, 224, STORAGE,
                   serial="SD1")
    # A USB 3 disk that its hub holds back:
    machine.device("1-2.2", 0x174C, 0x55AB, "Slate Disk 2", "Quarry", 480, 500, STORAGE,
                   serial="SD2", gigabits=(5, 10))
    return machine


def encrypted_volumes():
    machine = Machine("encrypted-volumes")
    machine.root_hub(1, "0000:00:14.0", 480, 4, peer_bus=2)
    machine.root_hub(2, "0000:00:14.0", 10000, 4, peer_bus=1)
    machine.device("2-1", 0x04E8, 0x61F5, "Obsidian SSD", "Quarry", 10000, 896, STORAGE,
                   serial="OB-1")
    machine.disk("2-1", "sda", "8:0", partitions=[
        ("sda1", "8:1", "Tools", None), ("sda2", "8:2", None, "dm-0")])
    machine.mapped("dm-0", "253:0", "luks-5f1c", holders=("dm-1", "dm-2"))
    machine.mapped("dm-1", "253:1", "vault-photos", label="Küste Sommer")
    machine.mapped("dm-2", "253:2", "vault-plans")
    machine.mount("8:1", "/media/ana/Tools", "/dev/sda1", kind="vfat")
    machine.mount("253:1", "/media/ana/Küste\\040Sommer", "/dev/mapper/vault-photos")
    machine.mount("0:61", "/media/ana/plans", "/dev/mapper/vault-plans", kind="btrfs")
    machine.mount("253:2", "/media/ana/plans/shared", "/dev/mapper/vault-plans", root="/shared")
    return machine


def charging_phone():
    machine = Machine("charging-phone")
    left, right = ("left", "center", "left"), ("right", "center", "left")
    machine.typec(0, "[source] sink", offered=[(5000, 3000), (9000, 2000)], location=left,
                  mode="usb_power_delivery", taken=[(5000, 3000), (20000, 5000)])
    machine.partner(0, 0x18D1, 0x4EE1)
    machine.typec(1, "source [sink]", offered=[(5000, 3000)], location=right,
                  mode="usb_power_delivery", taken=[(5000, 3000), (20000, 5000)])
    machine.partner(1, 0x0451, 0x7A10, offered=[(5000, 3000), (20000, 3250)],
                    ranges=[(3300, 21000, 3000)])
    machine.cable(1, "passive", speed=0, amperes=3)
    machine.root_hub(1, "0000:00:14.0", 480, 3, peer_bus=2, location={1: left, 2: right})
    machine.root_hub(2, "0000:00:14.0", 10000, 2, peer_bus=1, location={1: left, 2: right})
    machine.supply("BAT0", "Battery", "/devices/LNXSYSTM:00/PNP0C0A:00", status="Charging",
                   capacity=12, health="Good", current_now=2900000, voltage_now=15200000,
                   charge_behaviour="[auto] inhibit-charge")
    machine.supply("ucsi-source-psy-USBC000:001", "USB", online=0, voltage_now=9000000,
                   current_now=1670000, current_max=2000000)
    machine.supply("ucsi-source-psy-USBC000:002", "USB", online=1, voltage_now=20000000,
                   voltage_max=20000000, current_now=3000000, current_max=3250000)
    return machine


if __name__ == "__main__":
    for make in (docked_laptop, silent_laptop, two_controllers, hubs_in_hubs, encrypted_volumes,
                 charging_phone):
        make().write(pathlib.Path(__file__).parent)
