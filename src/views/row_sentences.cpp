#include "views/row_sentences.h"

#include "base/overloaded.h"
#include "i18n/loc.h"

#include <optional>
#include <string_view>

namespace tamberline {
namespace {

/// Joins what is there with commas.
class Sentence {
public:
  Sentence& operator<<(std::string_view part) {
    if (!part.empty()) {
      text_.append(text_.empty() ? "" : ", ").append(part);
    }
    return *this;
  }

  template <typename Part>
  Sentence& operator<<(const std::optional<Part>& part) {
    return part ? *this << *part : *this;
  }

  Sentence& operator<<(const Badge& badge) { return *this << badge.text; }

  Sentence& operator<<(const SpeedBarRow& bar) {
    return *this << bar.speedLabel << bar.portMaxLabel;
  }

  Sentence& operator<<(const PowerBarRow& bar) {
    const std::string used = bar.used + (bar.allocated ? " " + *bar.allocated : "");
    return *this << used << bar.portMax;
  }

  Sentence& operator<<(const MeasuredPower& power) {
    return *this << power.used << power.allocated << power.voltageCurrent;
  }

  Sentence& operator<<(const AgreedPowerRow& power) {
    return *this << power.watts << power.voltageCurrent;
  }

  std::string take() { return std::move(text_); }

private:
  std::string text_;
};

void tell(const PortCard& card, PanelRow::Kind kind, Sentence& sentence) {
  switch (kind) {
  case PanelRow::Kind::portPower:
    sentence << card.measuredPower << card.agreedPower << card.portPowerBar;
    return;
  case PanelRow::Kind::partner:
    if (card.partner) {
      sentence << card.partner->title << card.partner->detail;
    }
    return;
  case PanelRow::Kind::nothingAttached:
    sentence << card.nothingAttached;
    return;
  default:
    sentence << card.title << card.itemCount;
    if (!card.itemCount) {
      sentence << card.dotTooltip;
    }
    for (const PortBadge& badge : card.badges) {
      sentence << badge.badge;
    }
  }
}

void tell(const StandaloneUSBCard& card, PanelRow::Kind kind, Sentence& sentence) {
  if (kind == PanelRow::Kind::nothingAttached) {
    sentence << card.nothingAttached;
  } else {
    sentence << card.header.name << card.header.ratedDraw;
  }
}

void tell(const ChargerRow& row, Sentence& sentence) {
  sentence << row.shownName();
  if (row.isCharging) {
    sentence << Loc::charging();
  }
  sentence << row.rated;
}

void tell(const ChargerCard& card, PanelRow::Kind kind, Sentence& sentence) {
  if (kind == PanelRow::Kind::chargerBody) {
    tell(card.row, sentence);
  } else {
    sentence << card.title << card.port;
  }
}

void tell(const VolumeRow& volume, const VolumeTools& tools, Sentence& sentence) {
  sentence << volume.label + " " + volume.name;
  if (tools.showsTestProgress) {
    sentence << tools.testProgress;
  } else {
    for (const ColoredText& text : tools.testTexts) {
      sentence << text.text;
    }
  }
  if (tools.showsEjectProgress) {
    sentence << Loc::ejecting();
  }
  sentence << tools.ejectFailure;
}

void tell(const USBDeviceDetailRow& device, const PanelRow& row, Sentence& sentence) {
  sentence << device.name << device.speedText << device.speedBar;
  if (device.speedNote) {
    sentence << device.speedNote->note;
  }
  if (device.hubTotal) {
    sentence << device.hubTotal->text;
  }
  sentence << device.powerBar;
  for (std::size_t i = 0; i < device.volumes.size(); ++i) {
    tell(device.volumes[i], row.volumeTools.at(i), sentence);
  }
}

void tell(const ExpandableRow& source, const PanelRow& row, Sentence& sentence) {
  std::visit(Overloaded{
                 [&](const TBDeviceRow& device) {
                   sentence << device.name << device.modeBadge << device.warningBadge
                            << device.speedBar << device.ratedDraw;
                 },
                 [&](const USBBusHeaderRow& bus) { sentence << bus.name << bus.ratedDraw; },
                 [&](const USBDeviceDetailRow& device) { tell(device, row, sentence); },
                 [&](const ChargerRow& charger) { tell(charger, sentence); },
                 [&](const ChargingOnlyRow& charging) {
                   sentence << charging.title << charging.badge << charging.detail;
                 },
             },
             source.content);
}

} // namespace

std::string rowSentence(const PanelRow& row) {
  Sentence sentence;
  std::visit(Overloaded{
                 [&](const PortCard* card) { tell(*card, row.kind, sentence); },
                 [&](const StandaloneUSBCard* card) { tell(*card, row.kind, sentence); },
                 [&](const ChargerCard* card) { tell(*card, row.kind, sentence); },
                 [&](const ExpandableRow* source) { tell(*source, row, sentence); },
             },
             row.source);
  if (row.canExpand) {
    sentence << (row.isExpanded ? Loc::expanded() : Loc::collapsed());
  }
  return sentence.take();
}

} // namespace tamberline
