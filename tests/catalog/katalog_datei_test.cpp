#include "catalog/katalog_datei.h"

#include <gtest/gtest.h>

#include "tests/support/buehne.h"

#include <random>

namespace vantora {
namespace {

constexpr const wchar_t* kDatei = L"C:\\prueba.vtr";

TEST(KatalogDatei, AnEmptyCatalogIsACountAndOneRecord) {
  Buehne b;
  b.Start();
  KatalogSchreiben(b.platform.machine.files, kDatei, b.prog.Katalog);
  const std::string bytes = b.Lies(kDatei);
  ASSERT_EQ(bytes.size(), 4U + 822U);
  EXPECT_EQ(bytes.substr(0, 4), std::string(4, '\0'));
  EXPECT_EQ(bytes.substr(4 + 2, 50), std::string(50, '\0'));  // Titel was never assigned
  EXPECT_EQ(bytes.substr(4 + 222, 13), "Nuevo t\xEDtulo ");
  EXPECT_EQ(bytes.substr(4 + 622, 200), std::string(200, '\0'));
}

TEST(KatalogDatei, EveryFieldLiesWhereItBelongs) {
  Buehne b;
  KatalogFeld katalog(2);
  KatalogEintrag& e = katalog[1];
  e.Ueberblendet = -1;
  e.Titel = L"Azul €";
  e.Interpret = L"Voz";
  e.Laenge = L"215873.0158";
  e.GroesseMB = 0x0102;
  e.Pause = 9;
  e.Datei = L"C:\\a.wav";
  e.DateiBytes = 0x01020304;
  e.DateiDatum = L"ayer";
  e.KatalogTitel = L"K";
  e.KatalogInterpret = L"I";
  e.PauseSperre = L"0";
  KatalogSchreiben(b.platform.machine.files, kDatei, katalog);
  const std::string bytes = b.Lies(kDatei).substr(4 + 822);
  ASSERT_EQ(bytes.size(), 822U + 4U);
  EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFF");
  EXPECT_EQ(bytes.substr(2, 7), "Azul \x80 ");
  EXPECT_EQ(bytes.substr(52, 4), "Voz ");
  EXPECT_EQ(bytes.substr(102, 10), "215873.015");
  EXPECT_EQ(bytes.substr(112, 2), "\x02\x01");
  EXPECT_EQ(bytes.substr(114, 2), std::string("\x09\x00", 2));
  EXPECT_EQ(bytes.substr(116, 9), "C:\\a.wav ");
  EXPECT_EQ(bytes.substr(216, 4), "\x04\x03\x02\x01");
  EXPECT_EQ(bytes.substr(220, 2), std::string("\x04\x00", 2));
  EXPECT_EQ(bytes.substr(222, 4), "ayer");
  EXPECT_EQ(bytes.substr(226, 2), "K ");
  EXPECT_EQ(bytes.substr(426, 2), "I ");
  EXPECT_EQ(bytes.substr(626, 2), "0 ");
}

TEST(KatalogDatei, AnyBytesInAnyFieldComeBackTheSame) {
  Buehne b;
  std::mt19937 zufall(7);
  for (int runde = 0; runde < 20; ++runde) {
    const auto tracks = static_cast<unsigned char>(zufall() % 4);
    std::string bytes = {static_cast<char>(tracks), 0, 0, 0};
    for (int i = 0; i <= tracks; ++i) {
      std::string eintrag(822, '\0');
      for (char& c : eintrag) c = static_cast<char>(zufall());
      const auto n = static_cast<unsigned char>(zufall() % 200);
      eintrag[220] = static_cast<char>(n);
      eintrag[221] = 0;
      eintrag.insert(222, n, static_cast<char>(zufall()));
      bytes += eintrag;
    }
    b.Datei(kDatei, bytes);
    KatalogFeld katalog;
    KatalogLesen(b.platform.machine.files, kDatei, katalog);
    KatalogSchreiben(b.platform.machine.files, kDatei, katalog);
    ASSERT_EQ(b.Lies(kDatei), bytes);
  }
}

TEST(KatalogDatei, ShortAndForeignFilesRaiseAndCostNoMemory) {
  Buehne b;
  struct Fall {
    std::string Bytes;
    int Fehler;
  };
  const std::string riesig = "\xFF\xFF\xFF\x7F";
  for (const Fall& fall :
       {Fall{"", kFehlerDateiEnde},
        {"ab", kFehlerDateiEnde},
        {std::string(4 + 821, '\0'), kFehlerDateiEnde},
        {riesig + std::string(5000, 'x'), kFehlerDateiEnde},
        {std::string("\xFF\xFF\xFF\xFF", 4) + std::string(900, ' '), kFehlerIndex}}) {
    b.Datei(kDatei, fall.Bytes);
    KatalogFeld katalog(1);
    try {
      KatalogLesen(b.platform.machine.files, kDatei, katalog);
      ADD_FAILURE() << fall.Bytes.size() << " bytes were taken for a catalog";
    } catch (const Laufzeitfehler& fehler) {
      EXPECT_EQ(fehler.Nummer, fall.Fehler);
    }
    EXPECT_GE(katalog.size(), 1U);
    EXPECT_LT(katalog.size(), 20U);
    EXPECT_EQ(b.Lies(kDatei), fall.Bytes);
  }
}

}  // namespace
}  // namespace vantora
