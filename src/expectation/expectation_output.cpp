#include "expectation/expectation_output.h"

#include "base/shown_text.h"
#include "base/text.h"
#include "i18n/loc.h"
#include "inspect/text_tree.h"
#include "views/view_enums.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;

constexpr std::string_view comparedWith = " — ";

std::string nameOf(const Expectation& expectation) {
  if (expectation.name) {
    return *expectation.name;
  }
  return expectation.vendorID ? *expectation.vendorID + ":" + *expectation.productID
                              : *expectation.serialNumber;
}

std::string phrase(std::string_view wish, const std::string& value) {
  return std::string(wish) + " " + value;
}

std::string beside(const std::string& found, const std::string& wish) {
  return found.empty() ? wish : found + std::string(comparedWith) + wish;
}

std::string shortfallText(const Shortfall& shortfall, const Expectation& expectation,
                          const InventoryItem& item) {
  switch (shortfall.kind) {
  case Shortfall::Kind::port:
    return beside(portLabelOf(item),
                  phrase(Loc::expectedOn(), Loc::thunderboltPort(expectation.port.value_or(0))));
  case Shortfall::Kind::speed:
    return beside(item.speedGbps ? speedText(*item.speedGbps) : "",
                  phrase(Loc::expectedAtLeast(), speedText(expectation.minGbps.value_or(0))));
  case Shortfall::Kind::volume:
    return phrase(Loc::expectedVolume(), shortfall.volume);
  }
  return {};
}

std::string detailOf(const CheckedExpectation& checked, const Inventory& inventory) {
  if (!checked.item) {
    return {};
  }
  const InventoryItem& item = inventory[*checked.item];
  if (checked.isMet()) {
    return placeOf(inventory, item);
  }
  std::vector<std::string> texts;
  for (const Shortfall& shortfall : checked.shortfalls) {
    texts.push_back(shortfallText(shortfall, checked.expectation, item));
  }
  return joined(texts, " · ");
}

std::string safeDetailOf(const CheckedExpectation& checked, const Inventory& inventory) {
  constexpr std::size_t maxDetailCharacters = 400;
  return shownText(detailOf(checked, inventory), maxDetailCharacters);
}

TextSpan verdictOn(const CheckedExpectation& checked) {
  if (!checked.item) {
    return {std::string(Loc::expectedIsMissing()), Color::Red};
  }
  return checked.isMet() ? TextSpan{std::string(Loc::expectedIsThere()), Color::Green}
                         : TextSpan{std::string(Loc::expectedDiffers()), Color::Amber};
}

TextTree lineOf(const CheckedExpectation& checked, const Inventory& inventory) {
  TextLine line = {verdictOn(checked),
                   {"  " + shownText(nameOf(checked.expectation)), Color::Primary, true}};
  const std::string detail = safeDetailOf(checked, inventory);
  if (!detail.empty()) {
    line.push_back({"  " + detail});
  }
  return {{line}, {}};
}

Document shortfallDocument(const Shortfall& shortfall, const Expectation& expectation,
                           const InventoryItem& item) {
  const auto orNull = [](const auto& value) {
    return value ? Document(*value) : Document(nullptr);
  };
  switch (shortfall.kind) {
  case Shortfall::Kind::port:
    return {{"shortfall", "port"},
            {"expected", orNull(expectation.port)},
            {"found", orNull(item.portNumber)}};
  case Shortfall::Kind::speed:
    return {{"shortfall", "speed"},
            {"expected", orNull(expectation.minGbps)},
            {"found", orNull(item.speedGbps)}};
  case Shortfall::Kind::volume:
    return {{"shortfall", "volume"}, {"expected", shortfall.volume}, {"found", nullptr}};
  }
  return nullptr;
}

Document checkedDocument(const CheckedExpectation& checked, const Inventory& inventory) {
  Document shortfalls = Document::array();
  for (const Shortfall& shortfall : checked.shortfalls) {
    shortfalls.push_back(
        shortfallDocument(shortfall, checked.expectation, inventory[*checked.item]));
  }
  return {{"expected", nameOf(checked.expectation)},
          {"isMet", checked.isMet()},
          {"id", checked.item ? Document(inventory[*checked.item].id) : Document(nullptr)},
          {"shortfalls", std::move(shortfalls)}};
}

/// In a test's name "#" would begin a directive.
std::string tapName(const CheckedExpectation& checked) {
  const std::string name = shownText(nameOf(checked.expectation));
  return replacedAll(replacedAll(name, "\\", "\\\\"), "#", "\\#");
}

} // namespace

bool areAllMet(const std::vector<CheckedExpectation>& checked) {
  return std::all_of(checked.begin(), checked.end(),
                     [](const CheckedExpectation& one) { return one.isMet(); });
}

std::string expectationText(const std::vector<CheckedExpectation>& checked,
                            const Inventory& inventory, bool useColors,
                            std::optional<int> columns) {
  std::string text;
  for (const CheckedExpectation& one : checked) {
    text += renderTextTrees({lineOf(one, inventory)}, useColors, columns);
  }
  return text;
}

std::string expectationTap(const std::vector<CheckedExpectation>& checked,
                           const Inventory& inventory) {
  std::string text = "TAP version 14\n1.." + std::to_string(checked.size()) + "\n";
  for (std::size_t index = 0; index < checked.size(); ++index) {
    const CheckedExpectation& one = checked[index];
    text +=
        (one.isMet() ? "ok " : "not ok ") + std::to_string(index + 1) + " - " + tapName(one) + "\n";
    if (!one.isMet()) {
      const std::string message = joined({verdictOn(one).text, safeDetailOf(one, inventory)}, "  ");
      text += "  ---\n  message: '" + replacedAll(trimmed(message), "'", "''") + "'\n  ...\n";
    }
  }
  return text;
}

Document expectationDocument(const std::vector<CheckedExpectation>& checked,
                             const Inventory& inventory) {
  Document list = Document::array();
  for (const CheckedExpectation& one : checked) {
    list.push_back(checkedDocument(one, inventory));
  }
  return {{"isMet", areAllMet(checked)}, {"devices", std::move(list)}};
}

} // namespace tamberline
