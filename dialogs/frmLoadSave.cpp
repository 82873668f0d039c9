#include "dialogs/frmLoadSave.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kMessPauseMs = 10;  // between two files, so that the dialog stays quick
constexpr int kVorhoeren = 0, kUebernehmen = 1, kAbbrechen = 2;
constexpr std::size_t kWurzel = 3;  // characters of "C:\"

// The folders of a path, without its root.
std::vector<Text> Ordner(const Text& pfad) {
  std::vector<Text> ordner;
  if (pfad.size() <= kWurzel) return ordner;
  Split(pfad.substr(kWurzel), L"\\", ordner);
  std::erase(ordner, Text());
  return ordner;
}

Text Dauer(std::int64_t ms) {
  int stunden = 0, minuten = 0, sekunden = 0, frames = 0;
  MsNachHMSF(ms, stunden, minuten, sekunden, frames);
  return Format(stunden, L"00") + L":" + Format(minuten, L"00") + L":" + Format(sekunden, L"00");
}

bool Absolut(const Text& name) {
  return name.size() >= kWurzel && name.substr(1, 2) == L":\\";
}

}  // namespace

frmLoadSave::frmLoadSave(Programm& programm)
    : VtrFenster(programm, L"frmLoadSave"), laengen_(programm.plattform) {
  tmrLaenge.Enabled = false;
  tmrLaenge.Interval = kMessPauseMs;
  tmrLaenge.OnTimer = [this] { tmrLaenge_Timer(); };
  lstDatei.MultiSelect = true;
  for (int i = 0; i < pbButton.Count(); ++i) Knopf(pbButton(i), [this, i] { pbButton_MouseUp(i); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  cbxLaufwerk.Click = [this] { cbxLaufwerk_Click(); };
  lstVerzeichnis.DblClick = [this] { lstVerzeichnis_DblClick(); };
  lstVerzeichnis.KeyDown = [this](int taste) {
    if (taste == kKeyReturn) lstVerzeichnis_DblClick();
  };
  lstDatei.Click = [this] { lstDatei_Click(); };
  lstDatei.DblClick = [this] { pbButton_MouseUp(kUebernehmen); };
  lstDatei.KeyDown = [this](int taste) {
    if (taste == kKeyReturn) pbButton_MouseUp(kUebernehmen);
  };
  txtDateiName.KeyDown = [this](int taste) {
    if (taste == kKeyReturn) pbButton_MouseUp(kUebernehmen);
  };
}

void frmLoadSave::Form_Load() {
  FensterEinrichten();
  SetTexte();
  std::vector<LaufwerkEintrag> laufwerke;
  prog.LaufwerkListe(laufwerke);
  for (const LaufwerkEintrag& laufwerk : laufwerke) {
    cbxLaufwerk.AddItem(Lcase(Links(laufwerk.Wurzel, 2)));
  }
}

// The decoder of MP3 files is needed for the import that follows.
void frmLoadSave::Form_Unload() {
  tmrLaenge.Enabled = false;
}

void frmLoadSave::SetTexte() {
  lblLaufwerk.Caption = LoadResString(30021);
  lblVerzeichnis.Caption = LoadResString(30022);
  lblDatei.Caption = LoadResString(30023);
  lblName.Caption = LoadResString(30020);
  txtDateiName.AccessibleName = lblName.Caption;
  cbxLaufwerk.AccessibleName = lblLaufwerk.Caption;
  lstVerzeichnis.AccessibleName = lblVerzeichnis.Caption;
  lstDatei.AccessibleName = lblDatei.Caption;
  lblPfad.Caption = L"";
  lblAuswahl.Caption = L"";
  txtDateiName.Text = L"";
  Beschriften(lblButtCaption(0), pbButton(0), LoadResString(11200));
  Beschriften(lblButtCaption(1), pbButton(1), LoadResString(4));
  Beschriften(lblButtCaption(2), pbButton(2), LoadResString(5));
  cbxLaufwerk.ToolTipText = LoadResString(11400);
  lstVerzeichnis.ToolTipText = LoadResString(11401);
  lstDatei.ToolTipText = LoadResString(11402);
  txtDateiName.ToolTipText = LoadResString(11403);
  pbButton(0).ToolTipText = LoadResString(11404);
  imgHelp.ToolTipText = LoadResString(1);
}

// When the dialog comes to the front for the first time, it shows the requested folder.
void frmLoadSave::Form_Activate() {
  if (aktiviert_) return;
  aktiviert_ = true;
  Caption = LoadResString(prog.DialogModus == kModusSichern ? 11603 : 11602);
  lblTitel.Caption = Caption;
  Text pfad = Trim(prog.DialogPfad);
  if (pfad.empty()) pfad = AddBackslash(prog.AppPfad) + L"songs";
  pbButton(0).Enabled = false;
  if (txtDateiName.Text().empty()) txtDateiName.Text = prog.DialogName;
  LaufwerkSetzen(pfad);
  Oeffne(pfad);
  prog.plattform.schleife.SetFocus(txtDateiName);
}

void frmLoadSave::LaufwerkSetzen(const Text& pfad) {
  const Text buchstabe = Lcase(Links(pfad, 2));
  for (int i = 0; i < cbxLaufwerk.ListCount(); ++i) {
    if (cbxLaufwerk.List(i) == buchstabe) cbxLaufwerk.ListIndex = i;
  }
}

// If a folder can't be read, the dialog keeps its old folder; without one it opens the root.
void frmLoadSave::Oeffne(const Text& verzeichnis) {
  const Text vorher = verzeichnis_;
  verzeichnis_ = AddBackslash(verzeichnis);
  const auto lesen = [this] {
    VerzeichnisseZeigen();
    DateienZeigen();
  };
  if (Weiter(lesen)) return;
  verzeichnis_ = vorher.empty() ? Links(verzeichnis, 2) + L"\\" : vorher;
  if (!Weiter(lesen)) {
    lstVerzeichnis.Clear();
    lstDatei.Clear();
  }
  LaufwerkSetzen(verzeichnis_);
}

void frmLoadSave::VerzeichnisseZeigen() {
  const std::vector<Text> unter = prog.plattform.dateien.Folders(verzeichnis_);
  lstVerzeichnis.Clear();
  lstVerzeichnis.AddItem(Links(verzeichnis_, kWurzel));
  Text einzug = L"  ";
  for (const Text& ordner : Ordner(verzeichnis_)) {
    lstVerzeichnis.AddItem(einzug + ordner);
    einzug += L"  ";
  }
  lstVerzeichnis.ListIndex = lstVerzeichnis.ListCount() - 1;
  for (const Text& ordner : unter) lstVerzeichnis.AddItem(einzug + ordner);
  lblPfad.Caption = verzeichnis_;
}

void frmLoadSave::DateienZeigen() {
  lstDatei.Clear();
  for (const Text& name : prog.plattform.dateien.List(verzeichnis_, prog.DialogMuster)) {
    lstDatei.AddItem(name);
  }
  AuswahlZeigen();
}

void frmLoadSave::cbxLaufwerk_Click() {
  if (cbxLaufwerk.ListIndex < 0) return;
  const Text wurzel = Ucase(cbxLaufwerk.List(cbxLaufwerk.ListIndex)) + L"\\";
  if (Ucase(Links(verzeichnis_, kWurzel)) == wurzel) return;
  if (!prog.DateiExistiert(wurzel)) {
    LaufwerkSetzen(verzeichnis_);
    prog.MsgBoxen(LoadResString(11601) + wurzel, kHinweis);
    return;
  }
  Oeffne(wurzel);
}

void frmLoadSave::lstVerzeichnis_DblClick() {
  const int zeile = lstVerzeichnis.ListIndex;
  if (zeile < 0) return;
  const std::vector<Text> ordner = Ordner(verzeichnis_);
  const int tiefe = static_cast<int>(ordner.size());
  Text ziel = Links(verzeichnis_, kWurzel);
  for (int i = 0; i < std::min(zeile, tiefe); ++i) {
    ziel += ordner[static_cast<std::size_t>(i)] + L"\\";
  }
  // Each level is indented by two blanks; leading blanks of the folder's name itself stay.
  const std::size_t einzug = 2 * (ordner.size() + 1);
  if (zeile > tiefe) ziel += lstVerzeichnis.List(zeile).substr(einzug);
  Oeffne(ziel);
}

// The name box shows the selected file. If a file is deselected, the box shows one that is still
// selected.
void frmLoadSave::lstDatei_Click() {
  int zeile = lstDatei.ListIndex;
  if (zeile >= 0 && !lstDatei.Selected(zeile)) {
    zeile = lstDatei.ListCount() - 1;
    while (zeile >= 0 && !lstDatei.Selected(zeile)) --zeile;
  }
  const Text name = zeile < 0 ? prog.DialogName : lstDatei.List(zeile);
  txtDateiName.Text = name;
  pbButton(0).Enabled = Endet(Lcase(name), L".wav");
  AuswahlZeigen();
}

std::vector<Text> frmLoadSave::Markierte() const {
  std::vector<Text> namen;
  for (int i = 0; i < lstDatei.ListCount(); ++i) {
    if (lstDatei.Selected(i)) namen.push_back(lstDatei.List(i));
  }
  return namen;
}

// ---- the number and the length of the selected files ----

bool frmLoadSave::NurZaehlen() const {
  return !Enthaelt(Ucase(prog.DialogMuster), L"WAV");
}

// The length is shown when all files have been measured.
void frmLoadSave::AuswahlZeigen() {
  const std::vector<Text> namen = Markierte();
  const bool leer = namen.empty() || prog.DialogModus == kModusSichern;
  const bool fehlt =
      !leer && !NurZaehlen() && std::any_of(namen.begin(), namen.end(), [this](const Text& name) {
        return !laengen_.Gemessen(Voll(name));
      });
  tmrLaenge.Enabled = fehlt;
  Text worte;
  if (!leer) {
    worte = namen.size() == 1
                ? LoadResString(30056)
                : ZahlText(static_cast<std::int64_t>(namen.size())) + LoadResString(30057);
  }
  if (!leer && !fehlt && !NurZaehlen()) {
    std::int64_t ms = 0;
    for (const Text& name : namen) ms += laengen_.Laenge(Voll(name));
    worte += LoadResString(30058) + Dauer(ms);
  }
  lblAuswahl.Caption = worte;
}

void frmLoadSave::tmrLaenge_Timer() {
  for (const Text& name : Markierte()) {
    if (laengen_.Gemessen(Voll(name))) continue;
    laengen_.Messen(Voll(name));
    break;
  }
  AuswahlZeigen();
}

// ---- the result ----

std::vector<Text> frmLoadSave::Gewaehlte() const {
  std::vector<Text> namen = Markierte();
  // A typed name takes precedence over the selection.
  const Text& getippt = txtDateiName.Text;
  const bool ausListe = std::find(namen.begin(), namen.end(), getippt) != namen.end();
  if (prog.DialogModus == kModusSichern || !ausListe) return {getippt};
  return namen;
}

// A catalog file holds only characters of Windows-1252. So they are checked in the whole path of a
// track, and in the name of a catalog.
bool frmLoadSave::NamenGueltig(const std::vector<Text>& namen) const {
  const bool katalog = prog.DialogMuster == L"*.vtr";
  return std::all_of(namen.begin(), namen.end(), [&](const Text& name) {
    const Text pfad = katalog ? name : Voll(name);
    const bool darstellbar = std::all_of(pfad.begin(), pfad.end(), Hat1252);
    return darstellbar && (Absolut(name) || name.find(L'\\') == Text::npos);
  });
}

Text frmLoadSave::Voll(const Text& name) const {
  return Absolut(name) ? name : verzeichnis_ + name;
}

// Opens the folder whose name was typed in the name box.
bool frmLoadSave::OrdnerGetippt() {
  const Text name = txtDateiName.Text;
  if (name.empty() || name.front() == L'.' || Enthaelt(name, L"*")) return false;
  const Text ordner = Voll(name);
  if (!prog.plattform.dateien.IsDirectory(ordner)) return false;
  txtDateiName.Text = prog.DialogName;
  LaufwerkSetzen(ordner);
  Oeffne(ordner);
  return true;
}

void frmLoadSave::Uebernehmen() {
  if (OrdnerGetippt()) return;
  const std::vector<Text> namen = Gewaehlte();
  if (!NamenGueltig(namen)) {
    prog.MsgBoxen(LoadResString(8038), kHinweis);
    return;
  }
  prog.DialogName = txtDateiName.Text;
  prog.MehrfachAuswahl = namen.size() > 1;
  prog.GewaehlteDatei.clear();
  if (prog.MehrfachAuswahl) {
    for (const Text& name : namen) prog.GewaehlteDatei += Voll(name) + L"/";
  } else if (!namen.front().empty()) {
    prog.GewaehlteDatei = Voll(namen.front());
  }
  const Text erste = Voll(namen.front());
  prog.DialogVerzeichnis = Links(erste, erste.size() - DateiNameOhnePfad(erste).size());
  prog.DialogPfad = prog.DialogVerzeichnis;
  if (Enthaelt(Ucase(prog.DialogMuster), L"WAV")) prog.Wave_Import_Dir = prog.DialogPfad;
  prog.Katalogfenster().PlayWaveNormal(L"");
  prog.frmLoadSave.Entladen();
}

void frmLoadSave::Abbrechen() {
  prog.DialogAbbruch = true;
  prog.DialogPfad = verzeichnis_;
  prog.Katalogfenster().PlayWaveNormal(L"");
  prog.frmLoadSave.Entladen();
}

void frmLoadSave::Vorhoeren() {
  KatalogDienst& haupt = prog.Katalogfenster();
  haupt.PlayWaveNormal(L"");
  prog.plattform.schleife.DoEvents();
  haupt.PlayWaveNormal(verzeichnis_ + txtDateiName.Text());
}

void frmLoadSave::pbButton_MouseUp(int index) {
  if (index == kVorhoeren) Vorhoeren();
  if (index == kUebernehmen) Uebernehmen();
  if (index == kAbbrechen) Abbrechen();
}

bool frmLoadSave::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  Abbrechen();
  return true;
}

}  // namespace vantora
