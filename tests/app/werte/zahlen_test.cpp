#include "app/werte/zahlen.h"

#include "app/werte/zeichen.h"
#include "tests/backends/linux/home.h"

#include <cmath>

namespace vantora {
namespace {

TEST(Zahlen, ValReadsTheLeadingNumberAndNothingElse) {
  const std::pair<const wchar_t*, double> faelle[] = {{L"215873.015", 215873.015},
                                                      {L"  12 34x", 1234},
                                                      {L"2 seg.", 2},
                                                      {L"-7,5", -7},
                                                      {L"+.5", 0.5},
                                                      {L"1e3", 1000},
                                                      {L"1e", 1},
                                                      {L"-", 0},
                                                      {L"abc", 0},
                                                      {L"", 0}};
  for (const auto& [text, wert] : faelle) EXPECT_DOUBLE_EQ(Val(text), wert) << text;
  EXPECT_DOUBLE_EQ(Val(Text(10, L'\0')), 0);
}

TEST(Zahlen, RoundingTakesTiesToEvenAndConversionsRaiseInsteadOfWrapping) {
  EXPECT_EQ(Runden(0.5), 0);
  EXPECT_EQ(Runden(1.5), 2);
  EXPECT_EQ(Runden(-2.5), -2);
  EXPECT_EQ(Ganz16(32767.4), 32767);
  EXPECT_EQ(Ganz16(-32768.0), -32768);
  for (const double zuGross : {32767.5, -32769.0, 1e300, std::nan("")}) {
    EXPECT_EQ(test::ErrorOf([&] { Ganz16(zuGross); }), kFehlerUeberlauf) << zuGross;
  }
  EXPECT_THROW(GanzDiv(1, 0), Laufzeitfehler);
  EXPECT_EQ(GanzDiv(-7, 2), -3);
}

TEST(Zahlen, FormatsKeepTheirPatterns) {
  EXPECT_EQ(Format(7, L"00"), L"07");
  EXPECT_EQ(Format(123, L"##00"), L"123");
  EXPECT_EQ(Format(8000, L"00:00"), L"80:00");
  EXPECT_EQ(Format(12, L"0000"), L"0012");
  EXPECT_EQ(Format(0.125, L"0.00%"), L"12.50%");
  EXPECT_EQ(Format(1234567.891, L"#,##0.00"), L"1,234,567.89");
  EXPECT_EQ(Format(-0.001, L"0.00"), L"0.00");
  EXPECT_EQ(ZahlText(9520000 / 44.1).substr(0, 10), L"215873.015");
  EXPECT_EQ(HexText(48879), L"BEEF");
}

TEST(Zeichen, EveryByteHasACharacterThatGivesItBack) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(ByteIn1252(ZeichenAus1252(static_cast<unsigned char>(byte))), byte);
  }
  EXPECT_EQ(ZeichenAus1252(0x80), L'€');
  EXPECT_EQ(ByteIn1252(L'Ω'), '?');
  EXPECT_EQ(Ucase(L"catálogo ñÿ"), L"CATÁLOGO ÑŸ");
}

}  // namespace
}  // namespace vantora
