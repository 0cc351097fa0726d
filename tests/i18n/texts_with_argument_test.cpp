#include "i18n/loc.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>

namespace tamberline {
namespace {

/// English, German, French, Italian, Spanish.
using Translations = std::array<std::string_view, AppLanguage::count>;

void expectInEveryLanguage(const std::function<std::string()>& text, const Translations& expected) {
  for (const AppLanguage::Case language :
       {AppLanguage::en, AppLanguage::de, AppLanguage::fr, AppLanguage::it, AppLanguage::es}) {
    SCOPED_TRACE(AppLanguage(language).code());
    const LanguageScope scope(language);
    EXPECT_EQ(text(), expected.at(language));
  }
}

TEST(TextsWithArgument, TimeOfTheLastScan) {
  expectInEveryLanguage([] { return Loc::updated("14:05"); },
                        {"Updated 14:05", "Aktualisiert 14:05", "Mis à jour 14:05",
                         "Aggiornato 14:05", "Actualizado 14:05"});
}

TEST(TextsWithArgument, OneItemIsSingular) {
  expectInEveryLanguage([] { return Loc::items(1); },
                        {"1 item", "1 Gerät", "1 élément", "1 elemento", "1 elemento"});
}

TEST(TextsWithArgument, AnyOtherNumberOfItemsIsPlural) {
  expectInEveryLanguage([] { return Loc::items(0); },
                        {"0 items", "0 Geräte", "0 éléments", "0 elementi", "0 elementos"});
  expectInEveryLanguage([] { return Loc::items(2); },
                        {"2 items", "2 Geräte", "2 éléments", "2 elementi", "2 elementos"});
  expectInEveryLanguage([] { return Loc::items(5); },
                        {"5 items", "5 Geräte", "5 éléments", "5 elementi", "5 elementos"});
  expectInEveryLanguage([] { return Loc::items(21); },
                        {"21 items", "21 Geräte", "21 éléments", "21 elementi", "21 elementos"});
  expectInEveryLanguage([] { return Loc::items(-1); },
                        {"-1 items", "-1 Geräte", "-1 éléments", "-1 elementi", "-1 elementos"});
}

TEST(TextsWithArgument, RatedDrawOfAWholeHub) {
  expectInEveryLanguage([] { return Loc::hubTotalRatedDraw("4.5 W"); },
                        {"4.5 W hub total (rated draw)", "4.5 W Hub gesamt (nominal)",
                         "4.5 W total hub (nominal)", "4.5 W totale hub (nominale)",
                         "4.5 W total hub (nominal)"});
}

TEST(TextsWithArgument, HowOftenAPortWasSwitchedOff) {
  expectInEveryLanguage(
      [] { return Loc::overCurrents(2); },
      {"Shut-offs because of too much current: 2", "Abschaltungen wegen zu hohen Stroms: 2",
       "Coupures pour courant trop fort : 2", "Spegnimenti per troppa corrente: 2",
       "Cortes por exceso de corriente: 2"});
}

TEST(TextsWithArgument, TextBehindItsTitle) {
  expectInEveryLanguage([] { return Loc::labelled("A", "b"); },
                        {"A: b", "A: b", "A : b", "A: b", "A: b"});
}

TEST(TextsWithArgument, WattsThatCharge) {
  expectInEveryLanguage([] { return Loc::chargingAtW(96); },
                        {"Charging at 96 W", "Lädt mit 96 W", "Charge à 96 W", "In carica a 96 W",
                         "Cargando a 96 W"});
}

TEST(TextsWithArgument, WattsThatPowerTheSystem) {
  expectInEveryLanguage([] { return Loc::poweringSystemW(12); },
                        {"Powering system · 12 W (battery full)",
                         "Versorgt System · 12 W (Akku voll)",
                         "Alimente le système · 12 W (batterie pleine)",
                         "Alimenta il sistema · 12 W (batteria carica)",
                         "Alimentando el sistema · 12 W (batería llena)"});
}

TEST(TextsWithArgument, SpeedThatThePortSupports) {
  expectInEveryLanguage(
      [] { return Loc::speedNote("10 Gb/s"); },
      {"Port supports up to 10 Gb/s — device or cable is the bottleneck",
       "Port unterstützt bis zu 10 Gb/s — Gerät oder Kabel ist der Engpass",
       "Le port prend en charge jusqu’à 10 Gb/s — l’appareil ou le câble est le goulot "
       "d’étranglement",
       "La porta supporta fino a 10 Gb/s — il collo di bottiglia è il dispositivo o il cavo",
       "El puerto admite hasta 10 Gb/s — el cuello de botella es el dispositivo o el cable"});
}

TEST(TextsWithArgument, ThunderboltPort) {
  expectInEveryLanguage([] { return Loc::thunderboltPort(3); },
                        {"Thunderbolt Port 3", "Thunderbolt-Port 3", "Port Thunderbolt 3",
                         "Porta Thunderbolt 3", "Puerto Thunderbolt 3"});
}

TEST(TextsWithArgument, HdmiPort) {
  expectInEveryLanguage(
      [] { return Loc::hdmiPort("1"); },
      {"HDMI Port 1", "HDMI-Port 1", "Port HDMI 1", "Porta HDMI 1", "Puerto HDMI 1"});
}

TEST(TextsWithArgument, HdmiPortWithoutANumberEndsInNoBlank) {
  expectInEveryLanguage([] { return Loc::hdmiPort(""); },
                        {"HDMI Port", "HDMI-Port", "Port HDMI", "Porta HDMI", "Puerto HDMI"});
}

TEST(TextsWithArgument, ExtraCurrent) {
  expectInEveryLanguage([] { return Loc::extraCurrent(1600); },
                        {"Extra operating current: 1600 mA", "Zusätzlicher Betriebsstrom: 1600 mA",
                         "Courant de fonctionnement supplémentaire : 1600 mA",
                         "Corrente di esercizio aggiuntiva: 1600 mA",
                         "Corriente de funcionamiento adicional: 1600 mA"});
}

TEST(TextsWithArgument, PowerCapacityOfAPort) {
  expectInEveryLanguage([] { return Loc::hintPortCapacity(3000); },
                        {"Port power capacity: 3000 mA at 5 V",
                         "Port-Leistungskapazität: 3000 mA bei 5 V",
                         "Capacité d’alimentation du port : 3000 mA à 5 V",
                         "Capacità di alimentazione della porta: 3000 mA a 5 V",
                         "Capacidad de potencia del puerto: 3000 mA a 5 V"});
}

TEST(TextsWithArgument, IntegersAreWrittenWithoutGrouping) {
  EXPECT_EQ(Loc::items(1234567), "1234567 items");
  EXPECT_EQ(Loc::thunderboltPort(std::numeric_limits<std::int64_t>::min()),
            "Thunderbolt Port -9223372036854775808");
  EXPECT_EQ(Loc::hintPortCapacity(std::numeric_limits<std::int64_t>::max()),
            "Port power capacity: 9223372036854775807 mA at 5 V");
}

TEST(TextsWithArgument, TextsGoInUnchanged) {
  EXPECT_EQ(Loc::updated(" %s {0} <b>\n"), "Updated  %s {0} <b>\n");
  EXPECT_EQ(Loc::updated(""), "Updated ");
  EXPECT_EQ(Loc::hdmiPort(" "), "HDMI Port  ");
}

TEST(TextsWithArgument, Percent) {
  expectInEveryLanguage([] { return Loc::percent(40); }, {"40%", "40 %", "40 %", "40%", "40 %"});
}

TEST(TextsWithArgument, FiguresOfAPort) {
  expectInEveryLanguage([] { return Loc::suppliesUpTo("15 W"); },
                        {"supplies up to 15 W", "liefert bis zu 15 W", "fournit jusqu’à 15 W",
                         "fornisce fino a 15 W", "suministra hasta 15 W"});
  expectInEveryLanguage([] { return Loc::chargerDelivers("69W"); },
                        {"the adapter delivers 69W", "das Netzteil liefert 69W",
                         "l’adaptateur fournit 69W", "l’alimentatore fornisce 69W",
                         "el adaptador entrega 69W"});
  expectInEveryLanguage([] { return Loc::linkUpTo("40 Gb/s"); },
                        {"link up to 40 Gb/s", "Verbindung bis 40 Gb/s", "liaison jusqu’à 40 Gb/s",
                         "collegamento fino a 40 Gb/s", "enlace hasta 40 Gb/s"});
}

} // namespace
} // namespace tamberline
