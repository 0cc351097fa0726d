// The language table: every text the user reads, in the language of this run
// (AppLanguage::current). Texts without an argument are in fixed_texts.def, the others in loc.cpp.
// Arguments are inserted unchanged; integers are written in plain decimal.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tamberline::Loc {

#define TAMBERLINE_TEXT(key, en, de, fr, it, es) std::string_view key();
#include "i18n/fixed_texts.def"
#undef TAMBERLINE_TEXT

std::string updated(std::string_view when);
std::string items(std::int64_t count);
/// How many answers that need attention are not shown.
std::string moreAnswers(std::int64_t count);
std::string hubTotalRatedDraw(std::string_view watts);
std::string chargingAtW(std::int64_t watts);
std::string poweringSystemW(std::int64_t watts);
std::string speedNote(std::string_view portMaximum);
std::string thunderboltPort(std::int64_t number);
/// `carried` is a speed, with the number of lanes if known.
std::string linkEachWay(std::string_view carried);
std::string linkToDevice(std::string_view carried);
std::string linkFromDevice(std::string_view carried);
std::string lanes(std::int64_t count);
/// How often a port was switched off.
std::string overCurrents(std::int64_t count);
/// A text behind its title.
std::string labelled(std::string_view title, std::string_view text);
std::string extraCurrent(std::int64_t milliamperes);
/// One of the computer's sockets.
std::string receptacle(std::string_view number);
/// `numbers` is a comma-separated list.
std::string receptacles(std::string_view numbers);
std::string hdmiPort(std::string_view number);
std::string hintPortCapacity(std::int64_t milliamperes);
std::string percent(std::int64_t number);
/// For screen readers: what a figure of a port means. `watts` and `speed` have units.
std::string suppliesUpTo(std::string_view watts);
std::string chargerDelivers(std::string_view watts);
std::string linkUpTo(std::string_view speed);

/// The names of all texts without an argument, for tests that no language is missing.
struct FixedText {
  std::string_view key;
  std::string_view (*text)();
};
std::span<const FixedText> fixedTexts();

} // namespace tamberline::Loc
