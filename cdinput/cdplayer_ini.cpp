// cdplayer.ini, the file in which the system's CD player keeps the discs that it knows. The program
// writes it for that player and never reads it.
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "cdinput/clsCCd.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr std::size_t kWertLaenge = 1000;  // characters; readers of such files cut longer values

// A text from a server must not begin a new line of the file.
Text AlsWert(Text text) {
  text.resize(std::min(text.size(), kWertLaenge));
  for (wchar_t& zeichen : text) {
    if (zeichen < L' ') zeichen = L' ';
  }
  return text;
}

}  // namespace

void CDPlayerIniSchreiben(Programm& prog, const Text& laufwerk, const CDDBInfo& info) {
  Text kennung;
  Weiter([&] { kennung = prog.plattform.mci.MediaIdentity(laufwerk); });
  if (kennung.empty()) return;  // without a disc there is no section to write
  const Text abschnitt = HexText(Val(kennung));
  const Text ordner = prog.plattform.profile.GetWindowsDirectory();
  const Text datei = ordner.substr(0, ordner.find(L'\0')) + L"\\cdplayer.ini";
  const auto schreibe = [&](const Text& schluessel, const Text& wert) {
    prog.plattform.profile.WritePrivateProfileString(abschnitt, schluessel, AlsWert(wert), datei);
  };
  const auto leer = [&](std::size_t track) {
    return info.TrackTitel[track].empty() && info.TrackInterpret[track].empty();
  };
  std::size_t anzahl = 0;
  while (anzahl < kCDDBMaxTracks && !leer(anzahl + 1)) ++anzahl;
  schreibe(L"EntryType", L"1");
  schreibe(L"numtracks", ZahlText(static_cast<std::int64_t>(anzahl)));
  schreibe(L"artist", info.Interpret);
  schreibe(L"title", info.Titel);
  for (std::size_t track = 1; track <= anzahl; ++track) {
    const Text& interpret = info.TrackInterpret[track];
    schreibe(
        ZahlText(static_cast<std::int64_t>(track) - 1),
        interpret.empty() ? info.TrackTitel[track] : interpret + L" - " + info.TrackTitel[track]);
  }
}

}  // namespace vantora
