#include "catalog/frmHauptForm.h"

#include "app/frmStartUp.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"
#include "catalog/bildschirm_pruefung.h"
#include "dialogs/frmStartAssistent.h"

#include "platform/twips.h"

namespace vantora {

namespace {

constexpr const wchar_t* kKleinesLayout = L"frmHauptForm";
constexpr const wchar_t* kGrossesLayout = L"frmHauptForm_1000";
constexpr int kListenSchriftGross = 11;

// The texts of the table's head and of the buttons have consecutive numbers.
constexpr int kErsteSpalte = 8073, kErsteBeschriftung = 8200, kErsterHinweis = 8400;

const std::vector<ListView::Column>& Spalten() {
  static const std::vector<ListView::Column> kSpalten = {
      {L"", 240}, {L"", 360}, {L"", 2400}, {L"", 2100}, {L"", 840},
      {L"", 795}, {L"", 705}, {L"", 3000}, {L"", 660},
  };
  return kSpalten;
}

}  // namespace

frmHauptForm::frmHauptForm(Programm& programm)
    : VtrFenster(programm, L"frmHauptForm"),
      MMWaveFileX1(programm.plattform.mmtools.NewWaveFile()),
      vorschau_(programm, *MMWaveFileX1, Level),
      zeiten_(programm, lblKatalogLaenge, lblRestzeitCD),
      liste_(programm, {lvwKatalog, lblKatalogTitel, lblKatalogInterpret, lblKatalogDatei}, zeiten_,
             vorschau_, *MMWaveFileX1),
      bearbeitung_(programm, liste_, zeiten_, vorschau_, *MMWaveFileX1),
      ablage_(programm, liste_, zeiten_, vorschau_),
      import_(programm, {liste_, bearbeitung_, vorschau_, *MMWaveFileX1}, *this),
      kopie_(programm, {liste_, ablage_, vorschau_}, *this),
      stapel_(programm, {shpStapel, lblKatalogDatei, lblRestzeitCD}, liste_, vorschau_, *this),
      start_(programm, {liste_, ablage_, vorschau_}, *this) {
  HasBorder = false;
  KnoepfeEinrichten();
  MenueEinrichten();
}

std::vector<frmHauptForm::TabellenKnopf> frmHauptForm::KnopfTabelle() {
  return {
      {&imgCDKopieren, &frmHauptForm::imgCDKopieren_MouseUp},
      {&imgCDAuslesen, &frmHauptForm::imgCDAuslesen_MouseUp},
      {&imgLPKopieren, &frmHauptForm::imgLPKopieren_MouseUp},
      {&imgLPAufnehmen, &frmHauptForm::imgLPAufnehmen_MouseUp},
      {&imgLiedImport, &frmHauptForm::imgLiedImport_MouseUp},
      {&imgLiedKatalog, &frmHauptForm::imgLiedKatalog_MouseUp},
      {&imgDatenBank, &frmHauptForm::imgDatenBank_MouseUp},
      {&imgExtras, &frmHauptForm::imgExtras_MouseUp},
      {&imgNeuerKatalog, &frmHauptForm::imgNeuerKatalog_MouseUp},
      {&imgKatalogÖffnen, &frmHauptForm::imgKatalogÖffnen_MouseUp},
      {&imgKatalogSpeichern, &frmHauptForm::imgKatalogSpeichern_MouseUp},
      {&imgKatalogAnhaengen, &frmHauptForm::imgKatalogAnhaengen_MouseUp},
      {&imgPrintCover, &frmHauptForm::imgPrintCover_MouseUp},
      {&imgTitel, &frmHauptForm::imgTitel_MouseUp},
      {&imgDeleteTitel, &frmHauptForm::imgDeleteTitel_MouseUp},
      {&imgÜberblenden, &frmHauptForm::imgÜberblenden_MouseUp},
      {&imgBrennen, &frmHauptForm::imgBrennen_MouseUp},
      {&imgMixer, &frmHauptForm::imgMixer_MouseUp},
      {&imgAssistent, &frmHauptForm::imgAssistent_MouseUp},
      {&imgWaveEdit, &frmHauptForm::imgWaveEdit_MouseUp},
  };
}

void frmHauptForm::KnoepfeEinrichten() {
  for (const TabellenKnopf& eintrag : KnopfTabelle()) {
    Knopf(*eintrag.Knopf, [this, aktion = eintrag.Aktion] { (this->*aktion)(); });
  }
  Knopf(imgAbspielen, [this] { imgAbspielen_MouseUp(); });
  Knopf(imgStop, [this] { imgStop_MouseUp(); });
  Knopf(imgDelTitel, [this] { imgDelTitel_MouseUp(); });
  Knopf(imgTitelBearb, [this] { imgTitelBearb_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
  Knopf(imgMinimize, [this] { imgMinimize_MouseUp(); });
  Knopf(Logo, [this] { Logo_Click(); });
  for (int i = 0; i < imgMove.Count(); ++i) Knopf(imgMove(i), [this, i] { imgMove_MouseUp(i); });
  lblKatalogTitel.DblClick = [this] { KatalogDatenAendern(); };
  lblKatalogInterpret.Click = [this] { KatalogDatenAendern(); };
  lvwKatalog.SetColumns(Spalten());
  lvwKatalog.ItemClick = [this](int zeile) { lvwKatalog_ItemClick(zeile); };
  lvwKatalog.DblClick = [this] { imgWaveEdit_MouseUp(); };
  lvwKatalog.KeyUp = [this](int taste) { lvwKatalog_KeyUp(taste); };
  lvwKatalog.MouseUp = [this](int taste) { lvwKatalog_MouseUp(taste); };
  lvwKatalog.OLEDragOver = [this](const std::vector<Text>& d) { return lvwKatalog_OLEDragOver(d); };
  lvwKatalog.OLEDragDrop = [this](const std::vector<Text>& d) { lvwKatalog_OLEDragDrop(d); };
  shpStapel.Visible = false;
}

void frmHauptForm::SetTexte() {
  Caption = LoadResString(0);
  const std::vector<TabellenKnopf> tabelle = KnopfTabelle();
  for (int i = 0; i < lblButtCaption.Count(); ++i) {
    PictureButton& knopf = *Element(tabelle, i).Knopf;
    Beschriften(lblButtCaption(i), knopf, LoadResString(kErsteBeschriftung + i));
    knopf.ToolTipText = LoadResString(kErsterHinweis + i);
  }
  std::vector<ListView::Column> spalten = lvwKatalog.Columns();
  for (std::size_t i = 1; i < spalten.size(); ++i) {
    spalten[i].Header = LoadResString(kErsteSpalte + static_cast<int>(i) - 1);
  }
  lvwKatalog.SetColumns(std::move(spalten));
  const auto hinweis = [this](Control& control, int nummer) {
    control.ToolTipText = LoadResString(nummer);
  };
  hinweis(lblKatalogTitel, 8420);
  hinweis(lblKatalogInterpret, 8421);
  hinweis(lblKatalogLaenge, 8422);
  hinweis(lvwKatalog, 8423);
  hinweis(imgMove(0), 8424);
  hinweis(imgMove(1), 8425);
  hinweis(imgAbspielen, 8426);
  hinweis(imgStop, 8427);
  hinweis(imgTitelBearb, 8428);
  hinweis(imgDelTitel, 8429);
  hinweis(lblTimeOver, 8430);
  hinweis(Level, 8431);
  hinweis(lblRestzeitCD, 8432);
  hinweis(imgMinimize, 8433);
  hinweis(Logo, 8445);
  hinweis(imgHelp, 1);
  System& system = prog.plattform.system;
  lblVersion.Caption = ZahlText(system.Major()) + L"." + ZahlText(system.Minor()) + L"." +
                       ZahlText(system.Revision());
  lblTimeOver.Caption = L"";
  MenueBeschriften();
}

void frmHauptForm::Form_Load() {
  FarbenPruefen(prog);
  LayoutAnwenden(kKleinesLayout);
  ToolTipsSetzen(*this);
  Init_Prog();
  GroesseAnpassen();
  grundbild_ = Picture;
  Hintergrund(prog.BackgroundPic);
  for (const TabellenKnopf& eintrag : KnopfTabelle()) {
    eintrag.Knopf->PictureReleased = L"BUTTBLAUUNPRESSED";
    KnopfBild(*eintrag.Knopf);
  }
  Logo.Picture = L"LOGO_QM_KLEIN";
  SkaliereForm(prog, *this);
  if (prog.plattform.bildschirm.TwipsPerPixelX() == kLargeFontTwipsPerPixel) {
    lvwKatalog.FontSize = kListenSchriftGross;
    std::vector<ListView::Column> spalten = lvwKatalog.Columns();
    for (ListView::Column& spalte : spalten) spalte.Width = Ganz32(spalte.Width / 1.25);
    lvwKatalog.SetColumns(std::move(spalten));
  }
  MitteSetzen(prog, *this);
  prog.plattform.schleife.SetFocus(lvwKatalog);
  prog.Zeigen(*this);
  prog.plattform.schleife.DoEvents();
  prog.frmStartUp.Entladen();
  prog.plattform.schleife.MousePointer(Pointer::Normal);
  start_.AusgebessertZeigen();
  if (prog.Show_Start_Assistant) StartAssistentZeigen();
}

void frmHauptForm::GroesseAnpassen() {
  const FensterGroesse groesse = BildschirmPruefen(prog);
  if (groesse == FensterGroesse::Klein) Picture = L"PICBACK_800";
  if (groesse == FensterGroesse::Gross) {
    LayoutAnwenden(kGrossesLayout);
    Picture = L"PICBACK_1000";
  }
}

void frmHauptForm::KnoepfeZeigen() {
  for (const TabellenKnopf& eintrag : KnopfTabelle()) KnopfBild(*eintrag.Knopf);
}

void frmHauptForm::StartAssistentZeigen() {
  const std::shared_ptr<vantora::frmStartAssistent> assistent = prog.frmStartAssistent.Laden();
  prog.ZeigeModal(assistent);
  const int ergebnis = assistent->Ergebnis;
  prog.frmStartAssistent.Entladen();
  switch (ergebnis) {
    case 0:
      Release(imgCDKopieren);
      break;
    case 1:
      Release(imgCDAuslesen);
      break;
    case 2:
      Release(imgLPAufnehmen);
      break;
    case 3:
      Release(imgKatalogÖffnen);
      break;
    case 4:
      Release(imgDatenBank);
      break;
    case 5:
      Release(imgLiedImport);
      break;
    default:
      break;
  }
}

void frmHauptForm::Hintergrund(bool zeigen) {
  const Text eigenes = AddBackslash(prog.AppPfad) + L"BackPic.jpg";
  if (!zeigen) {
    Picture = L"";
  } else if (prog.DateiExistiert(eigenes)) {
    Picture = prog.plattform.dateien.SystemPath(eigenes).wstring();
  } else {
    Picture = grundbild_;
  }
}

void frmHauptForm::Form_GotFocus() {
  vorschau_.PegelErneuern();
  KatalogShow();
}

void frmHauptForm::Form_Paint() {
  lvwKatalog.Visible = false;
  lvwKatalog.Visible = true;
}

void frmHauptForm::Form_Unload() {
  PlayWaveNormal(L"");
}

}  // namespace vantora
