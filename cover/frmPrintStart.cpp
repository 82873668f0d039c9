#include "cover/frmPrintStart.h"

#include "app/katalog_dienst.h"
#include "app/programm.h"
#include "app/werte/feld.h"
#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"
#include "cover/frmPrint.h"
#include "cover/seiten.h"
#include "dialogs/druck_dialoge.h"

namespace vantora {

namespace {

constexpr const wchar_t* kAbstand = L"   ";
constexpr std::int16_t kWahr = -1;

}  // namespace

frmPrintStart::frmPrintStart(Programm& programm) : VtrFenster(programm, L"frmPrintStart") {
  txtPrev.MultiLine = true;
  txtPrev.SelectOnFocus = false;
  txtPrev.Click = [this] { txtPrev_Click(); };
  for (int i = 0; i < txtTitel.Count(); ++i) {
    txtTitel(i).GotFocus = [this, i] { txtTitel_GotFocus(i); };
    txtTitel(i).LostFocus = [this, i] { txtTitel_LostFocus(i); };
    txtTitel(i).Change = [this, i] { Element(getippt_, i) = true; };
    Knopf(imgColor(i), [this, i] { imgColor_MouseUp(i); });
  }
  Knopf(imgSchrift, [this] { imgSchrift_MouseUp(); });
  Knopf(imgReady, [this] { imgReady_MouseUp(); });
  Knopf(imgDruckEnde, [this] { imgDruckEnde_MouseUp(); });
  Knopf(imgHelp, [this] { prog.Hilfe(Name); });
}

void frmPrintStart::Form_Load() {
  FensterEinrichten();
  SetTexte();
  Text zeilen;
  for (std::size_t i = 1; i < prog.Katalog.size(); ++i) {
    const KatalogEintrag& e = prog.Katalog[i];
    zeilen += ZahlText(static_cast<std::int64_t>(i)) + kAbstand + e.Titel.Getrimmt() + kAbstand +
              e.Interpret.Getrimmt() + kZeilenEnde;
  }
  txtPrev.Text = zeilen;
  if (prog.Katalog.size() > 1) {
    txtTitel(0).Text = prog.Katalog[1].KatalogTitel.Getrimmt();
    txtTitel(1).Text = prog.Katalog[1].KatalogInterpret.Getrimmt();
  }
  static_cast<CoverZustand&>(prog) = CoverZustand();
  prog.CoverTitel = LoadResString(17600);
  prog.CoverInterpret = LoadResString(17601);
  ZeilenPosFuellen(prog, prog.plattform.bildschirm.TwipsPerPixelX());
  SchriftZeigen();
  FarbenZeigen();
}

void frmPrintStart::SetTexte() {
  Caption = LoadResString(17200);
  lblTitel.Caption = LoadResString(17200);
  lblHilfe.Caption = LoadResString(17201);
  lblFeld(0).Caption = LoadResString(17203);
  lblFeld(1).Caption = LoadResString(17202);
  lblFeld(2).Caption = LoadResString(17204);
  txtTitel(0).AccessibleName = lblFeld(0).Caption;
  txtTitel(1).AccessibleName = lblFeld(1).Caption;
  txtPrev.AccessibleName = lblFeld(2).Caption;
  txtTitel(0).ToolTipText = LoadResString(17400);
  txtTitel(1).ToolTipText = LoadResString(17401);
  txtPrev.ToolTipText = LoadResString(17402);
  Beschriften(lblButtCaption(0), imgSchrift, LoadResString(17205));
  Beschriften(lblButtCaption(1), imgColor(0), LoadResString(17206));
  Beschriften(lblButtCaption(2), imgColor(1), LoadResString(17207));
  Beschriften(lblButtCaption(3), imgDruckEnde, LoadResString(17209));
  Beschriften(lblButtCaption(4), imgReady, LoadResString(17208));
  imgSchrift.ToolTipText = LoadResString(17403);
  imgColor(0).ToolTipText = LoadResString(17404);
  imgColor(1).ToolTipText = LoadResString(17405);
  imgReady.ToolTipText = LoadResString(17406);
  imgDruckEnde.ToolTipText = LoadResString(17407);
  imgHelp.ToolTipText = LoadResString(1);
}

void frmPrintStart::SchriftZeigen() {
  for (TextBox* feld : {&txtTitel(0), &txtTitel(1), &txtPrev}) {
    feld->FontName = prog.CoverFont;
    feld->FontSize = prog.CoverFontSize;
    feld->FontBold = prog.CoverFontBold != 0;
    feld->FontItalic = prog.CoverFontItalic != 0;
  }
}

void frmPrintStart::FarbenZeigen() {
  for (TextBox* feld : {&txtTitel(0), &txtTitel(1), &txtPrev}) {
    feld->ForeColor = prog.CoverTextFarbe;
    feld->BackColor = prog.CoverHintergrund;
  }
}

// The text box selects its text when it gets the focus.
void frmPrintStart::txtTitel_GotFocus(int index) {
  txtTitel(index).SelectOnFocus = true;
}

// The first box holds the performer of the cover, the second box the text on its spines.
void frmPrintStart::txtTitel_LostFocus(int index) {
  Element(getippt_, index) = false;
  const Text text = Trim(txtTitel(index).Text);
  if (index == 0) prog.CoverInterpret = text;
  if (index == 1) prog.CoverTitel = text;
}

void frmPrintStart::txtPrev_Click() {
  prog.plattform.schleife.SetFocus(txtPrev);
}

void frmPrintStart::imgSchrift_MouseUp() {
  Schriftart schrift{prog.CoverFont, prog.CoverFontSize, prog.CoverFontBold != 0,
                     prog.CoverFontItalic != 0};
  if (!SchriftHolen(prog, schrift, kSchriftFuerBeide)) return;
  prog.CoverFont = schrift.Name;
  prog.CoverFontSize = Ganz16(schrift.Groesse);
  prog.CoverFontBold = schrift.Fett ? kWahr : 0;
  prog.CoverFontItalic = schrift.Kursiv ? kWahr : 0;
  SchriftZeigen();
}

void frmPrintStart::imgColor_MouseUp(int index) {
  const Text titel = index == 0 ? Text(L"Textfarbe auswählen") : LoadResString(17602);
  if (!FarbeHolen(prog, titel, index == 0 ? prog.CoverTextFarbe : prog.CoverHintergrund)) return;
  FarbenZeigen();
}

// A line ends at its line feed; the carriage return before it does not belong to the line.
void frmPrintStart::ZeilenTeilen() {
  prog.CoverZeilen.fill(Text());
  int z = 1;
  for (const wchar_t zeichen : txtPrev.Text()) {
    if (zeichen == L'\n') {
      if (z <= kCoverZeilen && Element(prog.CoverZeilen, z).ends_with(L'\r')) {
        Element(prog.CoverZeilen, z).pop_back();
      }
      ++z;
    } else if (z > kCoverZeilen) {
      throw Laufzeitfehler(kFehlerIndex, LoadResString(30180));
    } else {
      Element(prog.CoverZeilen, z) += zeichen;
    }
  }
}

// A click on the button leaves the focus in the text box, so a changed text is taken over here.
void frmPrintStart::imgReady_MouseUp() {
  for (int i = 0; i < txtTitel.Count(); ++i) {
    if (Element(getippt_, i)) txtTitel_LostFocus(i);
  }
  ZeilenTeilen();
  const std::shared_ptr<vantora::frmPrint> fenster = prog.frmPrint.Laden();
  fenster->InitLabelPrint();
  prog.ZeigeModal(fenster);
}

void frmPrintStart::imgDruckEnde_MouseUp() {
  prog.Katalogfenster().FreiSetzen(true);
  prog.frmPrint.Entladen();
  prog.frmPrintStart.Entladen();
}

bool frmPrintStart::Form_KeyDown(int taste, bool strg) {
  if (taste != kKeyEscape) return VtrFenster::Form_KeyDown(taste, strg);
  imgDruckEnde_MouseUp();
  return true;
}

}  // namespace vantora
