#include "i18n/expected_texts.h"

namespace tamberline {

// clang-format off
std::vector<ExpectedText> expectedMessages() {
  return {
      {"chargingOnlyDetail",
       {"Powered, but no data connection — unlock or switch the device to data mode",
        "Mit Strom versorgt, aber keine Datenverbindung — Gerät entsperren oder in den Datenmodus schalten",
        "Alimenté, mais sans connexion de données — déverrouillez l’appareil ou passez-le en mode données",
        "Alimentato, ma senza connessione dati — sblocca il dispositivo o passa alla modalità dati",
        "Con alimentación, pero sin conexión de datos — desbloquea el dispositivo o cámbialo a modo de datos"}},
      {"ownDrawRated",
       {"own draw (rated)",
        "Eigenverbrauch (nominal)",
        "consommation propre (nominale)",
        "consumo proprio (nominale)",
        "consumo propio (nominal)"}},
      {"benchReadOnly",
       {"Volume is read-only",
        "Volume ist schreibgeschützt",
        "Le volume est en lecture seule",
        "Il volume è di sola lettura",
        "El volumen es de solo lectura"}},
      {"benchNoSpace",
       {"Not enough free space",
        "Nicht genügend freier Speicher",
        "Espace libre insuffisant",
        "Spazio libero insufficiente",
        "Espacio libre insuficiente"}},
      {"benchIOError",
       {"I/O error during test",
        "E/A-Fehler während des Tests",
        "Erreur d’E/S pendant le test",
        "Errore di I/O durante il test",
        "Error de E/S durante la prueba"}},
      {"ejectFailed",
       {"Eject failed — a file may still be open on it",
        "Auswerfen fehlgeschlagen — evtl. ist noch eine Datei geöffnet",
        "Échec de l’éjection — un fichier est peut-être encore ouvert",
        "Espulsione non riuscita — potrebbe esserci ancora un file aperto",
        "Error al expulsar — puede que aún haya un archivo abierto"}},
      {"searchPlaceholder",
       {"Search devices…",
        "Geräte suchen…",
        "Rechercher un appareil…",
        "Cerca dispositivi…",
        "Buscar dispositivos…"}},
      {"noSearchResults",
       {"No matching devices",
        "Keine passenden Geräte",
        "Aucun appareil correspondant",
        "Nessun dispositivo corrispondente",
        "No hay dispositivos coincidentes"}},
  };
}
// clang-format on

} // namespace tamberline
