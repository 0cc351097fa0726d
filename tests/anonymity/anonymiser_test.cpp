#include "anonymity/anonymiser.h"
#include "registry/property_list.h"
#include "reports/report_decoding.h"
#include "support/hostile_machines.h"
#include "support/property_list_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tamberline {
namespace {

using nlohmann::json;

Answers anonymised(const Answers& answers) {
  return Anonymiser().anonymised(answers).value_or(Answers());
}

json anonymisedReport(const json& report) {
  return json::parse(anonymised({{Question::usb, report.dump()}}).at(Question::usb));
}

std::string anonymisedList(const std::string& content) {
  return anonymised({{Question::usbHostDevices, propertyList(content)}})
      .at(Question::usbHostDevices);
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Anonymiser, ReplacesATextWhereverElseItIs) {
  const json device = anonymisedReport(
      {{"SPUSBDataType",
        {{{"_name", "Stick QP2T-40B81C"}, {"serial_num", "QP2T-40B81C"}}}}})["SPUSBDataType"][0];
  EXPECT_NE(device["serial_num"], "QP2T-40B81C");
  EXPECT_EQ(device["_name"], "Stick " + device["serial_num"].get<std::string>());
}

TEST(Anonymiser, ReplacesTheSameTextByTheSameInEveryAnswer) {
  Answers answers = {
      {Question::usb, R"({"SPUSBDataType": [{"serial_num": "S-1000"}]})"},
      {Question::usbHostDevices,
       propertyList("<dict><key>USB Serial Number</key><string>S-1000</string></dict>")}};
  answers = anonymised(answers);
  const std::string standIn =
      json::parse(answers.at(Question::usb))["SPUSBDataType"][0]["serial_num"];
  EXPECT_TRUE(contains(answers.at(Question::usbHostDevices), ">" + standIn + "<"));
}

TEST(Anonymiser, KeepsItsStandInsForLaterAnswers) {
  Anonymiser anonymiser;
  const std::string first = R"({"SPUSBDataType": [{"serial_num": "S-1000"}]})";
  const std::string second =
      R"({"SPUSBDataType": [{"serial_num": "T-2"}, {"serial_num": "S-1000"}]})";
  const json earlier =
      json::parse(anonymiser.anonymised({{Question::usb, first}})->at(Question::usb));
  const json later =
      json::parse(anonymiser.anonymised({{Question::usb, second}})->at(Question::usb));
  EXPECT_EQ(later["SPUSBDataType"][1], earlier["SPUSBDataType"][0]);
}

/// A section with a device that has this name, and a volume.
Answers machineWith(const std::string& device, const std::string& volume) {
  const json report = {{"SPUSBDataType",
                        {{{"_name", device},
                          {"device_speed", volume},
                          {"Media", {{{"volumes", {{{"_name", volume}}}}}}}}}}};
  return {{Question::usb, report.dump()}};
}

TEST(Anonymiser, KnowsWhetherItHasLearntSomethingAboutEarlierAnswers) {
  Anonymiser anonymiser;
  const auto doesChangeEarlier = [&anonymiser](const Answers& answers) {
    anonymiser.anonymised(answers);
    return anonymiser.doesChangeEarlierAnswers();
  };
  EXPECT_FALSE(doesChangeEarlier(machineWith("Stick S-1000", "Fieldwork")));
  EXPECT_FALSE(doesChangeEarlier(machineWith("Fieldwork", "Sommer"))) << "only in the last ones";
  EXPECT_TRUE(doesChangeEarlier(machineWith("Stick", "S-1000")));
  EXPECT_FALSE(doesChangeEarlier(machineWith("Stick S-1000", "S-1000"))) << "nothing new";
  EXPECT_FALSE(doesChangeEarlier(machineWith("Stick", "super_speed")));
  EXPECT_FALSE(doesChangeEarlier(machineWith("Stick", "SPUSBDataType"))) << "keys are no texts";
  EXPECT_TRUE(doesChangeEarlier(machineWith("Stick", "Volume 1"))) << "the stand-in of Fieldwork";
}

TEST(Anonymiser, ReplacesNamesOfVolumesAndMountPointsButNotOfDevices) {
  const json report = anonymisedReport(
      {{"SPUSBDataType",
        {{{"_name", "Pocket Stick"},
          {"Media",
           {{{"_name", "Medium"},
             {"volumes",
              {{{"_name", "Fieldwork"}, {"mount_point", "/media/ida/Fieldwork"}}}}}}}}}}});
  EXPECT_EQ(report["SPUSBDataType"][0]["_name"], "Pocket Stick");
  EXPECT_EQ(report["SPUSBDataType"][0]["Media"][0]["volumes"][0]["_name"], "Volume 1");
  EXPECT_EQ(report["SPUSBDataType"][0]["Media"][0]["volumes"][0]["mount_point"], "/volumes/1");
}

TEST(Anonymiser, ReplacesHostNames) {
  const std::string report = R"({"SPThunderboltDataType": [{"_name": "bus_0",
      "device_name_key": "Ida's laptop", "_items": [{"_name": "peer idas-desktop"}]}]})";
  const auto answers = Anonymiser({"idas-desktop"}).anonymised({{Question::thunderbolt, report}});
  ASSERT_TRUE(answers);
  EXPECT_FALSE(contains(answers->at(Question::thunderbolt), "Ida"));
  EXPECT_FALSE(contains(answers->at(Question::thunderbolt), "idas-desktop"));
}

TEST(Anonymiser, LeavesTokensEvenIfAVolumeHasTheirName) {
  const json report = anonymisedReport(
      {{"SPUSBDataType",
        {{{"device_speed", "super_speed"}, {"volumes", {{{"_name", "super_speed"}}}}}}}});
  EXPECT_EQ(report["SPUSBDataType"][0]["device_speed"], "super_speed");
  EXPECT_EQ(report["SPUSBDataType"][0]["volumes"][0]["_name"], "Volume 1");
}

TEST(Anonymiser, ReplacesNumbersThatIdentify) {
  EXPECT_EQ(anonymisedReport({{"SPUSBDataType", {{{"uid", 52894}}}}})["SPUSBDataType"][0]["uid"]
                .is_string(),
            true);
  const std::string list =
      anonymisedList("<dict><key>UID</key><integer>52894</integer><key>PortNumber</key>"
                     "<integer>52894</integer></dict>");
  EXPECT_FALSE(contains(list, "<integer>52894</integer>\n\t\t<key>PortNumber"));
  EXPECT_TRUE(contains(list, "<key>PortNumber</key>\n\t\t<integer>52894</integer>"));
}

TEST(Anonymiser, ClearsBinaryDataOfMoreThanFourBytes) {
  const std::string list =
      anonymisedList("<dict><key>port-number</key><data>AQAAAA==</data>"
                     "<key>local-mac-address</key><data>3vABI0Vn</data>"
                     "<key>anything</key><data>\n\tU0VSSUFM\n\tTlVNQkVS\n</data></dict>");
  EXPECT_TRUE(contains(list, "<data>AQAAAA==</data>"));
  EXPECT_TRUE(contains(list, "<data>AAAAAAAA</data>"));
  EXPECT_TRUE(contains(list, "<data>AAAAAAAAAAAAAAAA</data>"));
}

TEST(Anonymiser, KeepsListsWithControlCharactersReadable) {
  const std::string list = anonymisedList("<dict><key>a\x01</key><string>b\x18 &amp;#24;</string>"
                                          "<key>c</key><string>&#10;</string></dict>");
  const auto decoded = PropertyList::decode(list);
  ASSERT_TRUE(decoded) << list;
  EXPECT_EQ(decoded->root().member("a\x01").text(), "b\x18 &#24;");
  EXPECT_EQ(decoded->root().member("c").text(), "\n");
}

TEST(Anonymiser, ReplacesTheNamesOfMediaInTheRegistry) {
  const std::string list =
      anonymisedList("<array><dict><key>IOObjectClass</key><string>AppleAPFSVolume</string>"
                     "<key>IORegistryEntryName</key><string>Fieldwork</string></dict>"
                     "<dict><key>IOObjectClass</key><string>IOUSBHostDevice</string>"
                     "<key>IORegistryEntryName</key><string>Pocket Stick</string></dict></array>");
  EXPECT_FALSE(contains(list, "Fieldwork"));
  EXPECT_TRUE(contains(list, "Pocket Stick"));
}

TEST(Anonymiser, RefusesAReportThatItCannotRead) {
  EXPECT_EQ(Anonymiser().anonymised({{Question::usb, "no JSON: S-1000"}}), std::nullopt);
}

TEST(Anonymiser, LeavesOutADumpThatNoProgramReads) {
  EXPECT_EQ(anonymised({{Question::portPower, "<plist><dict>S-1000"}}), Answers());
}

/// The answers of a scan that were set.
Answers answersOf(FakeMachine& machine) {
  Answers answers;
  for (const Question question : questionsOfAScan) {
    if (std::string answer = machine.answer(question); !answer.empty()) {
      answers[question] = answer;
    }
  }
  return answers;
}

TEST(Anonymiser, SurvivesHostileNames) {
  for (const std::string& name : hostileNames()) {
    FakeMachine machine;
    answerWithEmptyReports(machine);
    answerWithNameEverywhere(machine, name);
    const Answers answers = anonymised(answersOf(machine));
    ASSERT_EQ(answers.size(), answersOf(machine).size());
    for (const auto& [question, answer] : answers) {
      const bool isReport = answer.front() == '{';
      EXPECT_TRUE(isReport ? decodeReport(answer).has_value()
                           : PropertyList::decode(answer).has_value());
    }
  }
}

} // namespace
} // namespace tamberline
