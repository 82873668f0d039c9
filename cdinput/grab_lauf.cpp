#include "cdinput/grab_lauf.h"

#include "app/frmKomponenten.h"
#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cdinput/frmCDPlayer.h"
#include "cdwriting/frmSchreibFortschritt.h"

#include "platform/cd_sound.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr const wchar_t* kOrt = L"SaveWave";
constexpr int kAnlaufMs = 500;
constexpr int kWarteMs = 500;
constexpr int kAbbruchMs = 1000;  // until the drive has noticed the end of its read

enum class Ausgang { Fertig, KeinAudio, Lesefehler, Abbruch };

class GrabLauf {
 public:
  explicit GrabLauf(Programm& programm) : prog(programm), komponenten(programm.frmKomponenten()) {}

  int Laufen();

 private:
  void Vorbereiten();
  void FortschrittZeigen();
  Ausgang EinTrack(std::size_t nummer);
  Ausgang Lesen(int track, const Text& datei);
  void Zaehler(std::size_t nummer, int track);
  void NachAbbruch();
  void FensterSperren(bool gesperrt);
  void Aufraeumen(Ausgang ausgang);
  void Spur(const Text& text) { prog.AppLog(kOrt, text); }

  Programm& prog;
  vantora::frmKomponenten& komponenten;
  bool hauptWarFrei = true;
  int track_ = 0;  // number of the track being read
};

// While tracks are read, only the cancel button can be pressed.
void GrabLauf::FensterSperren(bool gesperrt) {
  if (gesperrt) hauptWarFrei = prog.Katalogfenster().Frei();
  if (hauptWarFrei) prog.Katalogfenster().FreiSetzen(!gesperrt);
  if (prog.frmCDPlayer.Geladen()) prog.frmCDPlayer().Window.Enabled = !gesperrt;
}

void GrabLauf::Vorbereiten() {
  Spur(L"CD-Close");
  komponenten.CD_Close();
  Spur(L"ACD_init");
  komponenten.ACD_INIT();
  Spur(L"ACD_OPEN");
  komponenten.ACD_Open();
  komponenten.CDGeschlossen = false;
  prog.FortschrittModus = kModusGrab;
  prog.GrabAbbruch = false;
  prog.GrabFertig = false;
  prog.GrabGesamtSektoren = 0;
  prog.GrabAktuell = 0;
  prog.GrabFertigMs = 0;
  for (const std::int16_t track : prog.GrabTracks) {
    prog.GrabGesamtSektoren += komponenten.ACD.TrackLaengeSektoren(track);
  }
}

void GrabLauf::FortschrittZeigen() {
  const std::shared_ptr<vantora::frmSchreibFortschritt> f = prog.frmSchreibFortschritt.Laden();
  f->init_frmSchreibFortschritt();
  f->lblSonstiges.Caption = prog.Text(23600);
  f->bKnightRider = true;
  f->KnightRider(f->imgKnightRider, *f);
  prog.Zeigen(*f);
  prog.Pausieren(kAnlaufMs);
  prog.BurnStartZeit = static_cast<float>(prog.plattform.uhr.Timer());
  komponenten.AktTrack = 0;
  komponenten.AngezeigterTrack = 0;
}

void GrabLauf::Zaehler(std::size_t nummer, int track) {
  vantora::frmSchreibFortschritt& f = prog.frmSchreibFortschritt();
  const Text laufend = ZahlText(static_cast<std::int64_t>(nummer) + 1);
  f.lblSonstiges.Caption = prog.Text(23601) + ZahlText(track);
  f.lblKopieTrackNr.Caption = laufend;
  f.lblKopieNr.Caption = laufend;
  f.lblKopieInsgAnz.Caption = L" / " + ZahlText(static_cast<std::int64_t>(prog.GrabTracks.size()));
}

Ausgang GrabLauf::Lesen(int track, const Text& datei) {
  prog.GrabFertig = false;
  prog.GrabLaeuft = true;
  komponenten.LeseFehler = 0;
  const int ergebnis = komponenten.ACD.ReadTrack(track, datei);
  const Text was =
      L"ReadTrack Track" + ZahlText(track) + L" >> " + datei + L" Result:" + ZahlText(ergebnis);
  Spur(L"Start " + was);
  if (ergebnis != 0) {
    prog.GrabLaeuft = false;
    Spur(L"Error " + was);
    prog.MsgBoxen(prog.Text(23001) + kZeilenEnde + prog.Text(23002) + ZahlText(ergebnis), kOk);
    return Ausgang::Lesefehler;
  }
  while (prog.GrabLaeuft && !prog.GrabAbbruch) prog.Pausieren(kWarteMs, prog.GrabLaeuft);
  prog.GrabLaeuft = false;
  if (prog.GrabAbbruch) {
    Spur(L"Start ReadTrack Track" + ZahlText(track) + L" >> " + datei);
    return Ausgang::Abbruch;
  }
  return prog.GrabFertig ? Ausgang::Fertig : Ausgang::Lesefehler;
}

Ausgang GrabLauf::EinTrack(std::size_t nummer) {
  if (prog.GrabAbbruch) return Ausgang::Abbruch;  // finished tracks stay
  const int track = prog.GrabTracks[nummer];
  track_ = track;
  Text& datei = prog.GrabDateien.at(nummer);
  Spur(L"CheckWaveFile:" + datei);
  if (prog.DateiExistiert(datei)) prog.plattform.dateien.Kill(datei);
  datei = OhneLeerzeichen(datei);
  if (prog.DateiExistiert(datei)) prog.plattform.dateien.Kill(datei);
  if (!komponenten.ACD.TrackIstAudio(track)) return Ausgang::KeinAudio;
  Spur(L"SongToGrab " + ZahlText(track) + L" is audiotrack");
  if (komponenten.ACD.TrackPreemphasis(track)) {
    Spur(L"SongToGrab " + ZahlText(track) + L" has pre-emphasis, taken off with 50/15 us");
  }
  prog.GrabTrackSektoren = komponenten.ACD.TrackLaengeSektoren(track);
  prog.GrabTrackMs = komponenten.ACD.TrackLaengeMs(track);
  Spur(L"Length song " + ZahlText(track) + L" is " + ZahlText(prog.GrabTrackSektoren));
  prog.TrackStartZeit = static_cast<float>(prog.plattform.uhr.Timer());
  komponenten.AktTrack = Ganz16(track);
  Zaehler(nummer, track);
  const Ausgang ausgang = Lesen(track, datei);
  if (ausgang != Ausgang::Fertig) return ausgang;
  prog.frmSchreibFortschritt().shpAktKopie.Width = 1;
  KatalogAusGrab(prog, datei, nummer);
  Spur(L"KatalogHinzugefügt");
  prog.GrabAktuell += prog.GrabTrackSektoren;
  prog.GrabFertigMs += prog.GrabTrackMs;
  return Ausgang::Fertig;
}

void GrabLauf::NachAbbruch() {
  Spur(L"After_Save->Error");
  komponenten.ACD.ReadTrack(0, L"c:\\0.wav");  // ends the running read
  komponenten.ACD.CloseDevice();
  prog.Pausieren(kAbbruchMs);
  komponenten.ACD.ResetDevice();
  FensterSperren(false);  // only now, because the drive could not be used before
  prog.MsgBoxen(prog.Text(23007) + kZeilenEnde, kOk);
  prog.GrabAbbruch = false;
}

void GrabLauf::Aufraeumen(Ausgang ausgang) {
  prog.GrabLaeuft = false;
  prog.frmSchreibFortschritt.Entladen();
  if (ausgang != Ausgang::Abbruch) FensterSperren(false);
  prog.plattform.schleife.MousePointer(Pointer::Normal);
}

int GrabLauf::Laufen() {
  FensterSperren(true);
  Ausgang ausgang = Ausgang::Fertig;
  try {
    Vorbereiten();
    FortschrittZeigen();
    for (std::size_t i = 0; i < prog.GrabTracks.size() && ausgang == Ausgang::Fertig; ++i) {
      ausgang = EinTrack(i);
    }
  } catch (...) {
    Aufraeumen(Ausgang::Lesefehler);
    komponenten.ACD_Close();
    throw;
  }
  Spur(L"Ready Loop read Tracks");
  Aufraeumen(ausgang);
  if (ausgang == Ausgang::Abbruch) {
    NachAbbruch();
    return 1;
  }
  komponenten.ACD_Close();  // playing or writing needs the drive next
  if (ausgang == Ausgang::KeinAudio) {
    prog.MsgBoxen(prog.Text(23004) + kZeilenEnde + prog.Text(23005) + ZahlText(track_) +
                      kZeilenEnde + prog.Text(23006),
                  kOk);
    Spur(L"kein Audiotrack");
  }
  if (ausgang != Ausgang::Fertig) return 1;
  prog.MsgBoxen(prog.Text(23008), kErfolg);
  return 0;
}

}  // namespace

bool ZielePassen(Programm& prog) {
  const bool passen = std::all_of(prog.GrabDateien.begin(), prog.GrabDateien.end(),
                                  [](const Text& datei) { return datei.size() <= kLaengsterPfad; });
  if (passen) return true;
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  prog.MsgBoxen(prog.Text(8085), kHinweis);
  return false;
}

int SaveWave(Programm& prog) {
  return GrabLauf(prog).Laufen();
}

Text OhneLeerzeichen(const Text& pfad) {
  Text name = DateiNameOhnePfad(pfad);
  const Text ordner = Links(pfad, pfad.size() - name.size());
  ZeichenErsetzen(name, L' ', L'_');
  return ordner + name;
}

std::int32_t MBVonMs(std::int32_t ms) {
  return Ganz32(ms / 1000.0 * kBytesPerSecond / kMB);
}

void KatalogAusGrab(Programm& prog, const Text& datei, std::size_t nummer) {
  if (prog.GrabAbbruch) return;
  KatalogDienst& haupt = prog.Katalogfenster();
  prog.KatalogGeaendert = true;
  Text titel = DateiNameOhnePfad(datei);
  titel = Links(titel, titel.rfind(L'.'));
  const int vorher = UBound(prog.Katalog);
  haupt.Katalog_AddWaveFile(datei, titel);
  const int neu = UBound(prog.Katalog);
  if (neu <= vorher) return;  // the file is too short for a track, or can't be read
  KatalogEintrag& eintrag = Element(prog.Katalog, neu);
  const Text name = nummer < prog.GrabNamen.size() ? Trim(prog.GrabNamen[nummer]) : Text();
  if (!name.empty()) {
    eintrag.Titel = name;
    if (!Trim(prog.GrabInterpret).empty()) eintrag.Interpret = Trim(prog.GrabInterpret);
  } else if (eintrag.Titel.Getrimmt() == prog.Text(8440)) {
    eintrag.Titel = titel;  // no other catalog had a title for the file
  }
  haupt.KatalogShow();
  if (prog.GrabOhneNachfrage || prog.Ask_Track_Info != 1) return;
  haupt.NeuenTrackBearbeiten(neu);
}

}  // namespace vantora
