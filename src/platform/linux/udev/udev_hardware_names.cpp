#include "platform/linux/udev/udev_hardware_names.h"

#include "platform/linux/udev/udev_reference.h"

#include <algorithm>
#include <memory>

namespace tamberline {
namespace {

class Database {
public:
  HardwareNames names(std::string_view vendorId, std::string_view productId) {
    open();
    HardwareNames names;
    if (hwdb_ == nullptr) {
      return names;
    }
    const std::string key = "usb:v" + upperCased(vendorId) + "p" + upperCased(productId);
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry,
                            udev_hwdb_get_properties_list_entry(hwdb_.get(), key.c_str(), 0)) {
      const std::string_view name = udev_list_entry_get_name(entry);
      const char* value = udev_list_entry_get_value(entry);
      if (value != nullptr && name == "ID_VENDOR_FROM_DATABASE") {
        names.vendor = value;
      } else if (value != nullptr && name == "ID_MODEL_FROM_DATABASE") {
        names.model = value;
      }
    }
    return names;
  }

private:
  static std::string upperCased(std::string_view hexadecimal) {
    std::string upper(hexadecimal);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char digit) {
      return digit >= 'a' && digit <= 'f' ? static_cast<char>(digit - 'a' + 'A') : digit;
    });
    return upper;
  }

  void open() {
    if (!wasOpened_) {
      wasOpened_ = true;
      udev_.reset(udev_new());
      hwdb_.reset(udev_ ? udev_hwdb_new(udev_.get()) : nullptr);
    }
  }

  bool wasOpened_ = false;
  UdevReference<udev> udev_;
  UdevReference<udev_hwdb> hwdb_;
};

} // namespace

HardwareDatabase udevHardwareNames() {
  return [database = std::make_shared<Database>()](std::string_view vendorId,
                                                   std::string_view productId) {
    return database->names(vendorId, productId);
  };
}

} // namespace tamberline
