#include "model/true_link.h"
#include "support/language_scope.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

constexpr TrueLink symmetric = {40, 40, 2, 2};
constexpr TrueLink asymmetric = {120, 40, 3, 1};

TEST(TrueLink, ShowsOneValueIfBothDirectionsAreEqual) {
  EXPECT_EQ(symmetric.label(), "Link each way: 40 Gb/s, 2 lanes");
  EXPECT_EQ((TrueLink{10.3, 10.3, 1, 1}.label()), "Link each way: 10.3 Gb/s, 1 lane");
  EXPECT_EQ((TrueLink{80, 80}.label()), "Link each way: 80 Gb/s");
}

TEST(TrueLink, ShowsBothDirectionsIfTheyDiffer) {
  EXPECT_EQ(asymmetric.label(),
            "Link to the device: 120 Gb/s, 3 lanes · Link from the device: 40 Gb/s, 1 lane");
  EXPECT_EQ((TrueLink{40, 40, 2, 1}.label()),
            "Link to the device: 40 Gb/s, 2 lanes · Link from the device: 40 Gb/s, 1 lane");
}

TEST(TrueLink, OmitsAnUnknownDirection) {
  EXPECT_EQ((TrueLink{.transmitGbps = 40}.label()), "Link to the device: 40 Gb/s");
  EXPECT_EQ((TrueLink{.receiveGbps = 20, .transmitLanes = 2}.label()),
            "Link from the device: 20 Gb/s");
  EXPECT_EQ((TrueLink{.transmitLanes = 2, .receiveLanes = 2}.label()), "");
}

TEST(TrueLink, SpeaksTheLanguageOfTheRun) {
  const struct {
    AppLanguage::Case language;
    const char* eachWay;
    const char* apart;
  } rows[] = {
      {AppLanguage::de, "Verbindung je Richtung: 40 Gb/s, 2 Lanes",
       "Verbindung zum Gerät: 120 Gb/s, 3 Lanes · Verbindung vom Gerät: 40 Gb/s, 1 Lane"},
      {AppLanguage::fr, "Liaison dans chaque sens : 40 Gb/s, 2 voies",
       "Liaison vers l’appareil : 120 Gb/s, 3 voies · Liaison depuis l’appareil : 40 Gb/s, 1 "
       "voie"},
      {AppLanguage::it, "Collegamento in ogni direzione: 40 Gb/s, 2 canali",
       "Collegamento verso il dispositivo: 120 Gb/s, 3 canali · Collegamento dal dispositivo: 40 "
       "Gb/s, 1 canale"},
      {AppLanguage::es, "Enlace en cada sentido: 40 Gb/s, 2 carriles",
       "Enlace hacia el dispositivo: 120 Gb/s, 3 carriles · Enlace desde el dispositivo: 40 Gb/s, "
       "1 carril"},
  };
  for (const auto& row : rows) {
    const LanguageScope scope(row.language);
    EXPECT_EQ(symmetric.label(), row.eachWay);
    EXPECT_EQ(asymmetric.label(), row.apart);
  }
}

} // namespace
} // namespace tamberline
