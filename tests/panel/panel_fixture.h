#pragma once

#include "panel/panel_controller.h"
#include "scanner/scanner_fixture.h"
#include "support/model_recorder.h"
#include "tree/search_entries.h"

#include <QAbstractItemModelTester>
#include <QMetaProperty>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

namespace tamberline {

/// A panel on a scanner that the test controls.
class PanelFixture : public ScannerFixture {
protected:
  void SetUp() override {
    ScannerFixture::SetUp();
    answers = std::make_unique<AnswersController>(scanner);
    panel = std::make_unique<PanelController>(scanner, queue, *answers, actions());
    tester = std::make_unique<QAbstractItemModelTester>(
        panel->rows(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    recorder = std::make_unique<ModelRecorder>(*panel->rows());
  }

  virtual PanelActions actions() { return {}; }

  /// Port 1 has a dock with a bus with a hub with keys on it, port 2 a disk with a volume.
  void answerWithADesk() {
    machine->answer(Question::thunderbolt, R"({"SPThunderboltDataType": [
      {"_name": "thunderboltusb4_bus_0", "_items": [{"_name": "Harbour Dock",
        "vendor_name_key": "Harbour", "switch_uid_key": "0xD0"}]},
      {"_name": "thunderboltusb4_bus_1"}]})");
    machine->answer(Question::usb, R"({"SPUSBDataType": [
      {"_name": "USB31Bus", "host_controller": "AppleT6020USBXHCI", "_items": [
        {"_name": "Quarry SSD", "manufacturer": "Quarry", "serial_num": "S1",
         "location_id": "0x01100000 / 1",
         "Media": [{"volumes": [{"_name": "Data", "mount_point": "/Volumes/Data"}]}]}]},
      {"_name": "USB20Bus", "host_controller": "AppleUSBXHCIPCI", "_items": [
        {"_name": "hub_device", "_items": [{"_name": "Keys", "manufacturer": "Lettera"}]}]}]})");
  }

  void answerWithTwoBarePorts() {
    machine->answer(Question::thunderbolt, R"({"SPThunderboltDataType": [
      {"_name": "thunderboltusb4_bus_0"}, {"_name": "thunderboltusb4_bus_1"}]})");
    machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  }

  /// The same with a dock that is not authorised: it needs attention.
  void answerWithAnUnauthorizedDock() {
    answerWithADesk();
    machine->answer(Question::thunderbolt, R"({"SPThunderboltDataType": [
      {"_name": "thunderboltusb4_bus_0", "_items": [{"_name": "Harbour Dock",
        "vendor_name_key": "Harbour", "switch_uid_key": "0xD0",
        "tamberline_is_authorized": "FALSE"}]},
      {"_name": "thunderboltusb4_bus_1"}]})");
  }

  void scanADesk() {
    answerWithADesk();
    scan();
  }

  std::string sentenceAt(int row) {
    const PanelListModel& rows = *panel->rows();
    return rows.data(rows.index(row), PanelListModel::SentenceRole).toString().toStdString();
  }

  /// The name in the row's content, or its title.
  std::string nameAt(int row) {
    PanelListModel& rows = *panel->rows();
    const QVariant content = rows.data(rows.index(row), PanelListModel::ContentRole);
    const QMetaObject& type = *content.metaType().metaObject();
    const int name = std::max(type.indexOfProperty("name"), type.indexOfProperty("title"));
    return type.property(name)
        .readOnGadget(content.constData())
        .value<NameLabel>()
        .text.toStdString();
  }

  /// The names of the rows, indented as in the tree, with their special properties.
  std::string list() {
    std::string text;
    for (int index = 0; index < panel->rows()->rowCount(); ++index) {
      const PanelRow& row = *panel->rows()->rowAt(index);
      text +=
          row.place ? std::string(2 * (1 + static_cast<std::size_t>(row.place->depth)), ' ') : "";
      text += row.kind == PanelRow::Kind::NothingAttached ? "(empty)" : nameAt(index);
      if (row.canExpand) {
        text += row.isExpanded ? ", open" : ", closed";
      }
      text += row.pulse == Pulse::None ? "" : ", " + pulseName(row.pulse);
      text += "\n";
    }
    return text;
  }

  static std::string pulseName(Pulse pulse) {
    return QVariant::fromValue(pulse).toString().toStdString();
  }

  /// Empty when no row has the name.
  std::string pulseOf(const std::string& name) {
    const PanelRow* row = panel->rows()->rowAt(indexOf(name));
    return row == nullptr ? "" : pulseName(row->pulse);
  }

  /// The index of the row with this name; -1 if it is not shown.
  int indexOf(const std::string& name) {
    for (int row = 0; row < panel->rows()->rowCount(); ++row) {
      if (nameAt(row) == name) {
        return row;
      }
    }
    return -1;
  }

  void toggle(const std::string& name) { panel->toggle(indexOf(name)); }

  /// The identifier of a device, whether or not it is shown.
  std::string idOf(const std::string& name) const {
    for (const SearchEntry& entry : flattenSearchable(scanner->portTree.get())) {
      if (entry.name == name) {
        return entry.id;
      }
    }
    ADD_FAILURE() << "no device is called " << name;
    return {};
  }

  std::unique_ptr<AnswersController> answers;
  std::unique_ptr<PanelController> panel;
  std::unique_ptr<QAbstractItemModelTester> tester;
  std::unique_ptr<ModelRecorder> recorder;
};

} // namespace tamberline
