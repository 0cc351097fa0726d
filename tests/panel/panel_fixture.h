#pragma once

#include "panel/model_recorder.h"
#include "panel/panel_controller.h"
#include "scanner/scanner_fixture.h"
#include "tree/search_entries.h"

#include <QAbstractItemModelTester>

#include <chrono>
#include <memory>
#include <string>

namespace tamberline {

/// A panel on a scanner in the test's hands.
class PanelFixture : public ScannerFixture {
protected:
  void SetUp() override {
    ScannerFixture::SetUp();
    panel = std::make_unique<PanelController>(scanner, queue, actions());
    tester = std::make_unique<QAbstractItemModelTester>(
        panel->rows(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    recorder = std::make_unique<ModelRecorder>(*panel->rows());
  }

  virtual PanelActions actions() { return {}; }

  /// Port 1 holds a dock with a bus with a hub with keys on it, port 2 a disk with a volume.
  void answerWithADesk() {
    tools->answer("SPThunderboltDataType.json", R"({"SPThunderboltDataType": [
      {"_name": "thunderboltusb4_bus_0", "_items": [{"_name": "Harbour Dock",
        "vendor_name_key": "Harbour", "switch_uid_key": "0xD0"}]},
      {"_name": "thunderboltusb4_bus_1"}]})");
    tools->answer("SPUSBDataType.json", R"({"SPUSBDataType": [
      {"_name": "USB31Bus", "host_controller": "AppleT6020USBXHCI", "_items": [
        {"_name": "Quarry SSD", "manufacturer": "Quarry", "serial_num": "S1",
         "location_id": "0x01100000 / 1",
         "Media": [{"volumes": [{"_name": "Data", "mount_point": "/Volumes/Data"}]}]}]},
      {"_name": "USB20Bus", "host_controller": "AppleUSBXHCIPCI", "_items": [
        {"_name": "hub_device", "_items": [{"_name": "Keys", "manufacturer": "Lettera"}]}]}]})");
  }

  void answerWithTwoBarePorts() {
    tools->answer("SPThunderboltDataType.json", R"({"SPThunderboltDataType": [
      {"_name": "thunderboltusb4_bus_0"}, {"_name": "thunderboltusb4_bus_1"}]})");
    tools->answer("SPUSBDataType.json", R"({"SPUSBDataType": []})");
  }

  void scanADesk() {
    answerWithADesk();
    scan();
  }

  std::string at(int row, const char* role) {
    PanelListModel& rows = *panel->rows();
    return rows.data(rows.index(row), rows.roleNames().key(role)).toString().toStdString();
  }

  std::string nameAt(int row) {
    PanelListModel& rows = *panel->rows();
    const QVariantMap content = rows.data(rows.index(row), PanelListModel::ContentRole).toMap();
    const QVariant name = content.value(content.contains("name") ? "name" : "title");
    return name.toMap().value("text").toString().toStdString();
  }

  /// The names of the rows, the tree indented, with what is special.
  std::string list() {
    std::string text;
    for (int row = 0; row < panel->rows()->rowCount(); ++row) {
      const bool isTree = at(row, "kind") != "portHeader" && at(row, "kind") != "nothingAttached";
      text += std::string(isTree ? 2 * (1 + std::stoul(at(row, "depth"))) : 0, ' ');
      text += at(row, "kind") == "nothingAttached" ? "(empty)" : nameAt(row);
      if (at(row, "canExpand") == "true") {
        text += at(row, "isExpanded") == "true" ? ", open" : ", closed";
      }
      text += at(row, "pulse") == "none" ? "" : ", " + at(row, "pulse");
      text += "\n";
    }
    return text;
  }

  /// Where the row with the name stands; -1 when it is not shown.
  int indexOf(const std::string& name) {
    for (int row = 0; row < panel->rows()->rowCount(); ++row) {
      if (nameAt(row) == name) {
        return row;
      }
    }
    return -1;
  }

  void toggle(const std::string& name) { panel->toggle(indexOf(name)); }

  /// The identifier of a device, shown or not.
  std::string idOf(const std::string& name) const {
    for (const SearchEntry& entry : flattenSearchable(scanner->portTree.get())) {
      if (entry.name == name) {
        return entry.id;
      }
    }
    ADD_FAILURE() << "no device is called " << name;
    return {};
  }

  std::unique_ptr<PanelController> panel;
  std::unique_ptr<QAbstractItemModelTester> tester;
  std::unique_ptr<ModelRecorder> recorder;
};

} // namespace tamberline
