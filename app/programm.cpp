#include "app/programm.h"

#include "app/frmKomponenten.h"
#include "app/frmMBox.h"
#include "app/frmStartUp.h"
#include "app/katalog_dienst.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include <optional>

namespace vantora {

namespace {

constexpr double kAbschiedSekunden = 1.5;
constexpr int kBoxPauseMs = 150;
constexpr int kEreignisPauseMs = 50;

struct KomponentenVersion {
  const wchar_t* Datei;
  const wchar_t* Version;
};

constexpr KomponentenVersion kKomponenten[] = {
    {L"audiolib.dll", L"1.0.0.4"}, {L"MMToolsX.ocx", L"1.6.5.100"}, {L"MCD.ocx", L"1.1.2.9"},
    {L"MP3VTR.OCX", L"1.5.1.0"},   {L"ACD.OCX", L"1.3.1.0"},        {L"EQPRO.OCX", L"1.5.0.103"},
};

}  // namespace

Programm::Programm(Plattform& dienste, Fenstermacher fenster) : Dienste(dienste) {
  fenster(*this);
  plattform.schleife.OnError = [this](const Laufzeitfehler& fehler) { FehlerMelden(fehler); };
  plattform.schleife.OnIdle = [this] { entladene_.clear(); };
  plattform.einstellungen.OnUnwritable = [this](const vantora::Text& datei,
                                                const Laufzeitfehler& grund) {
    EinstellungenMelden(datei, grund);
  };
}

Programm::~Programm() {
  plattform.einstellungen.OnUnwritable = nullptr;
  plattform.schleife.OnIdle = nullptr;
  plattform.schleife.OnError = nullptr;
}

bool Programm::Laufen() {
  EventLoop& schleife = plattform.schleife;
  schleife.Dispatch([this] { frmStartUp(); });
  if (schleife.Ended()) return true;
  // Without the main window the user could not end the program, so the loop is not started.
  if (!frmHauptForm.Geladen() || !Katalogfenster().Sichtbar()) return false;
  try {
    schleife.Run();
  } catch (const ProgrammEnde&) {
    // ProgrammEnde is how the program always ends.
  }
  return true;
}

int Programm::MsgBoxen(const vantora::Text& text, int flags) {
  return MsgBoxen(text, flags, Text(0));
}

int Programm::MsgBoxen(const vantora::Text& text, int flags, const vantora::Text& titel,
                       bool nichtMehrZeigen) {
  const std::shared_ptr<vantora::frmMBox> box = frmMBox.Laden();
  box->Vorbereiten(text, flags, titel, nichtMehrZeigen);
  // A click that comes behind the answer, like the second one of a double click, must not begin
  // another job in the middle of the one that has asked.
  EventLoop& schleife = plattform.schleife;
  Form* vorn = schleife.Front();
  const bool frei = vorn != nullptr && vorn != box.get() && vorn->Window.Enabled;
  if (frei) vorn->Window.Enabled = false;
  ZeigeModal(box);
  schleife.DoEvents();
  if (frei) vorn->Window.Enabled = true;
  schleife.Sleep(kBoxPauseMs);
  return Ganz16(Val(box->Window.Tag));
}

void Programm::Zeigen(VtrFenster& fenster) {
  plattform.schleife.Show(fenster);
}

void Programm::ZeigeModal(const std::shared_ptr<VtrFenster>& fenster) {
  plattform.schleife.ShowModal(*fenster);
}

void Programm::Pausieren(int ms) {
  const bool immer = true;
  Pausieren(ms, immer);
}

void Programm::Pausieren(int ms, const bool& solange) {
  for (int rest = ms; rest > 0 && solange; rest -= kEreignisPauseMs) {
    plattform.schleife.DoEvents();
    if (solange) plattform.schleife.Sleep(std::min(rest, kEreignisPauseMs));
  }
  if (solange) plattform.schleife.DoEvents();
}

void Programm::Zuruecklegen(std::shared_ptr<VtrFenster> fenster) {
  entladene_.push_back(std::move(fenster));
}

void Programm::FehlerMelden(const Laufzeitfehler& fehler) {
  plattform.schleife.MousePointer(Pointer::Normal);
  // A failed job may have left the front window disabled, and no other code would enable it again.
  Form* vorn = plattform.schleife.Front();
  const bool brennt = frmKomponenten.Geladen() && frmKomponenten().BrennLaeuft;
  if (vorn != nullptr && !brennt && !vorn->CloseWhileDisabled) vorn->Window.Enabled = true;
  const vantora::Text grund = fehler.Grund.empty() ? L"" : L": " + fehler.Grund;
  FehlerVermerken(ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung + grund);
  const vantora::Text was = fehler.Beschreibung + L" (" + ZahlText(fehler.Nummer) + L")";
  try {
    MsgBoxen(Text(4009) + was, kStopp);
  } catch (const Laufzeitfehler&) {
    // The program's message box needs the texts, so the system's box reports that they are missing.
    plattform.schleife.SystemBox(was, kStopp, L"Vantora");
  }
}

// The printer's failure has a sentence of its own; what went wrong with a file comes in the words
// of the error.
void Programm::DruckFehlerMelden(const Laufzeitfehler& fehler) {
  if (fehler.Nummer == kFehlerAbbruch) return;
  FehlerVermerken(fehler.Grund.empty() ? fehler.Beschreibung : fehler.Grund);
  MsgBoxen(fehler.Nummer == kFehlerDrucker ? Text(30156) : Text(30157) + fehler.Beschreibung + L".",
           kHinweis);
}

void Programm::BildFehlerMelden(const vantora::Text& datei, const Laufzeitfehler& fehler) {
  MsgBoxen(datei + kZeilenEnde + fehler.Beschreibung + L".", kHinweis);
}

void Programm::StapelFehlerMelden(const vantora::Text& datei, const Laufzeitfehler& fehler,
                                  int danach) {
  plattform.schleife.MousePointer(Pointer::Normal);
  FehlerVermerken(ZahlText(fehler.Nummer) + L" " + fehler.Beschreibung + L": " + datei);
  MsgBoxen(Text(30133) + DateiNameOhnePfad(datei) + L": " + fehler.Beschreibung + L"." +
               kZeilenEnde + Text(danach),
           kStopp);
}

void Programm::FehlerVermerken(const vantora::Text& was) {
  try {
    AppLog(L"Laufzeitfehler", was);
  } catch (const Laufzeitfehler&) {
    LogAktiv = false;  // a log that cannot be written would fail at every further line
  }
}

// Settings are saved in the middle of other work, so the message waits until events are processed.
void Programm::EinstellungenMelden(const vantora::Text& datei, const Laufzeitfehler& grund) {
  FehlerVermerken(ZahlText(grund.Nummer) + L" " + grund.Beschreibung + L": " + datei);
  const vantora::Text was = Text(30040) + datei + L": " + grund.Beschreibung + Text(30041);
  plattform.schleife.Post([this, was] { MsgBoxen(was, kHinweis); });
}

// If a folder can't be made, the others are still made, and the first error is raised at the end.
void Programm::VerzeichnisseAnlegen(const std::vector<vantora::Text>& pfade) {
  std::optional<Laufzeitfehler> erster;
  for (const vantora::Text& pfad : pfade) {
    try {
      if (!DateiExistiert(pfad)) plattform.dateien.MkDir(pfad);
    } catch (const Laufzeitfehler& fehler) {
      if (!erster) erster = fehler;
    }
  }
  if (erster) throw Laufzeitfehler(*erster);
}

KatalogDienst& Programm::Katalogfenster() {
  return dynamic_cast<KatalogDienst&>(*frmHauptForm.Holen());
}

void Programm::LoadLastDir() {
  std::vector<vantora::Text> anzulegen;
  const auto lesen = [&](const wchar_t* schluessel, const vantora::Text& ersatz) {
    vantora::Text wert = Trim(GetSetting(plattform, schluessel, L""));
    if (!wert.empty() && DateiExistiert(wert)) return wert;
    anzulegen.push_back(ersatz);
    return ersatz;
  };
  const vantora::Text app = AddBackslash(AppPfad);
  Wave_Import_Dir = lesen(L"Wave_Import_Dir", L"C:\\");
  Wave_Export_Dir = lesen(L"Wave_Export_Dir", app + L"Wavs\\");
  Standard_Wave_Name = Wave_Export_Dir;
  Songs_Import_Dir = lesen(L"Songs_Import_Dir", app);
  Catalogue_Open_Dir = lesen(L"Catalogue_Open_Dir", app + Text(10));
  Catalogue_Save_Dir = lesen(L"Catalogue_Save_Dir", app + Text(10));
  Picture_Save_Dir = lesen(L"Picture_Save_Dir", app + L"Pictures");
  for (vantora::Text* pfad : {&Wave_Import_Dir, &Wave_Export_Dir, &Songs_Import_Dir,
                              &Catalogue_Open_Dir, &Catalogue_Save_Dir, &Picture_Save_Dir}) {
    *pfad = Trim(UNCAufLaufwerk(*pfad));
  }
  // Nothing can be edited without this folder, and its drive may be gone.
  const vantora::Text temp = Temporary_Directory.Getrimmt();
  if (temp.find(L":\\") != 1 || !plattform.dateien.IsDirectory(temp)) {
    Temporary_Directory = kTempOrdner;
    anzulegen.emplace_back(kTempOrdner);
  }
  // The folders come last: when one can't be made and the start goes on, every key has its value
  // already. The end of the program writes all keys.
  VerzeichnisseAnlegen(anzulegen);
}

void Programm::LastDirSave() {
  SaveSettings(plattform, {{L"Wave_Import_Dir", Wave_Import_Dir},
                           {L"Wave_Export_Dir", Wave_Export_Dir},
                           {L"Songs_Import_Dir", Songs_Import_Dir},
                           {L"Catalogue_Open_Dir", Catalogue_Open_Dir},
                           {L"Catalogue_Save_Dir", Catalogue_Save_Dir},
                           {L"Picture_Save_Dir", Picture_Save_Dir}});
}

void Programm::LastCatSave() {
  if (Last_Catalog_Load != 1) return;
  const bool katalog = Rechts(Trim(LetzterKatalog), 3) == L"vtr";
  SaveSetting(plattform, L"Last_Catalogue_Name", katalog ? LetzterKatalog : vantora::Text());
}

void Programm::Hilfe(const vantora::Text& fenster) {
  const bool gezeigt = plattform.system.OpenHelp(AddBackslash(AppPfad) + L"VTR.HLP", fenster);
  if (!gezeigt && !frmMBox.Geladen()) MsgBoxen(Text(8058), kHinweis);
}

void Programm::ProgrammBeenden(bool ohneFrage) {
  EventLoop& schleife = plattform.schleife;
  const wchar_t* const kOrt = L"ProgrammBeenden";
  if (!ohneFrage) {
    schleife.MousePointer(Pointer::Hourglass);
    if (MsgBoxen(Text(23000), kFrage) != kJa) {
      schleife.MousePointer(Pointer::Normal);
      return;
    }
  }
  Katalogfenster().FreiSetzen(false);  // nothing new may begin during the farewell
  AppLog(kOrt, L"1");
  schleife.DoEvents();
  Warten(kAbschiedSekunden);
  AppLog(kOrt, L"2");
  vantora::frmKomponenten& komponenten = frmKomponenten();
  komponenten.CD_Close();
  komponenten.ACD_Close();
  plattform.mcd.ResetBurner();
  plattform.mp3.Close();
  AppLog(kOrt, L"3");
  LastDirSave();
  LastCatSave();
  schleife.DoEvents();  // shows the message about settings that could not be written
  komponenten.CD_Close();
  AppLog(kOrt, L"Save RegistryParameter ...");
  Katalogfenster().PlayWaveNormal(L"");
  // The display mode was never changed, so none is restored.
  AppLog(kOrt, L"ChangeResolution");
  AppLog(kOrt, L"AniCursorAus");
  plattform.bildschirm.SetSystemCursor(L"");
  AppLog(kOrt, L"bye ...");
  schleife.MousePointer(Pointer::Normal);
  throw ProgrammEnde{};
}

void Programm::KomponentenPruefen() {
  for (const KomponentenVersion& komponente : kKomponenten) {
    if (DateiVersion(komponente.Datei) == komponente.Version) continue;
    MsgBoxen(Text(8072), kStopp);
    throw ProgrammEnde{};
  }
}

}  // namespace vantora
