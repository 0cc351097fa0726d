#include "views/row_sentences.h"

#include "i18n/loc.h"

#include <optional>
#include <string_view>

namespace tamberline {
namespace {

/// Joins the non-empty parts with commas.
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

void appendTo(Sentence& sentence, const PortHeader& header) {
  sentence << header.title << header.itemCount;
  if (!header.itemCount) {
    sentence << header.dotTooltip;
  }
  for (const PortBadge& badge : header.badges) {
    sentence << (badge.spoken.empty() ? badge.badge.text : badge.spoken);
  }
}

void appendTo(Sentence& sentence, const PortPower& power) {
  sentence << power.measured << power.agreed << power.ratedBar;
}

void appendTo(Sentence& sentence, const NothingAttachedRow& row) {
  sentence << row.text;
}

void appendTo(Sentence& sentence, const PartnerNotice& partner) {
  sentence << partner.title << partner.detail;
}

void appendTo(Sentence& sentence, const ChargerRow& row) {
  sentence << row.shownName() << (row.isCharging ? Loc::charging() : Loc::notCharging())
           << row.rated;
}

void appendTo(Sentence& sentence, const ChargerCard& card) {
  sentence << card.header.title << card.header.port;
  appendTo(sentence, card.row);
}

void appendTo(Sentence& sentence, const TBDeviceRow& device) {
  sentence << device.name << device.modeBadge << device.warningBadge << device.speedBar
           << device.ratedDraw;
}

void appendTo(Sentence& sentence, const USBBusHeaderRow& bus) {
  sentence << bus.name << bus.ratedDraw;
}

void appendTo(Sentence& sentence, const VolumeRow& volume) {
  sentence << volume.label + " " + volume.name;
  if (volume.tools.showsTestProgress) {
    sentence << volume.tools.testProgress;
  } else {
    for (const ColoredText& text : volume.tools.testTexts) {
      sentence << text.text;
    }
  }
  if (volume.tools.showsEjectProgress) {
    sentence << Loc::ejecting();
  }
  sentence << volume.tools.ejectFailure;
}

void appendTo(Sentence& sentence, const USBDeviceDetailRow& device) {
  sentence << device.name << device.speedText << device.speedBar;
  if (device.speedNote) {
    sentence << device.speedNote->note;
  }
  if (device.hubTotal) {
    sentence << device.hubTotal->text;
  }
  sentence << device.powerBar;
  for (const VolumeRow& volume : device.volumes) {
    appendTo(sentence, volume);
  }
}

void appendTo(Sentence& sentence, const ChargingOnlyRow& charging) {
  sentence << charging.title << charging.badge << charging.detail;
}

} // namespace

std::string rowSentence(const PanelRow& row) {
  Sentence sentence;
  std::visit([&](const auto& content) { appendTo(sentence, *content); }, row.content);
  if (row.canExpand) {
    sentence << (row.isExpanded ? Loc::expanded() : Loc::collapsed());
  }
  if (row.answer) {
    const RowAnswer& answer = **row.answer;
    sentence << (answer.isAboutContent ? answer.title + ": " + answer.text : answer.text);
  }
  return sentence.take();
}

} // namespace tamberline
