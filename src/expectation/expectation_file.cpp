#include "expectation/expectation_file.h"

#include "base/shown_text.h"
#include "base/text.h"
#include "inspect/json_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <set>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

constexpr std::int64_t formatVersion = 1;
constexpr std::string_view devicesKey = "devices";
constexpr std::string_view versionKey = "expectations";
constexpr double maxCredibleGbps = 100'000;

/// Counts the lines that a parser has read.
class LineCounter {
public:
  // The parser asks for these types.
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  LineCounter(const char* position, std::size_t& line) : position_(position), line_(&line) {}

  reference operator*() const { return *position_; }
  LineCounter& operator++() {
    *line_ += *position_ == '\n' ? 1 : 0;
    ++position_;
    return *this;
  }
  friend bool operator==(const LineCounter& left, const LineCounter& right) {
    return left.position_ == right.position_;
  }

private:
  const char* position_;
  std::size_t* line_;
};

bool isIdentifier(std::string_view text) {
  return text.starts_with("0x") && parseHexadecimal(text.substr(2)).has_value();
}

/// Fills expectations while the file is parsed, so that a mistake is known by its line. The names
/// of its members are those that the parser calls.
class FileReader {
public:
  explicit FileReader(const std::size_t& line) : line_(line) {}

  // NOLINTBEGIN(readability-identifier-naming)
  bool null() { return refuseValue(); }
  bool boolean(bool /*value*/) { return refuseValue(); }
  bool number_integer(std::int64_t value) { return takeNumber(static_cast<double>(value), value); }
  bool number_unsigned(std::uint64_t value) {
    const bool fits = value <= static_cast<std::uint64_t>(INT64_MAX);
    return takeNumber(static_cast<double>(value),
                      fits ? std::optional(static_cast<std::int64_t>(value)) : std::nullopt);
  }
  bool number_float(double value, const std::string& /*text*/) {
    return takeNumber(value, std::nullopt);
  }
  bool binary(const json::binary_t& /*value*/) { return refuseValue(); }

  bool string(std::string& value) {
    switch (place_) {
    case Place::top:
      return key_ == "$schema" || refuseValue();
    case Place::volumes:
      device().volumes.push_back(value);
      return true;
    case Place::device:
      return takeText(value);
    default:
      return refuseValue();
    }
  }

  bool start_object(std::size_t /*size*/) {
    if (place_ == Place::start) {
      return enter(Place::top);
    }
    if (place_ != Place::devices) {
      return refuseValue();
    }
    if (devices_.size() == maxExpectations) {
      return fail("there are more than " + std::to_string(maxExpectations) + " devices");
    }
    devices_.emplace_back();
    lineOfDevice_ = line_;
    return enter(Place::device);
  }

  bool key(std::string& name) {
    lineOfKey_ = line_;
    key_ = name;
    const bool isKnown = place_ == Place::top ? isOneOf(name, topKeys) : isOneOf(name, deviceKeys);
    if (!isKnown) {
      return failAt(line_, "there is no key '" + name + "' here");
    }
    return keys_.insert(name).second || failAt(line_, "'" + name + "' is there twice");
  }

  bool end_object() {
    if (place_ == Place::device) {
      place_ = Place::devices;
      return checkDevice();
    }
    return !keysOfTop_.contains(std::string(devicesKey)) && !keys_.contains(std::string(devicesKey))
               ? failAt(line_, "the list 'devices' is missing")
               : true;
  }

  bool start_array(std::size_t /*size*/) {
    if (place_ == Place::top && key_ == devicesKey) {
      keysOfTop_ = keys_;
      place_ = Place::devices;
      return true;
    }
    if (place_ == Place::device && key_ == "volumes") {
      place_ = Place::volumes;
      return true;
    }
    return refuseValue();
  }

  bool end_array() {
    if (place_ == Place::volumes) {
      place_ = Place::device;
    } else {
      place_ = Place::top;
      keys_ = keysOfTop_;
    }
    return true;
  }

  bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                   const json::exception& error) {
    const std::string text = error.what(); // "[…] parse error at line 1, column 2: …"
    const std::size_t column = text.find("column ");
    const std::size_t start = column == std::string::npos ? column : text.find(": ", column);
    return failAt(line_, start == std::string::npos ? text : text.substr(start + 2));
  }

  std::variant<std::vector<Expectation>, FileMistake> result() {
    if (mistake_) {
      return *mistake_;
    }
    return std::move(devices_);
  }
  // NOLINTEND(readability-identifier-naming)

private:
  enum class Place : std::uint8_t { start, top, devices, device, volumes };

  static constexpr std::array<std::string_view, 3> topKeys = {"$schema", versionKey, devicesKey};
  static constexpr std::array<std::string_view, 7> deviceKeys = {
      "name", "vendorID", "productID", "serialNumber", "port", "minGbps", "volumes"};

  template <typename Keys>
  static bool isOneOf(const std::string& name, const Keys& keys) {
    return std::find(keys.begin(), keys.end(), name) != keys.end();
  }

  Expectation& device() { return devices_.back(); }

  bool enter(Place place) {
    place_ = place;
    keys_.clear();
    return true;
  }

  /// The reason may quote the file, which can hold anything.
  bool failAt(std::size_t line, const std::string& reason) {
    constexpr std::size_t maxReasonCharacters = 200;
    mistake_ = FileMistake{line, shownText(reason, maxReasonCharacters)};
    return false;
  }

  /// The parser may have read the end of the line behind a value; the key's line is certain.
  bool fail(const std::string& reason) { return failAt(key_.empty() ? 1 : lineOfKey_, reason); }

  bool refuseValue() {
    switch (place_) {
    case Place::start:
      return fail("the file is not one object");
    case Place::devices:
      return fail("'devices' is a list of objects");
    case Place::volumes:
      return fail("'volumes' is a list of names");
    default:
      return fail("'" + key_ + "' is " + std::string(wantedFor(key_)));
    }
  }

  static std::string_view wantedFor(std::string_view key) {
    if (key == versionKey) {
      return "the number 1";
    }
    if (key == "port") {
      return "the number of a port, from 1";
    }
    if (key == "minGbps") {
      return "a speed in Gb/s, more than 0";
    }
    if (key == devicesKey || key == "volumes") {
      return "a list";
    }
    return key == "vendorID" || key == "productID" ? "a text such as \"0x05ac\"" : "a text";
  }

  bool takeText(const std::string& value) {
    if (key_ == "name") {
      device().name = value;
    } else if (key_ == "serialNumber") {
      device().serialNumber = value;
    } else if (key_ == "vendorID" && isIdentifier(value)) {
      device().vendorID = value;
    } else if (key_ == "productID" && isIdentifier(value)) {
      device().productID = value;
    } else {
      return refuseValue();
    }
    return true;
  }

  bool takeNumber(double value, std::optional<std::int64_t> integer) {
    if (place_ == Place::top && key_ == versionKey) {
      return integer == formatVersion || refuseValue();
    }
    if (place_ == Place::device && key_ == "port" && integer > 0) {
      device().port = integer;
      return true;
    }
    if (place_ == Place::device && key_ == "minGbps" && value > 0 && value <= maxCredibleGbps) {
      device().minGbps = value;
      return true;
    }
    return refuseValue();
  }

  bool checkDevice() {
    const Expectation& known = device();
    if (known.vendorID.has_value() != known.productID.has_value()) {
      return failAt(lineOfDevice_, "'vendorID' and 'productID' go together");
    }
    return known.name || known.vendorID || known.serialNumber ||
           failAt(lineOfDevice_,
                  "a device is known by 'name', 'vendorID' and 'productID', or 'serialNumber'");
  }

  const std::size_t& line_;
  Place place_ = Place::start;
  std::string key_;
  std::set<std::string> keys_; // of the object that is being read
  std::set<std::string> keysOfTop_;
  std::size_t lineOfKey_ = 1;
  std::size_t lineOfDevice_ = 1;
  std::vector<Expectation> devices_;
  std::optional<FileMistake> mistake_;
};

nlohmann::ordered_json expectationFor(const InventoryItem& item) {
  nlohmann::ordered_json device = {{"name", item.name}};
  if (isIdentifier(item.vendorID) && isIdentifier(item.productID)) {
    device["vendorID"] = item.vendorID;
    device["productID"] = item.productID;
  }
  if (!item.serialNumber.empty()) {
    device["serialNumber"] = item.serialNumber;
  }
  if (item.portNumber > 0) {
    device["port"] = *item.portNumber;
  }
  if (item.speedGbps) {
    device["minGbps"] = *item.speedGbps;
  }
  for (const InventoryVolume& volume : item.volumes) {
    device["volumes"].push_back(volume.name);
  }
  return device;
}

} // namespace

std::variant<std::vector<Expectation>, FileMistake> readExpectations(std::string_view content) {
  if (content.size() > maxExpectationFileBytes) {
    return FileMistake{1, "the file is larger than 1 MB"};
  }
  if (trimmed(content).empty()) { // the JSON library's releases describe it in different words
    return FileMistake{1, "the file is empty"};
  }
  std::size_t line = 1;
  std::size_t lineOfEnd = 1;
  FileReader reader(line);
  json::sax_parse(LineCounter(content.data(), line),
                  LineCounter(content.data() + content.size(), lineOfEnd), &reader,
                  json::input_format_t::json, /*strict=*/true, /*ignore_comments=*/true);
  return reader.result();
}

std::string expectationsFor(const Inventory& inventory) {
  nlohmann::ordered_json file = {{std::string(versionKey), formatVersion},
                                 {std::string(devicesKey), nlohmann::ordered_json::array()}};
  for (const InventoryItem& item : inventory) {
    if (item.isDevice()) {
      file[std::string(devicesKey)].push_back(expectationFor(item));
    }
  }
  return jsonText(file, 2) + "\n";
}

} // namespace tamberline
