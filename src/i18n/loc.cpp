#include "i18n/loc.h"

#include "i18n/app_language.h"

#include <array>

namespace tamberline::Loc {
namespace {

/// One text per language; a missing language does not compile.
class Translations {
public:
  template <typename... Texts>
  requires(sizeof...(Texts) ==
           AppLanguage::count) explicit(false) constexpr Translations(Texts... texts)
      : texts_{texts...} {}

  std::string_view operator[](AppLanguage language) const { return texts_[language]; }

private:
  std::array<std::string_view, AppLanguage::count> texts_;
};

std::string_view inCurrentLanguage(const Translations& translations) {
  return translations[AppLanguage::current()];
}

std::string withPrefix(const Translations& prefixes, std::string_view argument) {
  return std::string(inCurrentLanguage(prefixes)).append(argument);
}

std::string withSuffix(std::string_view argument, const Translations& suffixes) {
  return std::string(argument).append(inCurrentLanguage(suffixes));
}

std::string between(const Translations& prefixes, std::string_view argument,
                    const Translations& suffixes) {
  return withPrefix(prefixes, argument).append(inCurrentLanguage(suffixes));
}

constexpr Translations everywhere(std::string_view text) {
  return {text, text, text, text, text};
}

} // namespace

#define TAMBERLINE_TEXT(key, en, de, fr, it, es)                                                   \
  std::string_view key() {                                                                         \
    static constexpr Translations translations = {en, de, fr, it, es};                             \
    return inCurrentLanguage(translations);                                                        \
  }
#include "i18n/fixed_texts.def"
#undef TAMBERLINE_TEXT

std::span<const FixedText> fixedTexts() {
  static constexpr auto texts = std::to_array<FixedText>({
#define TAMBERLINE_TEXT(key, en, de, fr, it, es) {#key, &(key)},
#include "i18n/fixed_texts.def"
#undef TAMBERLINE_TEXT
  });
  return texts;
}

std::string updated(std::string_view when) {
  return withPrefix({"Updated ", "Aktualisiert ", "Mis à jour ", "Aggiornato ", "Actualizado "},
                    when);
}

std::string items(std::int64_t count) {
  if (count == 1) {
    return std::string(
        inCurrentLanguage({"1 item", "1 Gerät", "1 élément", "1 elemento", "1 elemento"}));
  }
  return withSuffix(std::to_string(count),
                    {" items", " Geräte", " éléments", " elementi", " elementos"});
}

std::string moreAnswers(std::int64_t count) {
  if (count == 1) {
    return std::string(
        inCurrentLanguage({"1 more problem", "1 weiteres Problem", "1 autre problème",
                           "1 altro problema", "1 problema más"}));
  }
  return between(
      {"", "", "", "Altri ", ""}, std::to_string(count),
      {" more problems", " weitere Probleme", " autres problèmes", " problemi", " problemas más"});
}

std::string hubTotalRatedDraw(std::string_view watts) {
  return withSuffix(watts,
                    {" hub total (rated draw)", " Hub gesamt (nominal)", " total hub (nominal)",
                     " totale hub (nominale)", " total hub (nominal)"});
}

std::string chargingAtW(std::int64_t watts) {
  return between({"Charging at ", "Lädt mit ", "Charge à ", "In carica a ", "Cargando a "},
                 std::to_string(watts), everywhere(" W"));
}

std::string poweringSystemW(std::int64_t watts) {
  return between({"Powering system · ", "Versorgt System · ", "Alimente le système · ",
                  "Alimenta il sistema · ", "Alimentando el sistema · "},
                 std::to_string(watts),
                 {" W (battery full)", " W (Akku voll)", " W (batterie pleine)",
                  " W (batteria carica)", " W (batería llena)"});
}

std::string speedNote(std::string_view portMaximum) {
  return between({"Port supports up to ", "Port unterstützt bis zu ",
                  "Le port prend en charge jusqu’à ", "La porta supporta fino a ",
                  "El puerto admite hasta "},
                 portMaximum,
                 {" — device or cable is the bottleneck", " — Gerät oder Kabel ist der Engpass",
                  " — l’appareil ou le câble est le goulot d’étranglement",
                  " — il collo di bottiglia è il dispositivo o il cavo",
                  " — el cuello de botella es el dispositivo o el cable"});
}

std::string thunderboltPort(std::int64_t number) {
  return withPrefix({"Thunderbolt Port ", "Thunderbolt-Port ", "Port Thunderbolt ",
                     "Porta Thunderbolt ", "Puerto Thunderbolt "},
                    std::to_string(number));
}

std::string linkEachWay(std::string_view carried) {
  return withPrefix({"Link each way: ", "Verbindung je Richtung: ", "Liaison dans chaque sens : ",
                     "Collegamento in ogni direzione: ", "Enlace en cada sentido: "},
                    carried);
}

std::string linkToDevice(std::string_view carried) {
  return withPrefix({"Link to the device: ", "Verbindung zum Gerät: ", "Liaison vers l’appareil : ",
                     "Collegamento verso il dispositivo: ", "Enlace hacia el dispositivo: "},
                    carried);
}

std::string linkFromDevice(std::string_view carried) {
  return withPrefix(
      {"Link from the device: ", "Verbindung vom Gerät: ", "Liaison depuis l’appareil : ",
       "Collegamento dal dispositivo: ", "Enlace desde el dispositivo: "},
      carried);
}

std::string lanes(std::int64_t count) {
  if (count == 1) {
    return std::string(inCurrentLanguage({"1 lane", "1 Lane", "1 voie", "1 canale", "1 carril"}));
  }
  return withSuffix(std::to_string(count), {" lanes", " Lanes", " voies", " canali", " carriles"});
}

std::string overCurrents(std::int64_t count) {
  return withPrefix({"Shut-offs because of too much current: ",
                     "Abschaltungen wegen zu hohen Stroms: ", "Coupures pour courant trop fort : ",
                     "Spegnimenti per troppa corrente: ", "Cortes por exceso de corriente: "},
                    std::to_string(count));
}

std::string labelled(std::string_view title, std::string_view text) {
  return withSuffix(title, {": ", ": ", " : ", ": ", ": "}).append(text);
}

std::string extraCurrent(std::int64_t milliamperes) {
  return between({"Extra operating current: ", "Zusätzlicher Betriebsstrom: ",
                  "Courant de fonctionnement supplémentaire : ",
                  "Corrente di esercizio aggiuntiva: ", "Corriente de funcionamiento adicional: "},
                 std::to_string(milliamperes), everywhere(" mA"));
}

std::string receptacle(std::string_view number) {
  return withPrefix({"Receptacle ", "Buchse ", "Prise ", "Presa ", "Conector "}, number);
}

std::string receptacles(std::string_view numbers) {
  return withPrefix({"Receptacles ", "Buchsen ", "Prises ", "Prese ", "Conectores "}, numbers);
}

std::string hdmiPort(std::string_view number) {
  constexpr Translations bare = {"HDMI Port", "HDMI-Port", "Port HDMI", "Porta HDMI",
                                 "Puerto HDMI"};
  if (number.empty()) {
    return std::string(inCurrentLanguage(bare));
  }
  return withPrefix(bare, " ").append(number);
}

std::string hintPortCapacity(std::int64_t milliamperes) {
  return between(
      {"Port power capacity: ", "Port-Leistungskapazität: ", "Capacité d’alimentation du port : ",
       "Capacità di alimentazione della porta: ", "Capacidad de potencia del puerto: "},
      std::to_string(milliamperes),
      {" mA at 5 V", " mA bei 5 V", " mA à 5 V", " mA a 5 V", " mA a 5 V"});
}

std::string percent(std::int64_t number) {
  return withSuffix(std::to_string(number), {"%", " %", " %", "%", " %"});
}

std::string suppliesUpTo(std::string_view watts) {
  return withPrefix({"supplies up to ", "liefert bis zu ", "fournit jusqu’à ", "fornisce fino a ",
                     "suministra hasta "},
                    watts);
}

std::string chargerDelivers(std::string_view watts) {
  return withPrefix({"the adapter delivers ", "das Netzteil liefert ", "l’adaptateur fournit ",
                     "l’alimentatore fornisce ", "el adaptador entrega "},
                    watts);
}

std::string linkUpTo(std::string_view speed) {
  return withPrefix({"link up to ", "Verbindung bis ", "liaison jusqu’à ", "collegamento fino a ",
                     "enlace hasta "},
                    speed);
}

} // namespace tamberline::Loc
