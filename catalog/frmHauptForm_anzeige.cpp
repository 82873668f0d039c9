// The list of the catalog, how it is rebuilt and repaired, and the preview.

#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "catalog/frmHauptForm.h"
#include "catalog/wave_pruefung.h"
#include "mixer/frmMixer.h"

#include "platform/cd_sound.h"

namespace vantora {

namespace {

constexpr Color kGruen = Rgb(0, 255, 0), kRot = Rgb(255, 0, 0);
constexpr double kKuerzesteLaengeMs = 2000.0;
constexpr std::int64_t kUeberLaengeMs = 4440001;  // a little over 74 minutes
constexpr std::int64_t kKnapperRestMs = 960000;   // 16 minutes, right after opening
constexpr std::int64_t kMsJeMinute = 60000;
constexpr int kLetzteMixerLinie = 4;
constexpr int kLeiserPegel = 4001, kHoerbarerPegel = 50;
constexpr int kAnlaufMs = 100;
constexpr std::int64_t kWerteJeSekunde = 88200;  // samples of both channels

}  // namespace

void frmHauptForm::KatalogNeu() {
  lvwKatalog.ListItems.Clear();
  lblKatalogTitel.Caption = LoadResString(8440);
  lblKatalogInterpret.Caption = LoadResString(8441);
  lblKatalogLaenge.Caption = L"00:00:00";
  if (!KatalogGeladen) lblKatalogDatei.Caption = L"";
  lblRestzeitCD.Caption = LoadResString(8071) + Format(prog.LängeCD * 100.0, L"00:00");
  lblRestzeitCD.ForeColor = kGruen;
  lblKatalogLaenge.ForeColor = kGruen;
}

void frmHauptForm::PauseBestimmen(int i) {
  const auto eintrag = [this](int n) -> KatalogEintrag& { return Element(prog.Katalog, n); };
  const int letzter = UBound(prog.Katalog);
  KatalogEintrag& e = eintrag(i);
  e.PauseSperre = L"";
  if (e.Ueberblendet == -1) {
    const std::int16_t pause = e.Pause;
    e.Pause = 0;
    e.PauseSperre = L"0";
    const bool endeDerKette = i < letzter && i >= 1 && eintrag(i - 1).Ueberblendet == -1 &&
                              eintrag(i + 1).Ueberblendet == 0;
    if (endeDerKette) {
      e.Pause = pause;
      e.PauseSperre = L"";
    }
  }
  if (i == letzter) e.PauseSperre = L"0";
}

// Takes over changes of the wave file since the record was written. The old length is compared with
// one computed from whole MB, so nearly every call reads the length again.
void frmHauptForm::DateiNachlesen(KatalogEintrag& e, const Text& datei, const WaveBefund& befund) {
  Weiter([&] {
    const std::int64_t bytes =
        befund.Gueltig ? befund.Bytes : prog.plattform.dateien.FileLen(datei);
    const std::int16_t mb = Ganz16(static_cast<double>(bytes) / kMB);
    if (mb != e.GroesseMB) e.GroesseMB = mb;
  });
  Weiter([&] {
    bool gleich = false;  // stays false for a text that is no number
    Weiter([&] { gleich = Abgeschnitten(Val(e.Laenge.Ganz())) == BytesNachMs(e.GroesseMB * kMB); });
    if (!gleich) {
      e.Laenge = ZahlText(befund.Gueltig ? befund.LaengeMs : WaveLaenge(*MMWaveFileX1, datei));
    }
  });
  Weiter([&] {
    const Text stempel =
        Trim(befund.Gueltig ? befund.Datum : prog.plattform.dateien.FileDateTime(datei));
    if (stempel != e.DateiDatum) e.DateiDatum = stempel;
  });
}

void frmHauptForm::ZeileFuellen(int i, const Text& datei, const WaveBefund& befund) {
  KatalogEintrag& e = Element(prog.Katalog, i);
  ListItem& zeile = lvwKatalog.ListItems(i);
  Weiter([&] { PauseBestimmen(i); });
  const bool existiert = befund.Gueltig || prog.DateiExistiert(datei);
  if (existiert) DateiNachlesen(e, datei, befund);
  const bool letzte = i == UBound(prog.Katalog);
  // The last column first, so that memory is allocated once.
  zeile.SetSubItems(8, LoadResString(existiert ? 2 : 3));
  zeile.SetSubItems(0, e.Ueberblendet == -1 ? L"X" : L" ");
  zeile.SetSubItems(1, Format(i, L"00"));
  zeile.SetSubItems(2, e.Titel.Getrimmt());
  zeile.SetSubItems(3, e.Interpret.Getrimmt());
  Weiter([&] { zeile.SetSubItems(4, MinutenText(Abgeschnitten(Val(e.Laenge.Ganz())))); });
  zeile.SetSubItems(5, ZahlText(e.GroesseMB) + L" " + LoadResString(7603));
  zeile.SetSubItems(6, (letzte ? L"0" : ZahlText(e.Pause)) + LoadResString(8442));
  zeile.SetSubItems(7, datei);
}

// Selects and removes the rows whose file can't be burnt; returns true when it removed any.
bool frmHauptForm::UngueltigeEntfernen(const std::vector<WaveBefund>& befunde) {
  bool gefunden = false;
  for (int i = 1; i <= UBound(prog.Katalog); ++i) {
    const KatalogEintrag& e = Element(prog.Katalog, i);
    bool brauchbar = befunde[static_cast<std::size_t>(i)].Gueltig;
    // A file whose edit is not finished looks damaged, but its row stays.
    if (!brauchbar && prog.plattform.edits.Needs(e.Datei.Getrimmt())) continue;
    brauchbar = brauchbar &&
                Weiter([&] { brauchbar = Val(e.Laenge.Ganz()) >= kKuerzesteLaengeMs; }) &&
                brauchbar;
    lvwKatalog.ListItems(i).SetSelected(!brauchbar);
    gefunden = gefunden || !brauchbar;
  }
  if (!gefunden) return false;
  KatalogAnzeigenInteraktiv = false;
  KatRowDelete();
  KatalogAnzeigenInteraktiv = true;
  return true;
}

void frmHauptForm::KatalogShow() {
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  std::vector<WaveBefund> befunde;  // each file is examined once, for its row and for the removal
  do {
    Weiter([&] { KatalogNeu(); });
    Text titel, interpret;
    const int anzahl = UBound(prog.Katalog);
    for (int i = 1; i <= anzahl; ++i) lvwKatalog.ListItems.Add();
    befunde.assign(1, WaveBefund{});
    for (int i = 1; i <= anzahl; ++i) {
      const Text datei = prog.Katalog[static_cast<std::size_t>(i)].Datei.Getrimmt();
      if (prog.plattform.edits.Needs(datei)) Weiter([&] { prog.plattform.edits.Ready(datei); });
      befunde.push_back(WavePruefen(prog.plattform, *MMWaveFileX1, datei));
      Weiter([&] { ZeileFuellen(i, datei, befunde.back()); });
    }
    // The last track, or record 0 of an empty catalog.
    const KatalogEintrag& quelle = prog.Katalog.back();
    titel = quelle.KatalogTitel.Getrimmt();
    interpret = quelle.KatalogInterpret.Getrimmt();
    if (anzahl == 0 || !titel.empty()) lblKatalogTitel.Caption = titel;
    if (anzahl == 0 || !interpret.empty()) lblKatalogInterpret.Caption = interpret;
    if (!KatalogGeladen) lblKatalogDatei.Caption = prog.KatalogDatei;
    KatalogGeladen = false;
  } while (UngueltigeEntfernen(befunde));

  std::int64_t gesamt = 0;
  Weiter([&] {
    Text text;
    gesamt = KatalogLaengeBerechnen(text);
    lblKatalogLaenge.Caption = text;
  });
  prog.KatalogUeberLaenge = gesamt >= kUeberLaengeMs;
  const std::int64_t erlaubt = prog.LängeCD * kMsJeMinute;
  RestzeitZeigen(erlaubt - gesamt, gesamt <= erlaubt);
  schleife.MousePointer(Pointer::Normal);
  const bool gewaehlt = AktuellerTitel > 0 && AktuellerTitel <= lvwKatalog.ListItems.Count();
  if (gewaehlt) lvwKatalog.ListItems(AktuellerTitel).SetSelected(true);
}

void frmHauptForm::RestzeitZeigen(std::int64_t restMs, bool gruen) {
  lblRestzeitCD.ForeColor = gruen ? kGruen : kRot;
  lblKatalogLaenge.ForeColor = lblRestzeitCD.ForeColor;
  lblRestzeitCD.Caption = LoadResString(8071) + RestText(restMs);
}

// Right after opening, the remaining time is already shown as short when less than 16 minutes
// remain.
void frmHauptForm::ZeigeLaengeNachOeffnen() {
  Text text;
  const std::int64_t gesamt = KatalogLaengeBerechnen(text);
  lblKatalogLaenge.Caption = text;
  const std::int64_t rest = prog.LängeCD * kMsJeMinute - gesamt;
  RestzeitZeigen(rest, rest >= kKnapperRestMs);
  ObInZeitGrenzen(gesamt);
}

// The user is asked when the mixer would make the preview inaudible.
void frmHauptForm::MixerFragen() {
  vantora::frmMixer& mixer = prog.frmMixer();
  for (int i = 1; i <= kLetzteMixerLinie; ++i) {
    ucEQPro& linie = mixer.M(i);
    if (!Enthaelt(Ucase(linie.LineName()), L"WAV")) continue;
    if (linie.Mute() && prog.MsgBoxen(LoadResString(27000), kJaNein) == kJa) linie.SetMute(false);
    const bool leise =
        linie.Volume() < kLeiserPegel && prog.MsgBoxen(LoadResString(27001), kJaNein) == kJa;
    // Setting a fader's value also sends its mute box to the sound card, so the box is set first.
    mixer.Fader(i).Mute = linie.Mute() ? 1 : 0;
    if (leise) mixer.Fader(i).Value = kHoerbarerPegel;
    return;
  }
}

void frmHauptForm::PlayWaveNormal(const Text& datei) {
  if (!datei.empty() && prog.frmMixer.Geladen()) MixerFragen();
  const bool existiert = prog.DateiExistiert(datei);
  const Text endung = Ucase(Rechts(datei, 4));
  if (!existiert) {
    Level.Active = false;
    // The meter is switched on again when the window gets the focus next.
    Level.PeakLeft = Level.PeakRight = 0;
    WavePlayer->Stop();
  } else {
    Level.Active = true;
    if (Soundkarte && (endung == L".WAV" || endung == L".DAT")) {
      WavePlayer->Stop();
      WavePlayer->SetFileName(datei);
      prog.plattform.schleife.Sleep(kAnlaufMs);
      WavePlayer->Start();
    }
  }
  prog.Log.AktuelleDatei = datei;
}

void frmHauptForm::PlayWaveMitte(const Text& datei, std::int32_t sekunden) {
  WavePlayer->Stop();
  if (!prog.DateiExistiert(datei) || !Soundkarte) return;
  MMWaveFileX1->Open(datei);
  const std::int64_t mitte = GanzDiv(MMWaveFileX1->DataBytes(), 2);
  MMWaveFileX1->Close();
  WavePlayer->SetFileName(datei);
  if (mitte >= sekunden * kWerteJeSekunde) WavePlayer->SetPosition(mitte - mitte % kFrameBytes);
  Level.Active = true;
  WavePlayer->Start();
}

}  // namespace vantora
