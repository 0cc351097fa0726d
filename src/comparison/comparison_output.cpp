#include "comparison/comparison_output.h"

#include "base/shown_text.h"
#include "base/text.h"
#include "i18n/loc.h"
#include "inspect/text_tree.h"
#include "views/view_enums.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;
using Kind = Change::Kind;
using Unit = Change::Unit;

struct KindLook {
  const char* name;
  std::string_view label;
  Color color;
};

KindLook lookOf(Kind kind) {
  switch (kind) {
  case Kind::came:
    return {"came", Loc::changeCame(), Color::Green};
  case Kind::went:
    return {"went", Loc::changeWent(), Color::Red};
  case Kind::moved:
    return {"moved", Loc::changeMoved(), Color::Blue};
  case Kind::faster:
    return {"faster", Loc::changeFaster(), Color::Green};
  case Kind::slower:
    return {"slower", Loc::changeSlower(), Color::Red};
  case Kind::drawsMore:
    return {"drawsMore", Loc::changeDrawsMore(), Color::Amber};
  case Kind::drawsLess:
    return {"drawsLess", Loc::changeDrawsLess(), Color::Primary};
  case Kind::suppliesMore:
    return {"suppliesMore", Loc::changeSuppliesMore(), Color::Green};
  case Kind::suppliesLess:
    return {"suppliesLess", Loc::changeSuppliesLess(), Color::Red};
  case Kind::mounted:
    return {"mounted", Loc::changeMounted(), Color::Green};
  case Kind::unmounted:
    return {"unmounted", Loc::changeUnmounted(), Color::Amber};
  }
  return {"", "", Color::Primary};
}

std::string valueText(double value, Unit unit) {
  switch (unit) {
  case Unit::gbps:
    return speedText(value);
  case Unit::milliamperes:
    return fixedText(value, 0) + " mA";
  case Unit::watts:
    return generalText(value) + " W";
  case Unit::none:
    break;
  }
  return {};
}

std::string fromTo(const std::string& before, const std::string& after) {
  return before + " → " + after;
}

std::string detailOf(const Change& change) {
  switch (change.kind) {
  case Kind::came:
  case Kind::went:
    return change.place;
  case Kind::moved:
    return fromTo(change.placeBefore, change.place);
  case Kind::mounted:
  case Kind::unmounted:
    return change.volume.name + "  " + change.volume.mountPoint;
  default:
    return fromTo(valueText(change.before, change.unit), valueText(change.after, change.unit));
  }
}

TextTree lineOf(const Change& change) {
  constexpr std::size_t maxDetailCharacters = 400;
  const KindLook look = lookOf(change.kind);
  TextLine line = {{std::string(look.label), look.color},
                   {"  " + shownText(change.item.name), Color::Primary, /*isBold=*/true}};
  const std::string detail = shownText(detailOf(change), maxDetailCharacters);
  if (!detail.empty()) {
    line.push_back({"  " + detail});
  }
  return {{line}, {}};
}

Document itemDocument(const InventoryItem& item) {
  const auto orNull = [](const std::string& text) {
    return text.empty() ? Document(nullptr) : Document(text);
  };
  return {{"kind", nameOf(item.kind)},
          {"id", item.id},
          {"name", item.name},
          {"vendorID", orNull(item.vendorID)},
          {"productID", orNull(item.productID)},
          {"serialNumber", orNull(item.serialNumber)},
          {"portNumber", item.portNumber ? Document(*item.portNumber) : Document(nullptr)}};
}

const char* nameOf(Unit unit) {
  switch (unit) {
  case Unit::gbps:
    return "Gb/s";
  case Unit::milliamperes:
    return "mA";
  case Unit::watts:
    return "W";
  case Unit::none:
    break;
  }
  return "";
}

Document changeDocument(const Change& change) {
  Document document = {{"change", lookOf(change.kind).name},
                       {"item", itemDocument(change.item)},
                       {"place", change.place}};
  if (change.kind == Kind::moved) {
    document["placeBefore"] = change.placeBefore;
  }
  if (change.unit != Unit::none) {
    document["unit"] = nameOf(change.unit);
    document["before"] = change.before;
    document["after"] = change.after;
  }
  if (change.kind == Kind::mounted || change.kind == Kind::unmounted) {
    document["volume"] = {{"name", change.volume.name}, {"mountPoint", change.volume.mountPoint}};
  }
  return document;
}

} // namespace

std::string comparisonText(const std::vector<Change>& changes, bool useColors,
                           std::optional<int> columns) {
  if (changes.empty()) {
    return renderTextTrees({{{{{std::string(Loc::noDifference())}}}, {}}}, useColors, columns);
  }
  std::string text;
  for (const Change& change : changes) {
    text += renderTextTrees({lineOf(change)}, useColors, columns);
  }
  return text;
}

Document comparisonDocument(const std::vector<Change>& changes) {
  Document list = Document::array();
  for (const Change& change : changes) {
    list.push_back(changeDocument(change));
  }
  return {{"isSame", changes.empty()}, {"changes", std::move(list)}};
}

} // namespace tamberline
