// The burn run: from the catalog to one or more discs. A statement that fails is skipped, and the
// run goes on with the next one: a half-written disc in the drive must be finished in spite of
// other errors.

#include "app/frmKomponenten.h"
#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdwriting/frmCDBrennen.h"
#include "cdwriting/frmSchreibFortschritt.h"
#include "cdwriting/pausen.h"
#include "mixer/frmMixer.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kOrt = L"BurnCD";
constexpr int kEinlegeMs = 2500;  // until the drive has noticed its disc
constexpr int kWarteMs = 750;
constexpr int kMethodeVerweigert = -1;
constexpr std::size_t kMeisteTracks = 99;
constexpr std::size_t kMeisteZeilen = 10;  // of tracks in a message
constexpr int kKeinText = 400;             // a number that the string table does not have

Text FlaggeText(bool flagge) {
  return flagge ? L"True" : L"False";
}

}  // namespace

void frmCDBrennen::Spur(const Text& text) {
  Weiter([&] { prog.AppLog(kOrt, text); });
}

void frmCDBrennen::Melde(const Text& text) {
  Weiter([&] { prog.MsgBoxen(text, kOk, LoadResString(0)); });
}

void frmCDBrennen::Auskunft(const Text& text) {
  Weiter([&] { prog.MsgBoxen(text, kAuskunft, LoadResString(0)); });
}

void frmCDBrennen::Gelungen(const Text& text) {
  Weiter([&] { prog.MsgBoxen(text, kErfolg, LoadResString(0)); });
}

bool frmCDBrennen::Frage(const Text& text) {
  bool ja = false;
  Weiter([&] { ja = prog.MsgBoxen(text, kJaNein, LoadResString(0)) == kJa; });
  return ja;
}

void frmCDBrennen::Zeiger(const wchar_t* datei) {
  const Text pfad = AddBackslash(prog.AppPfad) + datei;
  prog.plattform.bildschirm.SetSystemCursor(L"");
  if (prog.DateiExistiert(pfad)) prog.plattform.bildschirm.SetSystemCursor(pfad);
}

void frmCDBrennen::BurnCD() {
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  Spur(L"Check Copies");
  Weiter([&] { KopienAnzahl = Ganz16(Val(txtKopienAnzahl.Text)); });
  KopieNr = 1;
  eingetragen_ = false;
  lblAblage.Caption = L"";  // the place of an older image does not belong to this burn
  Danach danach = Danach::NaechsteKopie;
  while (danach == Danach::NaechsteKopie) {
    PassVorbereiten();
    // The drive of this pass may only have the method that writes pauses itself.
    if (!ModusDAO) Weiter([&] { PausenEntfernen(prog); });
    const bool bereit = TracksAnmelden() && AufDiscWarten();
    if (bereit) {
      LaufwerkBestimmen();
      FortschrittZeigen();
      const int ergebnis = SchreibenStarten();
      if (ergebnis == 0) {
        AufEndeWarten();
      } else {
        StartFehlerMelden(ergebnis);
      }
    } else {
      komponenten.Abgebrochen = true;
    }
    danach = NachDemBrennen();
  }
  if (danach == Danach::Schluss) {
    Aufraeumen();
  } else {
    Weiter([&] { PausenBehalten(prog); });
  }
}

void frmCDBrennen::PassVorbereiten() {
  Spur(L"Burnprocess Nr:" + ZahlText(KopieNr));
  prog.frmKomponenten().Abgebrochen = false;
  Weiter([&] { Init_Brenner(); });
  Weiter([&] { prog.SaveExtrasSet(); });
  ModusDAO = optDiscAtOnce.Value();
  ModusTAO = optTrackAtOnce.Value();
  Weiter([&] { SaveSetting(prog.plattform, L"WriteDAO", FlaggeText(ModusDAO)); });
  Weiter([&] { SaveSetting(prog.plattform, L"WriteTAO", FlaggeText(ModusTAO)); });
  if (!Simulation || KopienAnzahl == 0) return;
  txtKopienAnzahl.Text = L"1";
  Weiter([&] { KopienAnzahl = Ganz16(Val(txtKopienAnzahl.Text)); });
  Weiter([&] { SaveSetting(prog.plattform, L"Copies", ZahlText(KopienAnzahl)); });
}

bool frmCDBrennen::TracksAnmelden() {
  for (std::size_t i = 1; i < prog.BrennDateien.size(); ++i) {
    const Text& datei = prog.BrennDateien[i];
    int ergebnis = 0;
    Weiter([&] { ergebnis = prog.plattform.mcd.AddTrack(datei, 0); });
    Spur(L"AddTrack:" + datei + L" >> Result : " + ZahlText(ergebnis));
    if (ergebnis == 0) continue;
    prog.frmKomponenten().Abgebrochen = true;
    const bool zuViele = i > kMeisteTracks;
    Melde(LoadResString(4005) + kZeilenEnde + datei +
          (zuViele ? kZeilenEnde + LoadResString(30137) : Text()));
    return false;
  }
  Weiter([&] { CdTextAnmelden(); });
  return true;
}

void frmCDBrennen::CdTextAnmelden() {
  Mcd& mcd = prog.plattform.mcd;
  const KatalogDienst& haupt = prog.Katalogfenster();
  mcd.CdText(0, Trim(haupt.KatalogTitel()), Trim(haupt.KatalogInterpret()));
  for (std::size_t i = 1; i < prog.BrennDateien.size() && i < prog.Katalog.size(); ++i) {
    const KatalogEintrag& e = prog.Katalog[i];
    mcd.CdText(static_cast<int>(i), e.Titel.Getrimmt(), e.Interpret.Getrimmt());
  }
}

// Asks for a blank disc until one is there or the user gives up.
bool frmCDBrennen::AufDiscWarten() {
  EventLoop& schleife = prog.plattform.schleife;
  Mcd& mcd = prog.plattform.mcd;
  for (;;) {
    meldung_ = LoadResString(prog.KatalogUeberLaenge ? 4020 : 4006);
    prog.KatalogUeberLaenge ? Melde(meldung_) : Auskunft(meldung_);
    Window.Enabled = false;
    schleife.MousePointer(Pointer::Hourglass);
    prog.Pausieren(kEinlegeMs);
    Window.Enabled = true;
    schleife.MousePointer(Pointer::Normal);
    bool bereit = false;
    Weiter([&] { Spur(L"CheckIfBurnerOK:" + FlaggeText(mcd.CheckIfBurnerOK())); });
    Weiter([&] { bereit = mcd.CheckIfBurnerOK(); });
    if (bereit) return true;
    meldung_ = LoadResString(4007) + kZeilenEnde + LoadResString(4008);
    if (Frage(meldung_)) return false;
  }
}

void frmCDBrennen::LaufwerkBestimmen() {
  Spur(L"Get Drive Letter");
  const int index = lstCDRecorder.ListIndex;
  Spur(L"GettingTargetID(Step0):" + ZahlText(index));
  Text beschreibung;
  Weiter([&] { beschreibung = prog.plattform.mcd.GetDescription(Geraet(index)); });
  Spur(L"GettingTargetID(Step1):" + beschreibung);
  std::vector<Text> felder;
  Split(beschreibung, L"\t", felder);
  felder.resize(4);
  Text ziel, buchstabe;
  Weiter([&] { ziel = felder[3].empty() ? Text() : ZahlText(Val(felder[3])); });
  Weiter([&] {
    buchstabe = Trim(prog.frmKomponenten().SCSILaufwerkSuchen(Trim(felder[1]), ziel, L"0"));
  });
  prog.frmKomponenten().BrennerLaufwerk = buchstabe + L":\\";
  Spur(L"DriveLetter:" + buchstabe);
}

void frmCDBrennen::FortschrittZeigen() {
  Window.Enabled = false;
  prog.FortschrittModus = kModusBrennen;
  Weiter([&] {
    const std::shared_ptr<vantora::frmSchreibFortschritt> f = prog.frmSchreibFortschritt.Laden();
    prog.Zeigen(*f);
    f->lblSonstiges.Caption = LoadResString(4215) + ZahlText(KopieNr);
  });
  Weiter([&] { Zeiger(L"CD Laser.ani"); });
  prog.plattform.schleife.MousePointer(Pointer::Hourglass);
  Weiter([&] { prog.plattform.mcd.SetBurnMode(1); });
}

int frmCDBrennen::SchreibenStarten() {
  Mcd& mcd = prog.plattform.mcd;
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  komponenten.AktTrack = 0;
  komponenten.Abweichungen.clear();
  komponenten.AngezeigterTrack = 0;
  int ergebnis = 0;
  f.lblInsgKopie.Caption = LoadResString(4216);
  if (ModusDAO) {
    f.shpAktKopie.Visible = false;
    f.lblAktKopie.Visible = false;
    if (Simulation) {
      Weiter([&] { ergebnis = mcd.WriteTAO(); });
      Spur(L"Test DAO -> Simulation TAO Result:" + ZahlText(ergebnis));
    } else {
      Weiter([&] { ergebnis = mcd.WriteDAO(); });
      Spur(L"WriteDAO Result:" + ZahlText(ergebnis));
    }
  } else {
    f.lblAktKopie.Caption = LoadResString(4217);
    f.lblKopieTrackNr.Caption = LoadResString(4218);
    f.lblKopieNr.Caption = LoadResString(4218);
    f.lblKopieInsgAnz.Caption =
        LoadResString(4219) + ZahlText(static_cast<std::int64_t>(prog.BrennDateien.size()) - 1);
    Weiter([&] { ergebnis = mcd.WriteTAO(); });
    Spur(L"WriteTAO Result:" + ZahlText(ergebnis));
  }
  return ergebnis;
}

// The table has no text for a failed start, so the last message is shown again; only a refused
// method adds a sentence.
void frmCDBrennen::StartFehlerMelden(int ergebnis) {
  prog.frmKomponenten().Abgebrochen = true;
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  Weiter([&] { meldung_ = LoadResString(kKeinText) + kZeilenEnde + ZahlText(ergebnis); });
  if (ModusDAO && ergebnis == kMethodeVerweigert) {
    Spur(L"WriteDAO Fehler:" + ZahlText(ergebnis));
    Weiter([&] { meldung_ += LoadResString(Simulation ? 4011 : 4010); });
  } else {
    Spur(L"WriteTAO Fehler:" + ZahlText(ergebnis));
  }
  Melde(meldung_);
}

void frmCDBrennen::AufEndeWarten() {
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  komponenten.BrennLaeuft = true;
  komponenten.Abgebrochen = false;
  Weiter([&] { prog.frmMixer().tmrGetWinMixerData.Enabled = false; });
  prog.BurnStartZeit = static_cast<float>(prog.plattform.uhr.Timer());
  prog.TrackStartZeit = prog.BurnStartZeit;
  // The disc would be spoilt if the computer went to sleep.
  const std::unique_ptr<Inhibition> wach = prog.plattform.wachhalter.Inhibit(Caption);
  // As soon as the write has ended, the loop ends without processing further events: the disc is
  // finished, so a cancel pressed now would be too late.
  while (komponenten.BrennLaeuft) {
    Weiter([&] { prog.Pausieren(kWarteMs, komponenten.BrennLaeuft); });
  }
}

frmCDBrennen::Danach frmCDBrennen::NachDemBrennen() {
  EventLoop& schleife = prog.plattform.schleife;
  vantora::frmKomponenten& komponenten = prog.frmKomponenten();
  Spur(L"After_Burn Unloading");
  Weiter([&] { prog.frmSchreibFortschritt.Entladen(); });
  schleife.MousePointer(Pointer::Normal);
  Window.Enabled = true;
  Weiter([&] { prog.plattform.mcd.SetBurnMode(0); });
  Weiter([&] { prog.plattform.mcd.ResetBurner(); });
  ProtokollSchreiben();
  if (komponenten.Abgebrochen) {
    Melde(LoadResString(4017) + kZeilenEnde);
    Weiter([&] { prog.plattform.mcd.ResetBurner(); });
    komponenten.BrennLaeuft = false;
    Weiter([&] { Zeiger(L"hourglas.ani"); });
    schleife.MousePointer(Pointer::Normal);
    return Danach::Fenster;
  }
  if (Simulation) {
    Gelungen(kZeilenEnde + LoadResString(4016));
    return Danach::Fenster;
  }
  if (prog.Auto_Database == 1 || Frage(LoadResString(5000))) Weiter([&] { DBEintrag(); });
  ++prog.Number_Burned_CD;
  Weiter([&] { prog.SaveExtrasSet(); });
  Weiter([&] { AblageZeigen(); });
  ErgebnisMelden();
  return WeitereKopie();
}

// A disc with differences stays as it is: the user decides whether it is good enough.
void frmCDBrennen::ErgebnisMelden() {
  const auto& abweichungen = prog.frmKomponenten().Abweichungen;
  if (abweichungen.empty()) return Gelungen(LoadResString(4012));
  const auto ungelesen =
      std::count_if(abweichungen.begin(), abweichungen.end(),
                    [](const auto& abweichung) { return abweichung.second == kMcdVerifyFailed; });
  const bool nichts = ungelesen + 1 == static_cast<std::ptrdiff_t>(prog.BrennDateien.size());
  if (abweichungen.front().first == 0 || nichts) return Melde(LoadResString(30131));
  Text text = LoadResString(30130);
  for (std::size_t i = 0; i < abweichungen.size(); ++i) {
    if (i == kMeisteZeilen) {
      text += Text(kZeilenEnde) + L"...";
      break;
    }
    const int track = abweichungen[i].first, befund = abweichungen[i].second;
    text += kZeilenEnde + ZahlText(track) + L". ";
    Weiter([&] { text += Element(prog.Katalog, track).Titel.Getrimmt(); });
    if (befund == kMcdVerifyFailed) text += LoadResString(30132);
  }
  Melde(text);
}

frmCDBrennen::Danach frmCDBrennen::WeitereKopie() {
  ++KopieNr;
  if (KopieNr <= KopienAnzahl) {
    Auskunft(LoadResString(4013) + ZahlText(KopieNr) + LoadResString(4014) +
             ZahlText(KopienAnzahl) + LoadResString(4015));
    return Danach::NaechsteKopie;
  }
  if (!Frage(LoadResString(4018) + kZeilenEnde + LoadResString(4019))) return Danach::Schluss;
  Weiter([&] { prog.plattform.mcd.ResetBurner(); });
  KopieNr = 1;
  return Danach::NaechsteKopie;
}

void frmCDBrennen::ProtokollSchreiben() {
  if (prog.Auto_Save_Log != 1) return;
  const Text pfad = AddBackslash(prog.AppPfad) + LoadResString(4600);
  const std::size_t dateien = prog.BrennDateien.empty() ? 0 : prog.BrennDateien.size() - 1;
  Spur(L"Write protocol file " + pfad);
  Text block = L"--------------------------------------------------\r\n";
  const DateTime jetzt = prog.plattform.uhr.Now();
  block += Format(jetzt.Day, L"00") + L"/" + Format(jetzt.Month, L"00") + L"/" +
           Format(jetzt.Year, L"0000") + L" " + Format(jetzt.Hour, L"00") + L":" +
           Format(jetzt.Minute, L"00") + L":" + Format(jetzt.Second, L"00") + kZeilenEnde;
  block += Text(kZeilenEnde) + kZeilenEnde;
  Spur(L"Files 4 protocol" + ZahlText(static_cast<std::int64_t>(dateien)));
  for (std::size_t i = 1; i <= dateien; ++i) {
    block += Format(static_cast<double>(i), L"00") + L". " + prog.BrennDateien[i] + kZeilenEnde;
  }
  block += Text(kZeilenEnde) + kZeilenEnde;
  block += LoadResString(4602) + L" " + (ModusDAO ? L"DAO" : L"TAO") + kZeilenEnde;
  block +=
      (Simulation ? LoadResString(4606) : LoadResString(4601) + L": " + ZahlText(KopienAnzahl)) +
      kZeilenEnde;
  block += LoadResString(4603) + L": " +
           LoadResString(prog.frmKomponenten().Abgebrochen ? 4605 : 4604) + kZeilenEnde;
  Weiter([&] {
    std::string bytes;
    for (const wchar_t zeichen : block) bytes += static_cast<char>(ByteIn1252(zeichen));
    prog.plattform.dateien.Open(pfad, Zugriff::Anhaengen)->Write(bytes.data(), bytes.size());
  });
  Spur(L"Write protocol file " + pfad + L"written.");
}

void frmCDBrennen::Aufraeumen() {
  EventLoop& schleife = prog.plattform.schleife;
  schleife.MousePointer(Pointer::Hourglass);
  prog.Katalogfenster().FreiSetzen(true);
  if (optDiscAtOnce.Value() && chkSimulation.Value == 0) Weiter([&] { PausenEntfernen(prog); });
  // The waves are deleted only now, because all further copies are burnt from them.
  if (eingetragen_) DeleteTempWavs();
  schleife.MousePointer(Pointer::Normal);
  prog.frmCDBrennen.Entladen();
  prog.Katalogfenster().FokusAufListe();
}

void frmCDBrennen::DBEintrag() {
  const wchar_t* const kDatei = L"qmaudio.ini";
  Profile& profile = prog.plattform.profile;
  std::vector<Text> interpreten, titel;
  std::vector<std::int32_t> laengen;
  Text katalogTitel, katalogInterpret;
  Weiter([&] {
    prog.Katalogfenster().GetKatInfos(interpreten, titel, laengen, katalogTitel, katalogInterpret);
  });
  Spur(L"Get Old Disk ID");
  Text kennung;
  Weiter(
      [&] { kennung = prog.plattform.mci.WrittenIdentity(prog.frmKomponenten().BrennerLaufwerk); });
  const Text schluessel = kennung.empty() ? Text() : HexText(Val(kennung));
  Spur(L"OldDiskIDResult:" + schluessel);
  Spur(L"Write profile String");
  const std::size_t anzahl = prog.BrennDateien.size() - 1;
  const auto schreibe = [&](const Text& name, const Text& wert) {
    Weiter([&] { profile.WritePrivateProfileString(schluessel, name, wert, kDatei); });
  };
  schreibe(L"artist", katalogInterpret);
  schreibe(L"title", katalogTitel);
  schreibe(L"numtracks", ZahlText(static_cast<std::int64_t>(anzahl)));
  Spur(L"Calculate track loops");
  std::int16_t summe = 0;
  for (std::size_t i = 1; i <= anzahl && i < laengen.size(); ++i) {
    schreibe(ZahlText(static_cast<std::int64_t>(i) - 1),
             Trim(interpreten[i]) + L";" + Trim(titel[i]) + L";" + ZahlText(laengen[i]));
    Weiter([&] { summe = Ganz16(static_cast<double>(summe) + laengen[i]); });
  }
  Spur(L"Trim entry.");
  schreibe(L"totaltime", ZahlText(summe));
  eingetragen_ = true;
  // Without its identity the disc has no section, and the database window does not show it.
  if (schluessel.empty()) return Melde(LoadResString(30139));
  // The profile reports no errors, so the last value is read again.
  constexpr std::size_t kLaengsteZahl = 20;
  const Text gelesen =
      profile.GetPrivateProfileString(schluessel, L"totaltime", L"", kLaengsteZahl, kDatei);
  if (gelesen != ZahlText(summe)) Melde(LoadResString(30128));
}

void frmCDBrennen::DeleteTempWavs() {
  Spur(L"Delete TempWaves");
  if (!prog.CDKopieAktiv) return;
  for (const Text& datei : prog.KopieDateien) {
    Weiter([&] { prog.plattform.dateien.Kill(datei); });
  }
  prog.CDKopieAktiv = false;
}

}  // namespace vantora
