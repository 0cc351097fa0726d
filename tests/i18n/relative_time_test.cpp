#include "i18n/loc.h"
#include "i18n/relative_time.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <string_view>

namespace tamberline {
namespace {

using std::chrono::seconds;
using namespace std::chrono_literals;

constexpr auto languages = std::to_array<AppLanguage::Case>(
    {AppLanguage::en, AppLanguage::de, AppLanguage::fr, AppLanguage::it, AppLanguage::es});
static_assert(languages.size() == AppLanguage::count);

struct AgeText {
  seconds age;
  /// English, German, French, Italian, Spanish.
  std::array<std::string_view, AppLanguage::count> texts;
};

void expectTexts(const AgeText& row) {
  for (const AppLanguage::Case language : languages) {
    SCOPED_TRACE(AppLanguage(language).code());
    const LanguageScope scope(language);
    EXPECT_EQ(relativeTimeText(row.age), row.texts.at(language));
  }
}

TEST(RelativeTime, CountsInTheLongestUnitThatFits) {
  const AgeText rows[] = {
      {10s,
       {"10 seconds ago", "vor 10 Sekunden", "il y a 10 secondes", "10 secondi fa",
        "hace 10 segundos"}},
      {19s,
       {"10 seconds ago", "vor 10 Sekunden", "il y a 10 secondes", "10 secondi fa",
        "hace 10 segundos"}},
      {59s,
       {"50 seconds ago", "vor 50 Sekunden", "il y a 50 secondes", "50 secondi fa",
        "hace 50 segundos"}},
      {60s, {"1 minute ago", "vor 1 Minute", "il y a 1 minute", "1 minuto fa", "hace 1 minuto"}},
      {119s, {"1 minute ago", "vor 1 Minute", "il y a 1 minute", "1 minuto fa", "hace 1 minuto"}},
      {120s,
       {"2 minutes ago", "vor 2 Minuten", "il y a 2 minutes", "2 minuti fa", "hace 2 minutos"}},
      {3599s,
       {"59 minutes ago", "vor 59 Minuten", "il y a 59 minutes", "59 minuti fa",
        "hace 59 minutos"}},
      {3600s, {"1 hour ago", "vor 1 Stunde", "il y a 1 heure", "1 ora fa", "hace 1 hora"}},
      {7199s, {"1 hour ago", "vor 1 Stunde", "il y a 1 heure", "1 ora fa", "hace 1 hora"}},
      {7200s, {"2 hours ago", "vor 2 Stunden", "il y a 2 heures", "2 ore fa", "hace 2 horas"}},
      {86399s,
       {"23 hours ago", "vor 23 Stunden", "il y a 23 heures", "23 ore fa", "hace 23 horas"}},
      {86400s, {"1 day ago", "vor 1 Tag", "il y a 1 jour", "1 giorno fa", "hace 1 día"}},
      {172799s, {"1 day ago", "vor 1 Tag", "il y a 1 jour", "1 giorno fa", "hace 1 día"}},
      {172800s, {"2 days ago", "vor 2 Tagen", "il y a 2 jours", "2 giorni fa", "hace 2 días"}},
      {86400000s,
       {"1000 days ago", "vor 1000 Tagen", "il y a 1000 jours", "1000 giorni fa",
        "hace 1000 días"}},
  };
  for (const AgeText& row : rows) {
    SCOPED_TRACE(row.age.count());
    expectTexts(row);
  }
}

TEST(RelativeTime, IsNowWithinTheFirstTenSecondsAndWhenTheClockWasSetBack) {
  for (const seconds age : {0s, 9s, -1s, -86400s, seconds::min()}) {
    SCOPED_TRACE(age.count());
    expectTexts({age, {"just now", "gerade eben", "à l’instant", "poco fa", "ahora mismo"}});
  }
}

TEST(RelativeTime, ReadsWellAfterTheWordForUpdated) {
  const auto expected = std::to_array<std::string_view>(
      {"Updated 40 seconds ago", "Aktualisiert vor 40 Sekunden", "Mis à jour il y a 40 secondes",
       "Aggiornato 40 secondi fa", "Actualizado hace 40 segundos"});
  for (const AppLanguage::Case language : languages) {
    const LanguageScope scope(language);
    EXPECT_EQ(Loc::updated(relativeTimeText(44s)), expected.at(language));
  }
}

TEST(RelativeTime, ChangesWithTheNextStep) {
  const struct {
    seconds age;
    seconds untilChange;
  } rows[] = {
      {-5s, 15s},     {-1s, 11s},       {0s, 10s},     {9s, 1s},
      {10s, 10s},     {58s, 2s},        {59s, 1s},     {60s, 60s},
      {61s, 59s},     {119s, 1s},       {120s, 60s},   {3599s, 1s},
      {3600s, 3600s}, {3601s, 3599s},   {7199s, 1s},   {86399s, 1s},
      {86400s, 24h},  {86401s, 86399s}, {172799s, 1s}, {seconds::min(), seconds::max()},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.age.count());
    EXPECT_EQ(untilRelativeTimeChanges(row.age), row.untilChange);
  }
}

TEST(RelativeTime, StaysTheSameUntilItChangesAndNoLonger) {
  for (const AppLanguage::Case language : languages) {
    SCOPED_TRACE(AppLanguage(language).code());
    const LanguageScope scope(language);
    for (seconds age = -3s; age < 72h; age += age < 3min ? 1s : 59s) {
      SCOPED_TRACE(age.count());
      const seconds change = age + untilRelativeTimeChanges(age);
      EXPECT_EQ(relativeTimeText(age), relativeTimeText(change - 1s));
      EXPECT_NE(relativeTimeText(age), relativeTimeText(change));
    }
  }
}

} // namespace
} // namespace tamberline
