#include "answers/wording.h"

#include "base/shown_text.h"
#include "base/text.h"
#include "base/utf8.h"
#include "i18n/answer_texts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tamberline {
namespace {

constexpr std::size_t maxHeadlineCharacters = 60;
constexpr std::size_t maxNameCharacters = 60;
/// Every headline leaves room for two names of this length.
constexpr std::size_t minNameCharacters = 8;

struct Texts {
  std::string_view headline;
  std::string_view reason;
  std::string_view advice;
};

Texts textsOfSlowConnection(const Answer& answer) {
  const bool isOfHub = answer.facts.count.has_value();
  if (answer.limitingPart == LimitingPart::cable) {
    return {Loc::headlineSlowCable(),
            isOfHub ? Loc::reasonSlowCableOfHub() : Loc::reasonSlowCable(),
            Loc::adviceReplaceCable()};
  }
  return {Loc::headlineSlowConnection(),
          isOfHub ? Loc::reasonSlowConnectionOfHub() : Loc::reasonSlowConnection(),
          Loc::adviceFasterCable()};
}

Texts textsOfSlowHub(const Answer& answer) {
  const std::string_view headline =
      answer.facts.count ? Loc::headlineSlowHubOfSeveral() : Loc::headlineSlowHub();
  if (answer.limitingPart == LimitingPart::node) {
    return {headline, Loc::reasonSlowHub(), Loc::adviceWithoutHub()};
  }
  return {headline, Loc::reasonSlowHubOrConnection(), Loc::adviceHubOrCable()};
}

Texts textsOfUnknownAbility(const Answer& answer) {
  if (answer.limitingPart == LimitingPart::cable) {
    return {Loc::headlineUnknownAbility(), Loc::reasonUnknownAbilityBehindCable(),
            Loc::adviceReplaceCable()};
  }
  if (answer.limitingNodeID != answer.nodeID) {
    return {Loc::headlineUnknownAbility(), Loc::reasonUnknownAbilityBehindHub(),
            Loc::adviceCompareWithoutHub()};
  }
  return {Loc::headlineUnknownAbility(), Loc::reasonUnknownAbility(), Loc::adviceLookUpAbility()};
}

Texts textsOfSlowThunderboltLink(const Answer& answer) {
  return {Loc::headlineSlowThunderboltLink(),
          answer.facts.count ? Loc::reasonOneLane() : Loc::reasonSlowThunderboltLink(),
          Loc::adviceThunderboltCable()};
}

Texts textsOfOverloadedPort(const Answer& answer) {
  return {Loc::headlineOverloadedPort(),
          answer.weight == AnswerWeight::note ? Loc::reasonOverloadedPortOfHub()
                                              : Loc::reasonOverloadedPort(),
          Loc::adviceMorePower()};
}

std::string_view adviceOnDraining(const Answer& answer) {
  if (answer.limitingPart == LimitingPart::cable) {
    return Loc::advicePowerCable();
  }
  return answer.facts.possibleWatts ? Loc::adviceAdapterOf() : Loc::adviceStrongerAdapter();
}

Texts textsOfDraining(const Answer& answer) {
  return {Loc::headlineDraining(),
          answer.facts.actualWatts ? Loc::reasonDraining() : Loc::reasonDrainingWithoutFigure(),
          adviceOnDraining(answer)};
}

Texts textsOf(const Answer& answer) {
  switch (answer.kind) {
  case AnswerKind::slowConnection:
    return textsOfSlowConnection(answer);
  case AnswerKind::slowHub:
    return textsOfSlowHub(answer);
  case AnswerKind::slowPort:
    return {Loc::headlineSlowPort(), Loc::reasonSlowPort(), Loc::adviceFasterPort()};
  case AnswerKind::unknownAbility:
    return textsOfUnknownAbility(answer);
  case AnswerKind::sharedLink:
    return {Loc::headlineSharedLink(), Loc::reasonSharedLink(), Loc::adviceSeparateDrives()};
  case AnswerKind::slowThunderboltLink:
    return textsOfSlowThunderboltLink(answer);
  case AnswerKind::notAuthorized:
    return {Loc::headlineNotAuthorized(), Loc::reasonNotAuthorized(), Loc::adviceAuthorize()};
  case AnswerKind::blocked:
    return {Loc::headlineBlocked(), Loc::reasonBlocked(), Loc::adviceUnblock()};
  case AnswerKind::silentDevice:
    return {Loc::headlineSilentDevice(), Loc::reasonSilentDevice(), Loc::adviceSilentDevice()};
  case AnswerKind::powerWithoutData:
    return {Loc::headlinePowerWithoutData(), Loc::reasonPowerWithoutData(),
            Loc::adviceUnlockOrDataCable()};
  case AnswerKind::overloadedPort:
    return textsOfOverloadedPort(answer);
  case AnswerKind::notCharging:
    return {Loc::headlineNotCharging(), Loc::reasonNotCharging(), Loc::adviceNotCharging()};
  case AnswerKind::draining:
    return textsOfDraining(answer);
  case AnswerKind::weakAdapter:
    return {Loc::headlineWeakAdapter(), Loc::reasonWeakAdapter(), Loc::adviceAdapterOf()};
  case AnswerKind::weakPowerCable:
    return {Loc::headlineWeakPowerCable(), Loc::reasonWeakPowerCable(), Loc::advicePowerCable()};
  case AnswerKind::linkIsTheLimit:
    return {Loc::headlineLinkIsTheLimit(), Loc::reasonLinkIsTheLimit(), Loc::adviceFasterLink()};
  case AnswerKind::driveIsTheLimit:
    return {Loc::headlineDriveIsTheLimit(), Loc::reasonDriveIsTheLimit(), Loc::adviceFasterDrive()};
  case AnswerKind::impossibleFigure:
    return {Loc::headlineImpossibleFigure(), Loc::reasonImpossibleFigure(), Loc::adviceTestAgain()};
  }
  return {};
}

/// Number and unit stay in one line; one decimal if it is not a whole number.
std::string withUnit(double value, std::string_view unit) {
  return generalText(std::round(value * 10) / 10).append("\u00A0").append(unit);
}

std::string speedText(double gbps) {
  return gbps < 1 ? withUnit(gbps * 1000, "Mb/s") : withUnit(gbps, "Gb/s");
}

std::string wattsOf(const std::optional<double>& watts) {
  return watts ? withUnit(*watts, "W") : std::string();
}

std::string rateOf(const std::optional<double>& megabytes) {
  return megabytes ? withUnit(*megabytes, "MB/s") : std::string();
}

std::string possibleOf(const AnswerFacts& facts) {
  return facts.possibleGbps ? speedText(*facts.possibleGbps) : wattsOf(facts.possibleWatts);
}

/// Fills a text with the facts; the names are already safe to show.
std::string withFacts(std::string_view text, const AnswerFacts& facts, std::string_view node,
                      std::string_view limit) {
  return Loc::filled(
      text, {{"device", node},
             {"limit", limit},
             {"speed", facts.actualGbps ? speedText(*facts.actualGbps) : std::string()},
             {"could", possibleOf(facts)},
             {"watts", wattsOf(facts.actualWatts)},
             {"measured", rateOf(facts.measuredMBps)},
             {"carries", rateOf(facts.linkMBps)},
             {"percent", facts.chargePercent ? Loc::percent(*facts.chargePercent) : std::string()},
             {"count", facts.count ? std::to_string(*facts.count) : std::string()}});
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    text.remove_prefix(decodeFirstCharacter(text).length);
    ++count;
  }
  return count;
}

std::string safeName(const std::string& name, std::size_t maxCharacters) {
  std::string shown = shownText(name, maxCharacters);
  return shown.empty() ? shownText(Loc::unnamedDevice(), maxCharacters) : shown;
}

/// Shortens the names until they fit; the shorter one gives what it does not need to the other.
std::string headlineOf(std::string_view text, const AnswerFacts& facts, const AnswerNames& names) {
  const std::size_t used = characterCount(withFacts(text, facts, "", ""));
  const std::size_t room = maxHeadlineCharacters - std::min(used, maxHeadlineCharacters);
  if (text.find("{limit}") == std::string_view::npos) {
    return withFacts(text, facts, safeName(names.node, std::max(room, minNameCharacters)), "");
  }
  const std::string limit = safeName(names.limit, maxNameCharacters);
  const std::size_t ofLimit = std::min(characterCount(limit), room / 2);
  const std::string node = safeName(names.node, std::max(room - ofLimit, minNameCharacters));
  const std::size_t left = room - std::min(characterCount(node), room);
  return withFacts(text, facts, node, safeName(names.limit, std::max(left, minNameCharacters)));
}

} // namespace

void word(Answer& answer, const AnswerNames& names) {
  const Texts texts = textsOf(answer);
  const std::string node = safeName(names.node, maxNameCharacters);
  const std::string limit = safeName(names.limit, maxNameCharacters);
  answer.headline = headlineOf(texts.headline, answer.facts, names);
  answer.reason = withFacts(texts.reason, answer.facts, node, limit);
  answer.advice = withFacts(texts.advice, answer.facts, node, limit);
}

} // namespace tamberline
