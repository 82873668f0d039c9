#include "medley/frmMedley.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zahlen.h"
#include "medley/frmBeatCounter.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr int kMinBPM = 50, kMaxBPM = 280;
constexpr int kMinDauer = 1, kMaxDauer = 10;  // seconds
constexpr const wchar_t* kUeblicheDauer = L"5";
constexpr double kMsJeSekunde = 1000;
constexpr int kSpielerMs = 200;
constexpr int kMessSekunden = 20;
constexpr int kZiffern = 8;   // longest number that can be typed
constexpr int kToenung = 26;  // percent
constexpr Color kRampe = Rgb(255, 181, 69);

}  // namespace

// Disables the window and shows the hourglass while it lives.
class frmMedley::Sperre {
 public:
  explicit Sperre(frmMedley& fenster) : fenster_(fenster) {
    fenster_.prog.plattform.schleife.MousePointer(Pointer::Hourglass);
    fenster_.Window.Enabled = false;
    fenster_.laeuft_ = true;
  }
  ~Sperre() {
    fenster_.laeuft_ = false;
    fenster_.Window.Enabled = true;
    fenster_.prog.plattform.schleife.MousePointer(Pointer::Normal);
  }
  Sperre(const Sperre&) = delete;
  Sperre& operator=(const Sperre&) = delete;

 private:
  frmMedley& fenster_;
};

frmMedley::frmMedley(Programm& programm) : VtrFenster(programm, L"frmMedley") {
  lstMedleyTracks.Click = [this] { lstMedleyTracks_Click(); };
  txtBPM.KeyPress = [this](int taste) { return txtBPM_KeyPress(taste); };
  txtDauer.KeyPress = [this](int taste) { return txtDauer_KeyPress(taste); };
  txtDauer.LostFocus = [this] { txtDauer_LostFocus(); };
  txtBPM.MaxLength = txtDauer.MaxLength = kZiffern;
  chkPitch.Click = [this] { chkPitch_Click(); };
  for (Control* control : Werte()) control->Enabled = false;
  imgMedleyKnopf.Min = kMinBPM;
  imgMedleyKnopf.Max = kMaxBPM;
  imgMedleyKnopf.Change = [this] { imgMedleyKnopf_MouseMove(); };
  PictureBox& strip = picWaveToFade(0);
  strip.MouseDown = [this](int taste) { picWaveToFade_MouseDown(0, taste); };
  strip.MouseMove = [this](int taste) { picWaveToFade_MouseMove(0, taste); };
  strip.MouseUp = [this](int taste) { picWaveToFade_MouseUp(0, taste); };
  strip.KeyDown = [this](int taste) { picWaveToFade_KeyDown(taste); };
  Knopf(imgStartStop, [this] { imgStartStop_MouseUp(); });
  Knopf(imgPreview, [this] { imgPreview_MouseUp(); });
  Knopf(imgSpeedMeasure, [this] { imgSpeedMeasure_MouseUp(); });
  Knopf(imgOK, [this] { imgOK_MouseUp(); });
  Knopf(imgAbbrechen, [this] { imgAbbrechen_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  shpUeberlappung.Opacity = kToenung;
  tmrSpieler.Interval = kSpielerMs;
  tmrSpieler.OnTimer = [this] { SpielerZeigen(); };
}

void frmMedley::Form_Load() {
  FensterEinrichten();
  SetTexte();
  Init_Medley();
  lstMedleyTracks_Click();
  txtBPM_KeyPress(kKeyReturn);
  txtDauer_KeyPress(kKeyReturn);
}

void frmMedley::Form_Activate() {
  AktuelleZeile = Ganz16(lstMedleyTracks.ListIndex());
}

void frmMedley::Form_Unload() {
  tmrSpieler.Enabled = false;
  prog.Katalogfenster().PlayWaveNormal(L"");
}

void frmMedley::SetTexte() {
  Caption = LoadResString(13202);
  lblTitel.Caption = LoadResString(13202);
  lblListe.Caption = LoadResString(13400);
  lblTempo.Caption = LoadResString(13404);
  lblBPM.Caption = LoadResString(13203);
  lblDauer.Caption = LoadResString(13205);
  lblEinheit.Caption = Trim(LoadResString(8442));
  chkPitch.Caption = LoadResString(13206);
  txtBPM.Text = LoadResString(13208);
  txtDauer.Text = LoadResString(13209);
  lblSkala(0).Caption = ZahlText(kMaxBPM);
  lblSkala(1).Caption = ZahlText(kMinBPM);
  lblMedleySliderBack.Caption = Text();
  for (int i = 0; i < 2; ++i) lblSchieberBack(i).Caption = lblSongName(i).Caption = Text();
  Beschriften(lblButtCaption(0), imgOK, LoadResString(3201));
  Beschriften(lblButtCaption(1), imgAbbrechen, LoadResString(3207));
  Beschriften(lblButtCaption(2), imgPreview, LoadResString(13207));
  Beschriften(lblButtCaption(3), imgStartStop, LoadResString(13200));
  Beschriften(lblButtCaption(4), imgSpeedMeasure, LoadResString(13204));
  txtBPM.AccessibleName = lblBPM.Caption;
  txtDauer.AccessibleName = lblDauer.Caption;
  const auto hinweis = [this](Control& control, int nummer) {
    control.ToolTipText = LoadResString(nummer);
    const bool benannt = control.Kind() == ControlKind::Label || &control == &chkPitch ||
                         !control.AccessibleName().empty();
    if (!benannt) control.AccessibleName = LoadResString(nummer);
  };
  hinweis(lstMedleyTracks, 13400);
  hinweis(chkPitch, 13401);
  hinweis(imgAbbrechen, 13402);
  hinweis(imgHelp, 13403);
  hinweis(imgMedleyKnopf, 13404);
  hinweis(imgOK, 13405);
  hinweis(imgPreview, 13406);
  hinweis(imgSpeedMeasure, 13407);
  hinweis(imgStartStop, 13408);
  hinweis(picWaveToFade(0), 13409);
  hinweis(txtBPM, 13410);
  hinweis(txtDauer, 13411);
  picWaveToFade(0).ToolTipText = LoadResString(13412);
  hinweis(picWaveToFade(1), 13413);
  for (int i = 0; i < 2; ++i) lblSchieberBack(i).ToolTipText = LoadResString(13409);
}

bool frmMedley::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgAbbrechen_MouseUp();
  return true;
}

// ---- rows ----

MedleyEintrag* frmMedley::Zeile(int index) {
  const bool da = !schliesst_ && index >= 0 && index < static_cast<int>(prog.Medley.size());
  return da ? &prog.Medley[static_cast<std::size_t>(index)] : nullptr;
}

bool frmMedley::LetzteZeile(int index) const {
  return index + 1 >= lstMedleyTracks.ListCount();
}

void frmMedley::Init_Medley() {
  lstMedleyTracks.Clear();
  for (const MedleyEintrag& e : prog.Medley) {
    lstMedleyTracks.AddItem(e.Interpret.Getrimmt() + L": " + e.Titel.Getrimmt());
  }
  lstMedleyTracks.ListIndex = 0;
}

void frmMedley::EditAllowed() {
  for (Control* control : Werte()) control->Enabled = true;
}

std::array<Control*, 4> frmMedley::Werte() {
  return {&txtBPM, &txtDauer, &imgMedleyKnopf, &chkPitch};
}

void frmMedley::lstMedleyTracks_Click() {
  if (prog.Katalogfenster().Spielt()) imgStartStop_MouseUp();
  const int neu = lstMedleyTracks.ListIndex;
  const MedleyEintrag* eintrag = Zeile(neu);
  if (eintrag == nullptr) return;
  EditAllowed();
  if (MedleyEintrag* alt = Zeile(AktuelleZeile)) {
    alt->BPM = txtBPM.Text;
    alt->Dauer = txtDauer.Text;
    alt->PitchKorrektur = chkPitch.Value() != 0 ? -1 : 0;
  }
  txtBPM.Text = Trim(eintrag->BPM);
  if (!txtBPM.Text().empty()) ReglerSetzen(Val(txtBPM.Text), 0);
  const Text dauer = Trim(eintrag->Dauer);
  txtDauer.Text = dauer.empty() ? Text(kUeblicheDauer) : dauer;
  const bool letzte = LetzteZeile(neu);
  chkPitch.Enabled = !letzte;
  chkPitch.Value = eintrag->PitchKorrektur != 0 ? 1 : 0;
  AktuelleZeile = Ganz16(neu);
  for (int i = 0; i < 2; ++i) {
    lblSongName(i).Caption =
        neu + i < lstMedleyTracks.ListCount() ? lstMedleyTracks.List(neu + i) : Text();
    lblSongName(i).ToolTipText = lblSongName(i).Caption();
    lblSongName(i).Visible = !letzte;
    picWaveToFade(i).Visible = !letzte;
  }
  shpUeberlappung.Visible = picRampen.Visible = !letzte;
  imgPreview.Enabled = txtDauer.Enabled = !letzte;
  StreifenSetzen(std::min(Runden(Val(txtDauer.Text)), double{kMaxDauer}));
}

void frmMedley::WerteSpeichern() {
  MedleyEintrag* eintrag = Zeile(lstMedleyTracks.ListIndex);
  if (eintrag == nullptr) return;
  eintrag->BPM = txtBPM.Text;
  eintrag->Dauer = txtDauer.Text;
  eintrag->PitchKorrektur = chkPitch.Value() != 0 ? -1 : 0;
}

void frmMedley::chkPitch_Click() {
  MedleyEintrag* eintrag = Zeile(lstMedleyTracks.ListIndex);
  if (eintrag != nullptr) eintrag->PitchKorrektur = chkPitch.Value() != 0 ? -1 : 0;
}

// ---- tempo ----

bool frmMedley::txtBPM_KeyPress(int taste) {
  if (taste != kKeyReturn) return NurZiffern(taste);
  const double wert = Val(txtBPM.Text);
  if (wert > kMaxBPM) txtBPM.Text = ZahlText(kMaxBPM);
  if (wert < kMinBPM) txtBPM.Text = ZahlText(kMinBPM);
  if (MedleyEintrag* eintrag = Zeile(lstMedleyTracks.ListIndex)) eintrag->BPM = txtBPM.Text;
  ReglerSetzen(Val(txtBPM.Text), 0);
  return true;
}

// The window has one slider, index 0; the slider computes the knob's position itself.
void frmMedley::ReglerSetzen(double wert, int /*index*/) {
  imgMedleyKnopf.Value = Ganz32(std::clamp(wert, double{kMinBPM}, double{kMaxBPM}));
}

void frmMedley::imgMedleyKnopf_MouseMove() {
  txtBPM.Text = ZahlText(imgMedleyKnopf.Value());
}

// ---- duration ----

// A crossfade must not be longer than the track. A length that is no number is ignored.
void frmMedley::DauerKuerzen(int index) {
  const MedleyEintrag* eintrag = Zeile(index);
  if (eintrag == nullptr) return;
  double ms = 0;
  Weiter([&] { ms = Val(eintrag->Laenge.Getrimmt()); });
  const double sekunden = ms / kMsJeSekunde, wert = Val(txtDauer.Text);
  if (sekunden > 0 && Runden(wert) > sekunden && wert > sekunden)
    txtDauer.Text = ZahlText(sekunden);
}

bool frmMedley::txtDauer_KeyPress(int taste) {
  if (taste != kKeyReturn) return NurZiffern(taste);
  const int index = lstMedleyTracks.ListIndex;
  if (Val(txtDauer.Text) < kMinDauer) txtDauer.Text = ZahlText(kMinDauer);
  if (MedleyEintrag* eintrag = Zeile(index)) eintrag->Dauer = txtDauer.Text;
  DauerKuerzen(index);
  if (!LetzteZeile(index)) DauerKuerzen(index + 1);
  StreifenSetzen(std::min(Runden(Val(txtDauer.Text)), double{kMaxDauer}));
  return true;
}

void frmMedley::txtDauer_LostFocus() {
  const double wert = Val(txtDauer.Text);
  if (wert > kMaxDauer) txtDauer.Text = ZahlText(kMaxDauer);
  if (wert < kMinDauer) txtDauer.Text = ZahlText(kMinDauer);
  if (MedleyEintrag* eintrag = Zeile(lstMedleyTracks.ListIndex)) eintrag->Dauer = txtDauer.Text;
  StreifenSetzen(Runden(Val(txtDauer.Text)));
}

Streifen frmMedley::Lage() const {
  return {picWaveToFade(0).Width, lblSchieberBack(0).Width};
}

// The overlap is tinted, with a line for each strip that shows its volume.
void frmMedley::StreifenSetzen(double sekunden) {
  const Streifen lage = Lage();
  picWaveToFade(0).Left = lage.Links0(sekunden);
  picWaveToFade(1).Left = lage.Links1(sekunden);
  const int links = lage.Links1(sekunden) + Streifen::kRahmen;
  const int breite = lage.Links0(sekunden) + lage.Breite - Streifen::kRahmen - links;
  shpUeberlappung.Left = picRampen.Left = links;
  shpUeberlappung.Width = picRampen.Width = std::max(breite, 0);
  picRampen.Cls();
  for (int i = 0; i < 2; ++i) {
    const int oben = picWaveToFade(i).Top - picRampen.Top + Streifen::kRahmen;
    const int unten = oben + picWaveToFade(i).Height - 2 * Streifen::kRahmen;
    const int von = i == 0 ? oben : unten, bis = i == 0 ? unten : oben;
    picRampen.Draw({DrawItem::What::Polyline, {0, von, breite, bis}, kRampe, {}});
  }
  picWaveToFade(0).AccessibleName =
      LoadResString(13409) + L": " + ZahlText(sekunden) + L" " + Trim(LoadResString(8442));
}

void frmMedley::picWaveToFade_MouseDown(int index, int taste) {
  if (index != 0 || taste != kLeftButton) return;
  prog.plattform.schleife.MousePointer(Pointer::SizeWE);
  GrabOffset = picWaveToFade(0).MouseX;
}

void frmMedley::picWaveToFade_MouseMove(int index, int taste) {
  if (index != 0 || taste != kLeftButton) return;
  const Streifen lage = Lage();
  const int strecke =
      picWaveToFade(0).Left + picWaveToFade(0).MouseX - GrabOffset - Streifen::kRand;
  const int sekunden = lage.Sekunden(lage.Geschoben(strecke));
  txtDauer.Text = ZahlText(sekunden);
  StreifenSetzen(sekunden);
}

void frmMedley::picWaveToFade_MouseUp(int index, int /*taste*/) {
  if (index == 0) prog.plattform.schleife.MousePointer(Pointer::Normal);
}

// The arrow keys move the strips by one second, as the mouse does.
void frmMedley::picWaveToFade_KeyDown(int taste) {
  double sekunden = std::clamp(Runden(Val(txtDauer.Text)), double{kMinDauer}, double{kMaxDauer});
  switch (taste) {
    case kKeyLeft:
    case kKeyDown:
      sekunden -= 1;
      break;
    case kKeyRight:
    case kKeyUp:
      sekunden += 1;
      break;
    case kKeyHome:
      sekunden = kMinDauer;
      break;
    case kKeyEnd:
      sekunden = kMaxDauer;
      break;
    default:
      return;
  }
  sekunden = std::clamp(sekunden, double{kMinDauer}, double{kMaxDauer});
  txtDauer.Text = ZahlText(sekunden);
  StreifenSetzen(sekunden);
}

// ---- listening ----

void frmMedley::SpielerZeigen() {
  const Text text = LoadResString(prog.Katalogfenster().Spielt() ? 13201 : 13200);
  lblButtCaption(3).Caption = text;
  imgStartStop.AccessibleName = text;
}

void frmMedley::imgStartStop_MouseUp() {
  prog.SpielIndex = Ganz16(lstMedleyTracks.ListIndex());
  const MedleyEintrag* eintrag = Zeile(prog.SpielIndex);
  if (eintrag == nullptr) return;
  KatalogDienst& katalog = prog.Katalogfenster();
  const bool beginnt = !katalog.Spielt();
  katalog.SpieltSetzen(beginnt);
  SpielerZeigen();
  Jedenfalls([&] { katalog.PlayWaveNormal(beginnt ? eintrag->Datei.Getrimmt() : Text()); },
             [&] {
               if (!katalog.SpielerLaeuft())
                 katalog.SpieltSetzen(false);  // no sound card, or the file is missing
               SpielerZeigen();
             });
}

void frmMedley::imgPreview_MouseUp() {
  const int index = lstMedleyTracks.ListIndex;
  if (laeuft_ || Zeile(index) == nullptr || LetzteZeile(index)) return;
  {
    const Sperre sperre(*this);
    WerteSpeichern();
    Motor.MedleyFehler = false;
    UeberblendungBerechnen(index, index + 1);
    if (Motor.MedleyFehler) return;
    const Text datei = Motor.VorschauSchreiben();
    if (Motor.MedleyFehler) return;
    prog.Katalogfenster().PlayWaveNormal(datei);
  }
  prog.plattform.schleife.DoEvents();
}

void frmMedley::imgSpeedMeasure_MouseUp() {
  const MedleyEintrag* eintrag = Zeile(lstMedleyTracks.ListIndex);
  if (laeuft_ || eintrag == nullptr) return;
  const Text datei = eintrag->Datei.Getrimmt();
  prog.SpielIndex = Ganz16(lstMedleyTracks.ListIndex());
  Window.Enabled = false;
  const std::shared_ptr<vantora::frmBeatCounter> zaehler = prog.frmBeatCounter.Laden();
  prog.Zeigen(*zaehler);
  KatalogDienst& katalog = prog.Katalogfenster();
  katalog.SpieltSetzen(false);
  katalog.PlayWaveNormal(L"");
  zaehler->Spielzeit = kMessSekunden;
  katalog.PlayWaveMitte(datei, kMessSekunden);
}

// ---- closing the window ----

void frmMedley::UeberblendungBerechnen(int Index1, int Index2) {
  Motor.UeberblendungBerechnen(Index1, Index2);
}

void frmMedley::UeberblendungAusfuehren(int Index1, int Index2) {
  Motor.UeberblendungAusfuehren(Index1, Index2);
}

void frmMedley::imgOK_MouseUp() {
  if (laeuft_ || schliesst_) return;
  {
    const Sperre sperre(*this);
    WerteSpeichern();
    Motor.LaufBeginnen();
    const int zeilen = static_cast<int>(prog.Medley.size());
    for (int j = 0; j < zeilen - 1; ++j) UeberblendungAusfuehren(j, j + 1);
    Motor.KatalogMarkieren();
  }
  MedleyBeenden();
}

void frmMedley::imgAbbrechen_MouseUp() {
  if (!laeuft_) MedleyBeenden();
}

void frmMedley::MedleyBeenden() {
  if (schliesst_) return;
  schliesst_ = true;
  EventLoop& schleife = prog.plattform.schleife;
  KatalogDienst& katalog = prog.Katalogfenster();
  schleife.MousePointer(Pointer::Hourglass);
  Jedenfalls(
      [&] {
        katalog.PlayWaveNormal(L"");
        prog.Medley.assign(1, MedleyEintrag());
        katalog.FreiSetzen(true);
        katalog.KatalogShow();
      },
      [&] {
        katalog.FreiSetzen(true);
        schleife.MousePointer(Pointer::Normal);
        Weiter([&] { Motor.TempDateienLoeschen(); });
        prog.frmMedley.Entladen();
      });
}

}  // namespace vantora
