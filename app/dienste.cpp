#include "app/dienste.h"

#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include "platform/plattform.h"

#include <initializer_list>

namespace vantora {

namespace {

constexpr int kWarteSchrittMs = 50;

// At least two digits for each number, with colons between them. A recording makes so many times
// that the general Format takes too long; they are never negative.
Text MitDoppelpunkten(std::initializer_list<int> zahlen) {
  Text zeit;
  for (const int zahl : zahlen) {
    if (!zeit.empty()) zeit += L':';
    if (zahl > 99) {
      zeit += std::to_wstring(zahl);
    } else {
      zeit += {static_cast<wchar_t>(L'0' + zahl / 10), static_cast<wchar_t>(L'0' + zahl % 10)};
    }
  }
  return zeit;
}

Text Uhrzeit(const DateTime& jetzt) {
  return MitDoppelpunkten({jetzt.Hour, jetzt.Minute, jetzt.Second});
}

}  // namespace

Text Dienste::Text(int nummer) const {
  return plattform.ressourcen.LoadResString(nummer);
}

void Dienste::AppLog(vantora::Text wo, const vantora::Text& was, int modus) {
  if (!LogAktiv) return;
  const vantora::Text pfad =
      AddBackslash(plattform.system.Path()) + plattform.system.ExeName() + L".APL";
  if (Ucase(wo) == L"HEADER") {
    if (DateiExistiert(pfad)) plattform.dateien.Kill(pfad);
    wo = L"Vantora, traza de la aplicación: Quillmark - VTR\r\n";
  }
  vantora::Text zeile;
  if (modus == -1) zeile = Uhrzeit(plattform.uhr.Now()) + L" : " + wo + L" > " + was;
  if (modus == 0) {
    Log.LogZaehler = Ganz16(Log.LogZaehler + 1.0);
    zeile = Format(Log.LogZaehler, L"0000") + L" : " + wo + L" > " + was;
  }
  zeile += kZeilenEnde;
  std::string bytes;
  for (const wchar_t zeichen : zeile) bytes += static_cast<char>(ByteIn1252(zeichen));
  plattform.dateien.Open(pfad, Zugriff::Anhaengen)->Write(bytes.data(), bytes.size());
}

bool Dienste::DateiExistiert(const vantora::Text& name) const {
  vantora::Text pfad = Trim(name);
  if (pfad.empty()) return false;
  if (Enthaelt(pfad, L".")) {
    if (pfad.back() == L'\\') pfad.pop_back();
    return Weiter([&] { plattform.dateien.FileLen(pfad); });
  }
  if (pfad.size() > 3 && pfad.back() == L'\\') pfad.pop_back();
  return plattform.dateien.IsDirectory(pfad);
}

double Dienste::FreierPlatz(const vantora::Text& pfad) const {
  return plattform.laufwerke.GetDiskFreeSpaceEx(pfad).value_or(kPlatzUnbekannt);
}

void Dienste::LaufwerkListe(std::vector<LaufwerkEintrag>& liste) const {
  liste.clear();
  const vantora::Text buchstaben = plattform.laufwerke.GetLogicalDrives();
  for (wchar_t buchstabe = L'A'; buchstabe <= L'Z'; ++buchstabe) {
    if (buchstaben.find(buchstabe) == vantora::Text::npos) continue;
    const vantora::Text wurzel = vantora::Text(1, buchstabe) + L":\\";
    const int klasse = plattform.laufwerke.GetDriveType(wurzel);
    liste.push_back({wurzel, klasse, wurzel + LaufwerkText(klasse)});
  }
}

vantora::Text Dienste::UNCAufLaufwerk(const vantora::Text& pfad) const {
  if (!Enthaelt(pfad, L"\\\\")) return pfad;
  for (wchar_t buchstabe = L'A'; buchstabe <= L'Z'; ++buchstabe) {
    const vantora::Text netz = plattform.laufwerke.NetworkPath(buchstabe);
    if (netz.empty() || netz == L"Drive Letter Not Found") continue;
    if (!Ucase(pfad).starts_with(Ucase(netz))) continue;
    vantora::Text rest = pfad.substr(netz.size());
    if (rest.empty() || rest.front() != L'\\') rest.insert(0, L"\\");
    return vantora::Text(1, buchstabe) + L":" + rest;
  }
  return pfad;
}

vantora::Text Dienste::DateiVersion(const vantora::Text& pfad) const {
  return plattform.system.FileVersion(pfad);
}

std::int32_t Dienste::WaveGeraete(std::vector<vantora::Text>& namen) const {
  namen.clear();
  const int anzahl = plattform.mmtools.waveOutGetNumDevs();
  for (int i = 0; i < anzahl; ++i) namen.push_back(plattform.mmtools.waveOutGetDevCaps(i));
  return anzahl;
}

void Dienste::CDPlayerSchliessen() const {
  while (plattform.system.CloseCdPlayer()) {
  }
}

bool Dienste::Warten(double sekunden) {
  const std::int64_t ende = plattform.uhr.Ticks() + Ganz64(sekunden * 1000);
  while (!JobAbbruch && plattform.uhr.Ticks() < ende) {
    plattform.schleife.DoEvents();
    plattform.schleife.Sleep(kWarteSchrittMs);
  }
  plattform.schleife.DoEvents();
  return !JobAbbruch;
}

Text LaufwerkText(int klasse) {
  static const wchar_t* const kKlassen[] = {
      L"nicht erkannt]",
      L"hat kein Hauptverzeichnis]",
      L"ist austauschbar (Diskette, ZIP, ...)]",
      L"ist fixiert (Festplatte)]",
      L"ist ein Netzwerklaufwerk]",
      L"ist eine CD-ROM]",
      L"ist eine RAM-Disk]",
  };
  const bool bekannt = klasse >= 0 && klasse < static_cast<int>(std::size(kKlassen));
  return Text(L"\t[Datenträger ") + kKlassen[bekannt ? klasse : 0];
}

Text AddBackslash(const Text& pfad) {
  return Endet(pfad, L"\\") ? pfad : pfad + L"\\";
}

Text DateiNameOhnePfad(const Text& pfad) {
  const std::size_t stelle = pfad.rfind(L'\\');
  return stelle == Text::npos ? Text() : pfad.substr(stelle + 1);
}

void ExtensionSicher(Text& name, Text endung) {
  if (!endung.starts_with(L".")) endung.insert(0, L".");
  if (!Enthaelt(Ucase(name), Ucase(endung))) name += endung;
}

void ZeichenErsetzen(Text& text, wchar_t alt, wchar_t neu) {
  for (wchar_t& zeichen : text) {
    if (zeichen == alt) zeichen = neu;
  }
}

Text TextErsetzen(const Text& text, const Text& was, const Text& mit) {
  if (was.empty()) return text;
  Text ergebnis;
  std::size_t anfang = 0;
  for (std::size_t stelle = text.find(was); stelle != Text::npos; stelle = text.find(was, anfang)) {
    ergebnis += text.substr(anfang, stelle - anfang) + mit;
    anfang = stelle + was.size();
  }
  return ergebnis + text.substr(anfang);
}

Text Split(const Text& text, const Text& trenner, std::vector<Text>& teile) {
  teile.clear();
  std::size_t anfang = 0;
  for (std::size_t stelle = text.find(trenner); stelle != Text::npos && !trenner.empty();
       stelle = text.find(trenner, anfang)) {
    teile.push_back(text.substr(anfang, stelle - anfang));
    anfang = stelle + trenner.size();
  }
  teile.push_back(text.substr(anfang));
  return teile.back();
}

Text ZeilenListe(const std::vector<Text>& zeilen) {
  constexpr std::size_t kPlatz = 8;
  Text liste;
  for (std::size_t i = 0; i < std::min(zeilen.size(), kPlatz); ++i)
    liste += kZeilenEnde + zeilen[i];
  return zeilen.size() > kPlatz ? liste + L"\r\n\u2026" : liste;
}

bool DateiNameGueltig(const Text& name) {
  return !name.empty() && name.front() != L'.' && name.find_first_of(L"*\\/:?<>|") == Text::npos;
}

bool NurZiffern(int taste) {
  constexpr int kReturn = 13, kRueck = 8, kEscape = 27;
  if (taste == kReturn || taste == kRueck || taste == kEscape) return true;
  return Text(L"1234567890.-").find(static_cast<wchar_t>(taste)) != Text::npos;
}

std::int32_t BytesNachMs(double bytes) {
  return Ganz32(bytes / 176.4);
}

void MsNachHMSF(std::int64_t ms, int& stunden, int& minuten, int& sekunden, int& frames) {
  frames = static_cast<int>(GanzDiv(ms, 25) % 25);
  sekunden = static_cast<int>(GanzDiv(ms, 1000) % 60);
  minuten = static_cast<int>(GanzDiv(GanzDiv(ms, 1000), 60) % 60);
  stunden = static_cast<int>(GanzDiv(GanzDiv(GanzDiv(ms, 1000), 60), 60) % 60);
}

Text HMSFText(int stunden, int minuten, int sekunden, int frames) {
  return MitDoppelpunkten({stunden, minuten, sekunden, frames});
}

Text MinutenText(std::int64_t ms) {
  int stunden = 0, minuten = 0, sekunden = 0, frames = 0;
  MsNachHMSF(ms, stunden, minuten, sekunden, frames);
  return Format(minuten, L"00") + L":" + Format(sekunden, L"00");
}

Text RestText(std::int64_t ms) {
  const std::int64_t betrag = ms < 0 ? -ms : ms;
  const auto minuten = static_cast<double>(GanzDiv(betrag, 60000));
  const auto sekunden = static_cast<double>(GanzDiv(betrag, 1000) % 60);
  return (ms < 0 ? L"-" : L"") + Format(minuten, L"##00") + L":" + Format(sekunden, L"##00");
}

}  // namespace vantora
