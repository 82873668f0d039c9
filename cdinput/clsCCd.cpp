#include "cdinput/clsCCd.h"

#include "app/frmKomponenten.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include "platform/cd_sound.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kBalkenBreite = 2370;  // twips of the full bar
constexpr int kBalkenSchritte = 6;

// Unpacks a time of the media control interface: one byte each for minute, second and frame.
TocEintrag AusMsf(std::int32_t wert) {
  const auto teil = [wert](unsigned stelle) {
    return static_cast<std::int32_t>((static_cast<std::uint32_t>(wert) >> (8 * stelle)) & 0xFFU);
  };
  return {teil(0), teil(1), teil(2), 0};
}

std::int32_t Sekunden(const TocEintrag& eintrag) {
  return eintrag.Minute * 60 + eintrag.Sekunde;
}

std::int32_t Frames(const TocEintrag& eintrag) {
  return Sekunden(eintrag) * kSectorsPerSecond + eintrag.Frame;
}

std::int32_t Quersumme(std::int32_t zahl) {
  std::int32_t summe = 0;
  for (; zahl > 0; zahl /= 10) summe += zahl % 10;
  return summe;
}

Text HexBreit(std::int32_t zahl, std::size_t breite) {
  const Text ziffern = HexText(zahl);
  return Text(breite - std::min(breite, ziffern.size()), L'0') + ziffern;
}

}  // namespace

void clsCCd::Init(const Text& Laufwerk) {
  mLaufwerk = Laufwerk;
  Mci& mci = plattform_.mci;
  mDevice = mci.MCI_OPEN(mLaufwerk);
  if (mDevice == -1) return;
  if (mci.MCI_SET(mDevice, kMciMsf) && TocLesen()) IDBerechnen();
  mci.MCI_CLOSE(mDevice);
  mDevice = -1;
}

bool clsCCd::TocLesen() {
  Mci& mci = plattform_.mci;
  const std::int32_t anzahl = mci.MCI_STATUS(mDevice, kMciNumberOfTracks, 0);
  if (anzahl < 1 || anzahl > kCDDBMaxTracks) return false;
  mTrackAnzahl = Ganz16(anzahl);
  mToc.assign(static_cast<std::size_t>(anzahl) + 1, {});
  for (std::int32_t track = 1; track <= anzahl; ++track) {
    const std::int32_t beginn = mci.MCI_STATUS(mDevice, kMciPosition, track);
    if (beginn == -1) return false;
    TocEintrag& eintrag = mToc[static_cast<std::size_t>(track) - 1];
    eintrag = AusMsf(beginn);
    eintrag.Offset = Frames(eintrag);
  }
  const std::int32_t laenge = mci.MCI_STATUS(mDevice, kMciLength, anzahl);
  if (laenge == -1) return false;
  // The interface returns the length of the last track one frame short.
  const std::int32_t ende = mToc[mToc.size() - 2].Offset + Frames(AusMsf(laenge)) + 1;
  mToc.back() = {ende / kSectorsPerSecond / 60, ende / kSectorsPerSecond % 60,
                 ende % kSectorsPerSecond, 0};
  return true;
}

void clsCCd::IDBerechnen() {
  mLaengeSek = Sekunden(mToc.back()) - Sekunden(mToc.front());
  std::int32_t pruefsumme = 0;
  for (std::size_t i = 0; i + 1 < mToc.size(); ++i) pruefsumme += Quersumme(Sekunden(mToc[i]));
  mDiscID =
      Lcase(HexBreit(pruefsumme % 255, 2) + HexBreit(mLaengeSek, 4) + HexBreit(mTrackAnzahl, 2));
}

Text clsCCd::QueryString() const {
  Text befehl = L"cddb+query+" + mDiscID + L"+" + ZahlText(mTrackAnzahl);
  if (mToc.empty()) return befehl;
  for (std::size_t i = 0; i + 1 < mToc.size(); ++i) befehl += L"+" + ZahlText(mToc[i].Offset);
  return befehl + L"+" + ZahlText(Sekunden(mToc.back()));
}

CDDBInfo clsCCd::CDDBGetInfo() const {
  return {mInterpret, mTitel, mExtD, mTrackTitel, mTrackExt, mTrackInterpret};
}

Text DiscIDLesen(Programm& prog, const Text& Laufwerk) {
  prog.frmKomponenten().CD_Close();
  clsCCd disc(prog.plattform);
  if (!Laufwerk.empty()) disc.Init(Laufwerk);
  return disc.DiscID();
}

std::optional<CDDBFortschritt> CDDBFortschrittZu(std::uint8_t Status) {
  const auto schritt = [](int nummer, int schritte) {
    return CDDBFortschritt{nummer, kBalkenBreite * schritte / kBalkenSchritte};
  };
  switch (Status) {
    case kCDDBAbfrageVerbinden:
      return schritt(5021, 1);
    case kCDDBAbfrageSenden:
      return schritt(5022, 2);
    case kCDDBAbfrageLesen:
      return schritt(5023, 3);
    case kCDDBTitelVerbinden:
      return schritt(5021, 4);
    case kCDDBTitelSenden:
      return schritt(5022, 5);
    case kCDDBTitelLesen:
      return schritt(5023, 6);
    default:
      return std::nullopt;
  }
}

}  // namespace vantora
