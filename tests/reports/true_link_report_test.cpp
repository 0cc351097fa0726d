#include "base/text.h"
#include "reports/true_link_report.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace tamberline {
namespace {

using nlohmann::json;

std::string textOf(const std::optional<double>& gbps, const std::optional<std::int64_t>& lanes) {
  return (gbps ? generalText(*gbps) : "?") + " on " + (lanes ? std::to_string(*lanes) : "?");
}

/// The speed to the device, then from it: "40 on 2, 40 on 2".
std::string textOf(const std::optional<TrueLink>& link) {
  return link ? textOf(link->transmitGbps, link->transmitLanes) + ", " +
                    textOf(link->receiveGbps, link->receiveLanes)
              : "none";
}

json receptacle(const char* speed, const char* width) {
  return {{"current_speed_key", speed}, {"current_link_width_key", width}};
}

TEST(TrueLinkReport, UnderstandsAllNotationsOfMacs) {
  const struct {
    const char* speed;
    const char* width;
    const char* link;
  } rows[] = {
      {"Up to 40 Gb/s x1", "0x2", "40 on 2, 40 on 2"},
      {"Up to 40 Gb/s", "0x2", "40 on 2, 40 on 2"},
      {"Up to 40 Gb/s", "", "40 on ?, 40 on ?"},
      {"40 Gb/s", "", "40 on ?, 40 on ?"},
      {"40 Gb/s", "0x2", "40 on 2, 40 on 2"},
      {"Up to 20 Gb/s x1", "0x2", "20 on 2, 20 on 2"},
      {"Up to 20 Gb/s x1", "0x1", "20 on 1, 20 on 1"},
      {"20 Gb/s", "0x2", "40 on 2, 40 on 2"},
      {"10 Gb/s", "0x2", "20 on 2, 20 on 2"},
      {"20 Gb/s", "0x1", "20 on 1, 20 on 1"},
      {"20 Gb/s", "", "20 on ?, 20 on ?"},
      {"Up to 10 Gb/s x2", "", "20 on 2, 20 on 2"},
      {"Up to 10 Gb/s x2", "0x1", "20 on 1, 20 on 1"},
      {"80 Gb/s", "", "80 on ?, 80 on ?"},
      {"Up to 80 Gb/s", "0x2", "80 on 2, 80 on 2"},
      {"120 Gb/s", "", "120 on 3, 40 on 1"},
      {"Up to 120 Gb/s", "0x2", "120 on 3, 40 on 1"},
      {"10.3 Gb/s", "0x4", "10.3 on ?, 10.3 on ?"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.speed) + " over " + row.width);
    EXPECT_EQ(textOf(parseTrueLink(receptacle(row.speed, row.width))), row.link);
  }
}

TEST(TrueLinkReport, FindsNoneWithoutASpeed) {
  for (const char* speed :
       {"", "40", "Gb/s", "40 Mb/s", "Gb/s 40", "-40 Gb/s", "0 Gb/s", "1001 Gb/s", "4e1 Gb/s",
        "nan Gb/s", "40Gb/s", "99999999999999999999 Gb/s"}) {
    SCOPED_TRACE(speed);
    EXPECT_EQ(textOf(parseTrueLink(receptacle(speed, "0x2"))), "none");
  }
  EXPECT_EQ(textOf(parseTrueLink(json{{"current_speed_key", 40}})), "none");
  EXPECT_EQ(textOf(parseTrueLink(json::object())), "none");
}

TEST(TrueLinkReport, RejectsInvalidNumbersOfLinks) {
  for (const char* speed : {"Up to 40 Gb/s x", "Up to 40 Gb/s x0", "Up to 40 Gb/s x99999999999",
                            "Up to 40 Gb/s x-2", "Up to 40 Gb/s 2"}) {
    SCOPED_TRACE(speed);
    EXPECT_EQ(textOf(parseTrueLink(receptacle(speed, ""))), "40 on ?, 40 on ?");
  }
}

json ownKeys(const char* transmitGbps, const char* receiveGbps, const char* transmitLanes,
             const char* receiveLanes) {
  return {{"tamberline_link_transmit_gbps", transmitGbps},
          {"tamberline_link_receive_gbps", receiveGbps},
          {"tamberline_link_transmit_lanes", transmitLanes},
          {"tamberline_link_receive_lanes", receiveLanes},
          {"current_speed_key", "20 Gb/s"},
          {"current_link_width_key", "0x2"}};
}

TEST(TrueLinkReport, PrefersTheDedicatedKeys) {
  EXPECT_EQ(textOf(parseTrueLink(ownKeys("120", "40.0", "3", "1"))), "120 on 3, 40 on 1");
  EXPECT_EQ(textOf(parseTrueLink(ownKeys("80", "", "2", ""))), "80 on 2, ? on ?");
  EXPECT_EQ(textOf(parseTrueLink(ownKeys("80", "80", "2 lanes", "17"))), "80 on ?, 80 on ?");
  EXPECT_EQ(textOf(parseTrueLink(ownKeys("", "x", "2", "2"))), "40 on 2, 40 on 2")
      << "without a speed the others hold";
}

TEST(TrueLinkReport, AlsoReadsTheKeysOfTheDeviceItself) {
  const json upstream = receptacle("20 Gb/s", "0x1");
  EXPECT_EQ(textOf(parseTrueLink(upstream, json::object())), "20 on 1, 20 on 1");
  EXPECT_EQ(textOf(parseTrueLink(upstream, ownKeys("80", "80", "2", "2"))), "80 on 2, 80 on 2");
  EXPECT_EQ(textOf(parseTrueLink(json::object(), receptacle("20 Gb/s", "0x1"))), "none");
}

} // namespace
} // namespace tamberline
