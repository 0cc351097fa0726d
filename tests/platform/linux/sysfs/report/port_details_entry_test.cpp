#include "platform/linux/sysfs/report/property_list_text.h"
#include "platform/linux/sysfs/report/registry_dumps.h"
#include "registry/probe_results.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

namespace tamberline::sysfs {
namespace {

/// As a scan reads them.
PortDetails detailsOf(const Machine& machine) {
  const auto list = PropertyList::decode(asPropertyList(portControllerDump(machine)));
  return portControllersIn(list.value()).at(0).details;
}

PortDetails detailsOf(const TypecPort& port) {
  Machine machine;
  machine.typecPorts = {{0, port}};
  return detailsOf(machine);
}

PowerOffer fixedOffer(std::int64_t millivolts, std::int64_t milliamperes) {
  return {.minMillivolts = millivolts, .maxMillivolts = millivolts, .milliamperes = milliamperes};
}

PowerOffer range(std::int64_t minMillivolts, std::int64_t maxMillivolts) {
  return {.kind = PowerOfferKind::programmable,
          .minMillivolts = minMillivolts,
          .maxMillivolts = maxMillivolts,
          .milliamperes = 3000};
}

TEST(PortDetailsEntry, ContainsOffersAndIntake) {
  const TypecPort port{.intake = {{.kind = PowerOfferKind::battery,
                                   .minMillivolts = 5000,
                                   .maxMillivolts = 20'000,
                                   .milliwatts = 60'000}},
                       .powerMode = "3.0A",
                       .partner = TypecPartner{.offers = {fixedOffer(5000, 3000),
                                                          {.kind = PowerOfferKind::variable,
                                                           .minMillivolts = 8000,
                                                           .maxMillivolts = 16'000,
                                                           .milliamperes = 2000},
                                                          range(3300, 21'000)}}};
  const PortDetails details = detailsOf(port);
  EXPECT_EQ(details.intake,
            (std::vector<tamberline::PowerOffer>{{.kind = tamberline::PowerOfferKind::battery,
                                                  .minVolts = 5,
                                                  .maxVolts = 20,
                                                  .givenWatts = 60}}));
  EXPECT_EQ(
      details.offers,
      (std::vector<tamberline::PowerOffer>{
          {.minVolts = 5, .maxVolts = 5, .amps = 3},
          {.kind = tamberline::PowerOfferKind::variable, .minVolts = 8, .maxVolts = 16, .amps = 2},
          {.kind = tamberline::PowerOfferKind::programmable,
           .minVolts = 3.3,
           .maxVolts = 21,
           .amps = 3}}));
  EXPECT_EQ(details.powerMode, PowerMode::threeAmps);
}

/// The position of the offer that is agreed on; -1 without one.
int agreedPosition(const std::vector<PowerOffer>& offers, std::int64_t millivolts,
                   std::int64_t milliamperes, PowerRole role = PowerRole::sink) {
  Machine machine;
  machine.typecPorts = {{0,
                         {.role = role,
                          .partner = TypecPartner{.offers = offers},
                          .controller = "devices/platform/USBC000:00"}}};
  machine.powerSupplies = {{.name = "ucsi-source-psy-USBC000:001",
                            .type = "USB",
                            .isOnline = role == PowerRole::sink,
                            .voltageNow = millivolts * 1000,
                            .currentNow = milliamperes * 1000,
                            .controller = "devices/platform/USBC000:00"}};
  const auto read = detailsOf(machine).offers;
  int position = -1;
  for (std::size_t index = 0; index < read.size(); ++index) {
    if (read[index].isAgreed) {
      EXPECT_EQ(position, -1) << "only one offer is agreed on";
      position = static_cast<int>(index);
    }
  }
  return position;
}

TEST(PortDetailsEntry, MarksTheOfferThatTheContractIsAbout) {
  const std::vector<PowerOffer> offers = {fixedOffer(5000, 3000), fixedOffer(9000, 3000),
                                          fixedOffer(20'000, 3250), range(3300, 11'000),
                                          range(3300, 21'000)};
  EXPECT_EQ(agreedPosition(offers, 20'000, 3250), 2);
  EXPECT_EQ(agreedPosition(offers, 20'000, 1500), 2);
  EXPECT_EQ(agreedPosition(offers, 9030, 3020), 1);
  EXPECT_EQ(agreedPosition(offers, 18'500, 3000), 4);
  EXPECT_EQ(agreedPosition(offers, 10'000, 3000), -1) << "two ranges contain it";
  EXPECT_EQ(agreedPosition(offers, 20'000, 5000), -1) << "more than was offered";
  EXPECT_EQ(agreedPosition(offers, 28'000, 3000), -1);
  EXPECT_EQ(agreedPosition({fixedOffer(5000, 3000), fixedOffer(5000, 3000)}, 5000, 3000), -1);
  EXPECT_EQ(agreedPosition(offers, 20'000, 3250, PowerRole::source), -1)
      << "a contract about what the computer offers";
  EXPECT_EQ(agreedPosition({}, 20'000, 3250), -1);
}

TEST(PortDetailsEntry, ContainsTheCable) {
  const auto cableOf = [](const TypecCable& cable) {
    return detailsOf(TypecPort{.cable = cable}).cable;
  };
  EXPECT_EQ(
      cableOf(
          {.isPassive = true,
           .plug = "type-c",
           .identity = {.maxMilliamperes = 3000, .maxMillivolts = 20'000, .megabitsOfLane = 480}}),
      (CableRatings{.kind = CableKind::passive,
                    .plug = CablePlug::typeC,
                    .maxAmps = 3,
                    .maxVolts = 20,
                    .gbpsOfLane = 0.48}));
  EXPECT_EQ(cableOf({.isActive = true}), CableRatings{.kind = CableKind::active});
  EXPECT_EQ(cableOf({.isActive = true, .isOptical = true}),
            CableRatings{.kind = CableKind::optical});
  EXPECT_EQ(cableOf({.plug = "unknown"}), std::nullopt);
}

TEST(PortDetailsEntry, ContainsVideoOnlyWhileItIsShown) {
  const TypecPort showing{
      .partner =
          TypecPartner{.video = PartnerVideo::active, .videoLanes = 2, .isScreenPresent = true}};
  EXPECT_EQ(detailsOf(showing).video, (VideoUse{.lanes = 2, .isScreenPresent = true}));
  EXPECT_EQ(detailsOf(TypecPort{.partner = TypecPartner{.video = PartnerVideo::active}}).video,
            VideoUse{});
  EXPECT_EQ(
      detailsOf(TypecPort{.partner = TypecPartner{.video = PartnerVideo::offered, .videoLanes = 2}})
          .video,
      std::nullopt);
}

PortDetails detailsWith(const UsbPort& usbPort, bool hasDevice) {
  Machine machine;
  machine.typecPorts = {{0, {}}};
  machine.usb.ports = {{{1, {1}}, usbPort}};
  if (hasDevice) {
    machine.usb.devices = {{{1, {1}}, {.name = "Drive"}}};
  }
  return detailsOf(machine);
}

TEST(PortDetailsEntry, TellsWhatIsPluggedInAndDoesNotAnswer) {
  for (const char* state :
       {"attached", "powered", "reconnecting", "unauthenticated", "default", "addressed"}) {
    EXPECT_TRUE(detailsWith({.connector = 0, .state = state}, false).isFailing) << state;
    EXPECT_FALSE(detailsWith({.connector = 0, .state = state}, true).isFailing) << state;
    EXPECT_FALSE(detailsWith({.connector = 1, .state = state}, false).isFailing) << state;
  }
  for (const char* state : {"", "not attached", "configured", "suspended"}) {
    EXPECT_FALSE(detailsWith({.connector = 0, .state = state}, false).isFailing) << state;
  }
}

TEST(PortDetailsEntry, TellsHowOftenThePortWasSwitchedOff) {
  EXPECT_EQ(detailsWith({.connector = 0}, false).overCurrentCount, std::nullopt);
  EXPECT_EQ(detailsWith({.connector = 0, .overCurrentCount = 0}, false).overCurrentCount, 0);
  EXPECT_EQ(detailsWith({.connector = 0, .overCurrentCount = 2}, false).overCurrentCount, 2);
  Machine machine;
  machine.typecPorts = {{0, {}}};
  machine.usb.ports = {{{1, {1}}, {.connector = 0, .overCurrentCount = 3}},
                       {{2, {1}}, {.connector = 0, .overCurrentCount = 1}}};
  EXPECT_EQ(detailsOf(machine).overCurrentCount, 3);
}

} // namespace
} // namespace tamberline::sysfs
