#include "i18n/relative_time.h"

#include "i18n/app_language.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace tamberline {
namespace {

using std::chrono::seconds;
using namespace std::chrono_literals;

constexpr std::array<seconds, 4> unitSeconds = {1s, 1min, 1h, 24h};

/// The texts after the number.
struct UnitTexts {
  std::string_view one;
  std::string_view other;
};

struct RelativeTexts {
  std::string_view now;
  std::string_view beforeNumber;
  std::array<UnitTexts, unitSeconds.size()> units;
};

/// In the order of AppLanguage.
constexpr auto translations = std::to_array<RelativeTexts>({
    {"just now",
     "",
     {{{" second ago", " seconds ago"},
       {" minute ago", " minutes ago"},
       {" hour ago", " hours ago"},
       {" day ago", " days ago"}}}},
    {"gerade eben",
     "vor ",
     {{{" Sekunde", " Sekunden"},
       {" Minute", " Minuten"},
       {" Stunde", " Stunden"},
       {" Tag", " Tagen"}}}},
    {"à l’instant",
     "il y a ",
     {{{" seconde", " secondes"},
       {" minute", " minutes"},
       {" heure", " heures"},
       {" jour", " jours"}}}},
    {"poco fa",
     "",
     {{{" secondo fa", " secondi fa"},
       {" minuto fa", " minuti fa"},
       {" ora fa", " ore fa"},
       {" giorno fa", " giorni fa"}}}},
    {"ahora mismo",
     "hace ",
     {{{" segundo", " segundos"},
       {" minuto", " minutos"},
       {" hora", " horas"},
       {" día", " días"}}}},
});
static_assert(translations.size() == AppLanguage::count);

/// A text that changes every second disturbs, and nobody needs the exact second.
constexpr seconds shortestStep = 10s;

/// The length of time for which an age in this unit keeps its text.
seconds stepOf(std::size_t unit) {
  return std::max(shortestStep, unitSeconds[unit]);
}

/// The longest unit that fits into an age of at least one second.
std::size_t unitOf(seconds age) {
  const auto* const tooLong = std::upper_bound(unitSeconds.begin(), unitSeconds.end(), age);
  return static_cast<std::size_t>(tooLong - unitSeconds.begin()) - 1;
}

} // namespace

std::string relativeTimeText(seconds age) {
  const RelativeTexts& texts = translations[AppLanguage::current()];
  if (age < shortestStep) {
    return std::string(texts.now);
  }
  const std::size_t unit = unitOf(age);
  const std::int64_t number = (age - age % stepOf(unit)) / unitSeconds[unit];
  const UnitTexts& unitTexts = texts.units[unit];
  return std::string(texts.beforeNumber)
      .append(std::to_string(number))
      .append(number == 1 ? unitTexts.one : unitTexts.other);
}

seconds untilRelativeTimeChanges(seconds age) {
  if (age < shortestStep) {
    return shortestStep - std::max(age, shortestStep - seconds::max());
  }
  const seconds step = stepOf(unitOf(age));
  return step - age % step;
}

} // namespace tamberline
