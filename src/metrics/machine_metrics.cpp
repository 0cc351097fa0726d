#include "metrics/machine_metrics.h"

#include "base/saturating.h"
#include "base/text.h"
#include "inventory/inventory.h"
#include "reports/json_values.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;
using Kind = InventoryItem::Kind;
using Labels = std::vector<std::pair<std::string, std::string>>;

/// Prometheus counts in bytes.
constexpr double bytesPerGigabit = 1e9 / 8;
constexpr double wattsPerMilliampere = 0.005; // at USB's fixed 5 V

std::string portLabel(const InventoryItem& item) {
  return item.portNumber ? std::to_string(*item.portNumber) : "none";
}

/// The sum over everything on each port.
struct PortSum {
  std::int64_t deviceCount = 0;
  std::int64_t ratedMa = 0;
};

class Collection {
public:
  explicit Collection(const Inventory& inventory) {
    for (const InventoryItem& item : inventory) {
      PortSum& sum = sums_[portLabel(item)];
      sum.deviceCount += item.isDevice() || item.kind == Kind::chargingOnly ? 1 : 0;
      sum.ratedMa = saturatingSum(sum.ratedMa, item.ratedMa.value_or(0));
    }
    for (const InventoryItem& item : inventory) {
      take(item);
    }
    takeDevicesWithoutPort();
    linksOmitted_.samples.push_back({{}, static_cast<double>(omittedCount_)});
    adapterConnected_.samples.push_back({{}, hasAdapter_ ? 1.0 : 0.0});
  }

  std::vector<MetricFamily> families() {
    return {connected_,        devices_,      portRated_,       portMeasured_,
            portAgreed_,       speed_,        greatestSpeed_,   linksOmitted_,
            adapterConnected_, adapterRated_, adapterDelivered_};
  }

private:
  void take(const InventoryItem& item) {
    if (item.kind == Kind::port) {
      takePort(item);
    } else if (item.kind == Kind::adapter) {
      takeAdapter(item);
    } else if (item.isDevice() && item.speedGbps) {
      takeLink(item);
    }
  }

  template <typename Number>
  static void add(MetricFamily& family, const Labels& labels, const std::optional<Number>& value,
                  double factor = 1) {
    if (value) {
      family.samples.push_back({labels, static_cast<double>(*value) * factor});
    }
  }

  /// Two samples with the same labels would make the whole text invalid.
  void takeAdapter(const InventoryItem& adapter) {
    if (!std::exchange(hasAdapter_, true)) {
      add(adapterRated_, {}, adapter.ratedWatts);
      add(adapterDelivered_, {}, adapter.deliveredWatts);
    }
  }

  /// Of several ports with one number, the first has the samples.
  void takePort(const InventoryItem& port) {
    const bool isFull = connected_.samples.size() == maxMeasuredPorts;
    if (isFull || !port.portNumber || !takenPorts_.insert(*port.portNumber).second) {
      return;
    }
    const Labels labels = {{"port", portLabel(port)}};
    connected_.samples.push_back({labels, port.isConnected ? 1.0 : 0.0});
    const PortSum& sum = sums_[portLabel(port)];
    add(devices_, labels, std::optional(sum.deviceCount));
    add(portRated_, labels, std::optional(sum.ratedMa), wattsPerMilliampere);
    add(portMeasured_, labels, port.measuredWatts);
    add(portAgreed_, labels, port.agreedWatts);
  }

  void takeDevicesWithoutPort() {
    const auto sum = sums_.find("none");
    if (sum != sums_.end() && sum->second.deviceCount > 0) {
      add(devices_, {{"port", "none"}}, std::optional(sum->second.deviceCount));
      add(portRated_, {{"port", "none"}}, std::optional(sum->second.ratedMa), wattsPerMilliampere);
    }
  }

  /// Devices of the same model on the same port are numbered, and so are those whose names are the
  /// same as they are written.
  void takeLink(const InventoryItem& item) {
    if (speed_.samples.size() == maxMeasuredLinks) {
      ++omittedCount_;
      return;
    }
    Labels labels = {{"port", portLabel(item)},
                     {"device", labelValue(item.name)},
                     {"vendor", labelValue(item.vendorID)},
                     {"product", labelValue(item.productID)}};
    labels.emplace_back("index", std::to_string(countOfModel_[labels]++));
    add(speed_, labels, item.speedGbps, bytesPerGigabit);
    if (item.maxGbps) {
      add(greatestSpeed_, labels, std::optional(std::max(*item.maxGbps, *item.speedGbps)),
          bytesPerGigabit);
    }
  }

  std::map<std::string, PortSum> sums_; // by the port's label
  std::set<std::int64_t> takenPorts_;
  std::map<Labels, std::size_t> countOfModel_;
  std::size_t omittedCount_ = 0;
  bool hasAdapter_ = false;

  MetricFamily connected_{"tamberline_port_connected", "",
                          "Whether something is connected to the port."};
  MetricFamily devices_{"tamberline_port_devices", "",
                        "Devices on the port; none stands for everything on no numbered port."};
  MetricFamily portRated_{"tamberline_port_rated_power_watts", "watts",
                          "What the USB devices on the port declare to draw, together."};
  MetricFamily portMeasured_{"tamberline_port_measured_power_watts", "watts",
                             "What the port delivers, as measured."};
  MetricFamily portAgreed_{"tamberline_port_agreed_power_watts", "watts",
                           "The power that both ends of the connection agreed on."};
  MetricFamily speed_{"tamberline_link_speed_bytes_per_second", "bytes_per_second",
                      "The negotiated speed of a device's link; of two directions, the slower."};
  MetricFamily greatestSpeed_{"tamberline_link_greatest_speed_bytes_per_second", "bytes_per_second",
                              "The greatest speed that the port allows the device."};
  MetricFamily linksOmitted_{"tamberline_links_omitted", "",
                             "Links without samples, because there are too many."};
  MetricFamily adapterConnected_{"tamberline_adapter_connected", "",
                                 "Whether a power adapter is connected."};
  MetricFamily adapterRated_{"tamberline_adapter_rated_power_watts", "watts",
                             "The rating of the power adapter."};
  MetricFamily adapterDelivered_{"tamberline_adapter_delivered_power_watts", "watts",
                                 "What the power adapter says it delivers."};
};

MetricFamily answerFamily(const json& document) {
  std::map<std::pair<std::string, std::string>, std::int64_t> counts;
  for (const json& answer : objectsMember(document, "answers")) {
    const std::pair key(labelValue(textMember(answer, "kind", "")),
                        labelValue(textMember(answer, "weight", "")));
    if (counts.contains(key) || counts.size() < maxAnswerKinds) {
      ++counts[key];
    }
  }
  MetricFamily family{"tamberline_answers", "",
                      "Answers to why something is slow, does not work or does not charge."};
  for (const auto& [key, count] : counts) {
    family.samples.push_back(
        {{{"kind", key.first}, {"weight", key.second}}, static_cast<double>(count)});
  }
  return family;
}

} // namespace

std::vector<MetricFamily> machineMetrics(const json& document) {
  std::vector<MetricFamily> families = Collection(inventoryOf(document)).families();
  families.push_back(answerFamily(document));
  return families;
}

} // namespace tamberline
