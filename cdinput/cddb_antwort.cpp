// The answer of a CDDB server about a disc: lines of a name and a text, each ended by CR LF.
#include "app/dienste.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdinput/clsCCd.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kTrenner = L" / ";  // between performer and title

Text OhneSteuerzeichen(Text text) {
  std::replace_if(
      text.begin(), text.end(), [](wchar_t z) { return z < L' ' || z == 0x7F; }, L' ');
  return text;
}

Text HinterGleich(const Text& zeile) {
  const auto gleich = zeile.find(L'=');
  return gleich == Text::npos ? Text() : zeile.substr(gleich + 1);
}

// Returns the text that a line like "TTITLE4=..." adds to; the number behind the name selects it.
// The protocol counts from 0; a name without a number counts as 0.
Text& VonTrack(CDDBTexte& texte, const Text& zeile, std::size_t name) {
  const auto gleich = std::min(zeile.find(L'='), zeile.size());
  const double track = Runden(Val(zeile.substr(name, gleich - name))) + 1;
  return Element(texte, track >= 1 && track <= kCDDBMaxTracks ? Ganz64(track) : -1);
}

}  // namespace

// Returns false when the user cancelled.
bool clsCCd::AntwortLesen(const Text& antwort, const std::uint8_t& Status) {
  mTrackTitel = mTrackExt = mTrackInterpret = {};
  mExtD.clear();
  std::size_t anfang = 0;
  const auto naechsteZeile = [&] {
    const auto ende = std::min(antwort.find(kZeilenEnde, anfang), antwort.size());
    Text zeile = OhneSteuerzeichen(antwort.substr(anfang, ende - anfang));
    anfang = std::min(ende + 2, antwort.size());
    return zeile;
  };
  // "210 rock 0b012a02 ...": the code is ignored.
  const Text erste = naechsteZeile();
  mKategorie = erste.size() > 4 ? erste.substr(4, erste.find(L' ', 4) - 4) : Text();
  while (anfang < antwort.size()) {
    plattform_.schleife.DoEvents();
    if (Status == kCDDBAbbruch) return false;
    ZeileLesen(naechsteZeile());
  }
  mExtD = TextErsetzen(mExtD, L"\\n", kZeilenEnde);
  for (Text& text : mTrackExt) text = TextErsetzen(text, L"\\n", kZeilenEnde);
  return true;
}

void clsCCd::ZeileLesen(const Text& zeile) {
  const Text wert = HinterGleich(zeile);
  const auto trenner = wert.find(kTrenner);
  if (zeile.starts_with(L"DTITLE=")) {
    if (trenner == Text::npos) {
      throw Laufzeitfehler(kFehlerUngueltigerAufruf, L"Título de CD sin intérprete");
    }
    mInterpret = wert.substr(0, trenner);
    mTitel = wert.substr(trenner + 3);
  } else if (zeile.starts_with(L"TTITLE")) {
    Text& titel = VonTrack(mTrackTitel, zeile, 6);
    if (trenner == Text::npos) {
      titel += wert;
    } else {
      VonTrack(mTrackInterpret, zeile, 6) = wert.substr(0, trenner + 1);
      titel = wert.substr(trenner + 3);
    }
  } else if (zeile.starts_with(L"EXTT")) {
    VonTrack(mTrackExt, zeile, 4) += wert;
  } else if (zeile.starts_with(L"EXTD")) {
    mExtD += wert;
  }
}

void AkuteErsetzen(CDDBInfo& info) {
  const auto ersetzen = [](Text& text) { ZeichenErsetzen(text, L'´', L'\''); };
  for (Text* text : {&info.Interpret, &info.Titel, &info.ExtD}) ersetzen(*text);
  for (CDDBTexte* texte : {&info.TrackTitel, &info.TrackExt, &info.TrackInterpret}) {
    std::for_each(texte->begin(), texte->end(), ersetzen);
  }
}

}  // namespace vantora
