// The course of a recording: the record button, the cuts by the level, the end of a take.

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "recorder/frmAufnehmen.h"

#include "platform/cd_sound.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vantora {

namespace {

constexpr const wchar_t* kOrt = L"Aufnahme:";
constexpr double kKnapperPlatz = 20971520;  // bytes; with less free space a recording stops
constexpr double kBytesJeMs = 176.4;
constexpr double kK = 1024;
constexpr int kAufnahmeStatusMs = 2000;
constexpr int kUnbemerktMs = 1000;  // sound that may be missing without being called lost
constexpr Color kHellrot = Rgb(255, 0, 0), kRot = Rgb(128, 0, 0), kAus = Rgb(40, 16, 24);

// Milliseconds of the system's counter, in 32 bits that wrap.
std::uint32_t Zaehler(std::int64_t ticks) {
  return static_cast<std::uint32_t>(ticks & 0xFFFFFFFF);
}

Text ZeitText(std::int64_t ms) {
  int stunden = 0, minuten = 0, sekunden = 0, frames = 0;
  MsNachHMSF(ms, stunden, minuten, sekunden, frames);
  return HMSFText(stunden, minuten, sekunden, frames);
}

}  // namespace

void frmAufnehmen::imgAufnehmen_MouseUp() {
  if (!MultiTrack) {
    if (AktuelleDatei.empty()) return imgNeueAufnahme_MouseUp();
    if (prog.DateiExistiert(AktuelleDatei)) return imgNeueAufnahme_MouseUp();
  } else {
    if (BasisName.empty()) GetMultiFileName();
    if (BasisName.empty()) return;
    WaveIn->CatchUp();
    Sitzung = true;
    LetzterPegel = Jetzt();
    AktuelleDatei = NaechsteMultiDatei();
  }
  tmrUmdrehen.Enabled = false;
  RecordStart();
}

void frmAufnehmen::Bedienbar(bool frei) {
  for (int i = 0; i < imgSliderKnopf.Count(); ++i) imgSliderKnopf(i).Enabled = frei;
  imgSliderKnopf(0).Enabled = frei && Eingang > 0;
  for (int i = 0; i < optInput.Count(); ++i) {
    optInput(i).Enabled = lbInputCaption(i).Enabled = frei;
  }
  optAuto.Enabled = frei && Eingang > 0;
  for (Control* control :
       std::initializer_list<Control*>{&optManuell, &txtMinPause, &txtMaxVolume, &cbxMultiTrack,
                                       &imgAufnahmeWiedergeben, &imgOkay, &imgAbbrechen}) {
    control->Enabled = frei;
  }
  cbxAutoTrennen.Enabled = frei && MultiTrack;
  cbxPauseAus.Enabled = frei && MultiTrack;
  imgNeueAufnahme.Enabled = frei || !MultiTrack;
}

// Begins a take in AktuelleDatei. If a buffer's handler calls it, the take begins with that buffer.
// During a take, the next take follows without a gap.
void frmAufnehmen::RecordStart() {
  const bool hoertSchon = NimmtAuf;
  if (NimmtAuf) TakeSchliessen();
  prog.plattform.schleife.MousePointer(Pointer::ArrowHourglass);
  lblPausenzeit.Caption = L"0";
  lblPausenzeit.Visible = true;
  Bedienbar(false);
  AktuelleDatei = prog.UNCAufLaufwerk(AktuelleDatei);
  if (AktuelleDatei.ends_with(L'\\')) AktuelleDatei.pop_back();
  WaveOUt->Wave.SetFileName(AktuelleDatei);
  ++AufnahmeZahl;
  Aufnahmen.resize(static_cast<std::size_t>(AufnahmeZahl) + 1);
  Aufnahmen.back() = {};
  Aufnahmen.back().Datei = AktuelleDatei;
  Aufnahmen.back().Interpret = LoadResString(2045);
  Aufnahmen.back().Titel = LoadResString(2046);
  RecKatalogShow();
  try {
    if (!hoertSchon) EingangOeffnen();
    tmrStatus.Interval = kAufnahmeStatusMs;
    tmrStatus.Enabled = true;
    AufnahmeStart = Jetzt();
    geschrieben_ = 0;
    verlustImTake_ = 0;
    imgAufnahmeBild.Picture = L"AUF_AUFNAHME_ON";
    imgAufnahmeBild.State = Lamp::On;
    Wartet = false;
    NimmtAuf = true;
    WachBleiben();
    tmrStatus_Timer();
    if (!NimmtAuf) return;  // the disk is full
    WaveIn->Start();
  } catch (const Laufzeitfehler& fehler) {
    TakeAbbrechen(FehlerText(fehler));
  }
}

void frmAufnehmen::EingangOeffnen() {
  WaveIn->Stop();
  WaveIn->Close();
  WaveIn->Mode = mStereo;
  WaveIn->BitLength = b16Bit;
  WaveIn->SampleRate = kSampleRate;
  WaveIn->Open();
}

std::uint32_t frmAufnehmen::Jetzt() const {
  // During a take the time of the sound counts. It is behind the clock, because buffers wait to be
  // handled.
  const bool imTake = imPuffer_ || NimmtAuf;
  return Zaehler(imTake ? WaveIn->BufferTicks() : prog.plattform.uhr.Ticks());
}

void frmAufnehmen::RecordStop() {
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  lblPausenzeit.Visible = false;
  WaveIn->Stop();
  WaveIn->Close();
  TakeSchliessen();
  tmrStatus.Enabled = false;
  imgAufnahmeBild.Picture = L"";
  imgAufnahmeBild.State = Lamp::Off;
  lblAufnahme.Visible = false;
  NimmtAuf = false;
  Wartet = false;
  Bedienbar(true);
  WachBleiben();
  schleife.MousePointer(Pointer::Normal);
}

// A sound server that has run out of room drops sound without an error, which shows only in the
// time. The clocks of card and machine differ too, by less than a thousandth.
void frmAufnehmen::VerlustSuchen() {
  if (geschrieben_ == 0) return;
  const std::int64_t ms = std::uint32_t{Jetzt() - AufnahmeStart};
  const std::int64_t fehlt = ms - GeschriebenMs() - verlustImTake_;
  if (fehlt > kUnbemerktMs + GanzDiv(ms, 1000)) Verlust(fehlt);
}

// Completes the file of the take.
void frmAufnehmen::TakeSchliessen() {
  VerlustSuchen();
  try {
    WaveOUt->Wave.Close();
  } catch (const Laufzeitfehler& fehler) {
    prog.AppLog(kOrt, ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung);
    Melden(FehlerText(fehler));
  }
  if (AufnahmeZahl == 0) return;
  KatalogEintrag& take = Aufnahmen.back();
  const Text datei = take.Datei.Getrimmt();
  if (!prog.DateiExistiert(datei)) return;
  Weiter([&] {
    take.DateiBytes = Ganz32(static_cast<double>(prog.plattform.dateien.FileLen(datei)));
  });
}

// Ends the wait for further takes.
void frmAufnehmen::SitzungBeenden() {
  Sitzung = false;
  Wartet = false;
  tmrUmdrehen.Enabled = false;
  WachBleiben();
}

void frmAufnehmen::imgRecordStop_MouseUp(int taste) {
  WaveIn->CatchUp();
  if (taste == kRightButton) {
    AufnahmeZahl = 0;
    Aufnahmen.resize(1);
    Aufnahmewahl = 0;
    lvwAufnehmen.ListItems.Clear();
  }
  Sitzung = false;
  if (NimmtAuf) RecordStop();
  SitzungBeenden();
  prog.Katalogfenster().PlayWaveNormal(L"");
  WaveOUt->Wave.SetFileName(L"");
  LetzterPegel = 0;
  LED.FillColor = kAus;
  EingangHoeren();
  VerlustMelden();
}

// If the input cannot be opened, the window stays open and usable, and shows the error.
bool frmAufnehmen::EingangHoeren() {
  try {
    WaveIn->Open();
    WaveIn->Start();
    return true;
  } catch (const Laufzeitfehler& fehler) {
    prog.AppLog(kOrt, ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung + L" " + fehler.Grund);
    Melden(FehlerText(fehler));
    BalkenLeeren();
    return false;
  }
}

std::int32_t frmAufnehmen::Summenpegel() const {
  return std::abs(Peak->PeakLeft()) + std::abs(Peak->PeakRight());
}

void frmAufnehmen::MMConnectorX1_OnTrigger() {
  imPuffer_ = true;
  verloren_ = false;
  Jedenfalls([&] { PufferPruefen(); }, [&] { imPuffer_ = false; });
}

void frmAufnehmen::PufferPruefen() {
  constexpr auto kPuffer = static_cast<std::int64_t>(kBufferBytes);
  if (NimmtAuf && !Wartet) ZeitZeigen();
  if (MultiTrack && Sitzung) PegelPruefen();
  if (!NimmtAuf) return;
  // The current buffer is written after this handler.
  if (geschrieben_ + kPuffer > GrenzeBytes) return TakeAbbrechen(LoadResString(30100));
  geschrieben_ += kPuffer;
}

void frmAufnehmen::ZeitZeigen() {
  const std::uint32_t ms = Jetzt() - AufnahmeStart;
  lblRecZeit.Caption = ZeitText(ms);
  lblRecSize.Caption = Format(ms * kBytesJeMs / kMB, L"0.00");
}

void frmAufnehmen::PegelPruefen() {
  const Ergebnis ergebnis = Puffer(Summenpegel(), Jetzt());
  switch (ergebnis.Was) {
    case Schritt::Ende:
      LED.FillColor = kHellrot;
      RecordStop();
      Wartet = true;
      LetzterPegel = 0;
      WaveOUt->Wave.SetFileName(L"");
      EingangHoeren();
      tmrUmdrehen.Restart();
      break;
    case Schritt::Laeuft:
      LED.FillColor = kRot;
      lblPausenzeit.Caption = ZahlText(ergebnis.StilleMs);
      Wartet = false;
      break;
    case Schritt::Beginn:
      LED.FillColor = kRot;
      AktuelleDatei = NaechsteMultiDatei();
      Wartet = false;
      tmrUmdrehen.Enabled = false;
      RecordStart();
      break;
    case Schritt::Nichts:
      break;
  }
}

// The sound recorded so far stays a complete file; the input is opened again if possible.
void frmAufnehmen::TakeAbbrechen(const Text& grund) {
  prog.AppLog(kOrt, AktuelleDatei + L" " + grund);
  Sitzung = false;
  if (NimmtAuf) {
    RecordStop();
  } else {
    Bedienbar(true);
  }
  SitzungBeenden();
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  Weiter([&] { WaveOUt->Wave.SetFileName(L""); });
  // A take without a file is removed from the list.
  if (AufnahmeZahl > 0 && !prog.DateiExistiert(Aufnahmen.back().Datei.Getrimmt())) {
    Aufnahmen.pop_back();
    --AufnahmeZahl;
    RecKatalogShow();
  }
  LED.FillColor = kAus;
  Weiter([&] {
    WaveIn->Open();
    WaveIn->Start();
  });
  Melden(grund);
  VerlustMelden();
}

// A device that disappears again before any sound came is reported only once.
void frmAufnehmen::EingangVerloren() {
  BalkenLeeren();
  const bool bekannt = std::exchange(verloren_, true);
  if (!bekannt || NimmtAuf || Sitzung) TakeAbbrechen(LoadResString(30101));
}

// ---- sound lost by the card ----

std::int64_t frmAufnehmen::GeschriebenMs() const {
  return GanzDiv(geschrieben_ * 10, 1764);
}

void frmAufnehmen::Verlust(std::int64_t ms) {
  const Text wo = NimmtAuf ? DateiNameOhnePfad(AktuelleDatei) + L" " + ZeitText(GeschriebenMs())
                           : LoadResString(30112);
  const Text zeile = wo + L": " + ZahlText(ms) + L" ms";
  prog.AppLog(kOrt, L"Overrun " + zeile);
  if (!NimmtAuf && !Sitzung) return;
  // Nobody knows whether the lost sound was silent, so its time is no part of a pause.
  const std::int64_t stille = std::uint32_t{Jetzt() - LetzterPegel};
  if (NimmtAuf) LetzterPegel += Zaehler(std::min(ms, stille));
  verlustMs_ += ms;
  verlustImTake_ += ms;
  verluste_.push_back(zeile);
}

void frmAufnehmen::VerlustMelden() {
  if (verluste_.empty()) return;
  const Text wieviel = ZahlText(static_cast<std::int64_t>(verluste_.size())) + L" / " +
                       ZahlText(verlustMs_) + L" ms.";
  Melden(LoadResString(30103) + wieviel + ZeilenListe(verluste_));
  verluste_.clear();
  verlustMs_ = 0;
}

// ---- timers ----

// Asks at most once as long as the window is open. The recording stays ready meanwhile.
void frmAufnehmen::tmrUmdrehen_Timer() {
  // If the window was busy, the next take may have begun in time, and even have ended.
  const int vorher = tmrUmdrehen.Starts;
  WaveIn->CatchUp();
  if (!tmrUmdrehen.Enabled || tmrUmdrehen.Starts != vorher) return;
  tmrUmdrehen.Enabled = false;
  if (prog.LPModus == 0 || Umgedreht) return;
  Umgedreht = true;
  Window.Enabled = false;
  const std::weak_ptr<int> lebt = lebt_;
  prog.MsgBoxen(LoadResString(2059), kOk);
  if (!lebt.expired()) Window.Enabled = true;
}

void frmAufnehmen::tmrStatus_Timer() {
  Text ordner = prog.Wave_Export_Dir;
  if (ordner.find(L"\\\\") != Text::npos) ordner = prog.UNCAufLaufwerk(ordner);
  if (prog.DateiExistiert(ordner)) laufwerk_ = Links(ordner, 3);
  const double frei = prog.FreierPlatz(laufwerk_);
  PlatzZeigen(frei);
  if (NimmtAuf) {
    lblAufnahme.Visible = !lblAufnahme.Visible();
    if (frei < kKnapperPlatz) return TakeAbbrechen(LoadResString(2043));
  }
  lblStatusanzeige.Caption = LoadResString(2200) + AktuelleDatei;
}

void frmAufnehmen::PlatzZeigen(double frei) {
  double wert = frei;
  Text einheit;
  for (const int nummer : {2600, 2601, 2602}) {
    if (wert < kK) break;
    wert /= kK;
    einheit = LoadResString(nummer);
  }
  lblMB.Caption = LoadResString(2603) + Format(wert, L"000.00") + L" " + einheit;
  const std::int64_t sekunden = Ganz64(frei / kBytesPerSecond);
  const auto zahl = [](std::int64_t n, const wchar_t* muster) {
    return Format(static_cast<double>(n), muster);
  };
  lblMinuten.Caption = LoadResString(2604) + zahl(GanzDiv(sekunden, 3600), L"00") + L":" +
                       zahl(GanzDiv(sekunden, 60) % 60, L"00") + L":" +
                       zahl(sekunden % 60, L"##00");
  const double gesamt = prog.plattform.laufwerke.GetDiskTotalBytes(laufwerk_).value_or(frei);
  const std::int32_t prozent = gesamt > 0 ? Ganz32(frei / gesamt * 100) : 0;
  if (prozent == freiProzent_) return;
  freiProzent_ = prozent;
  gauFreeHD.Percent = std::clamp(prozent, 0, 100);
  gauFreeHD.ToolTipText = LoadResString(2016) + L": " + ZahlText(prozent) + L" %";
  shpFreeHD.Width = gauFreeHD.Width * std::clamp(prozent, 0, 100) / 100;
}

}  // namespace vantora
