// Shorthands that make records for tests.
#pragma once

#include "model/power_records.h"
#include "model/thunderbolt_records.h"
#include "model/usb_records.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

ThunderboltBus thunderboltBus(std::int64_t busNumber, std::vector<ThunderboltDevice> devices = {});
ThunderboltDevice thunderboltDevice(const std::string& name,
                                    std::vector<ThunderboltDevice> children = {});

/// A bus of the computer's own USB-C controller.
USBBus internalBus(std::vector<USBDevice> devices);
USBBus addOnBus(const std::string& rawName, std::vector<USBDevice> devices);

USBDevice usbDevice(const std::string& name, std::vector<USBDevice> children = {});
USBDevice usbDeviceOnPort(std::int64_t physicalPort, const std::string& name);

HPMPort chargerPort(std::int64_t portNumber);
HPMPort magSafePort(std::int64_t portNumber);
HPMPort chargeOnlyPort(std::int64_t portNumber);

} // namespace tamberline
