#include "catalog/katalog_datei.h"

#include "tests/support/buehne.h"

namespace vantora {
namespace {

constexpr const wchar_t* kDatei = L"C:\\prueba.vtr";

using KatalogDatei = VorDemStart;

TEST_F(KatalogDatei, AfterACountEveryFieldOfARecordLiesWhereItBelongs) {
  b.Start();
  KatalogFeld katalog = b.prog.Katalog;
  katalog.resize(2);
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
  const std::string alle = b.Lies(kDatei), bytes = alle.substr(4 + 822);
  EXPECT_EQ(alle.substr(0, 4), std::string("\1\0\0\0", 4));
  EXPECT_EQ(alle.substr(4 + 2, 50), std::string(50, '\0'));  // its title has never been set
  EXPECT_EQ(alle.substr(4 + 222, 13), "Nuevo t\xEDtulo ");
  ASSERT_EQ(bytes.size(), 822U + 4U);
  using namespace std::string_literals;
  const std::pair<std::size_t, std::string> fields[] = {
      {0, "\xFF\xFF"},    {2, "Azul \x80 "},  {52, "Voz "},        {102, "215873.015"},
      {112, "\x02\x01"},  {114, "\x09\x00"s}, {116, "C:\\a.wav "}, {216, "\x04\x03\x02\x01"},
      {220, "\x04\x00"s}, {222, "ayer"},      {226, "K "},         {426, "I "},
      {626, "0 "}};
  for (const auto& [place, text] : fields) EXPECT_EQ(bytes.substr(place, text.size()), text);
}

}  // namespace
}  // namespace vantora
