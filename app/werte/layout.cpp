#include "app/werte/layout.h"

#include "app/werte/zahlen.h"
#include "app/werte/zeichen.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

namespace vantora {

namespace {

constexpr const wchar_t* kTrenner = L" \t\r";

using Sicht = std::wstring_view;  // a part of the layout

std::vector<Sicht> Worte(Sicht zeile) {
  zeile = zeile.substr(0, zeile.find(L'#'));
  std::vector<Sicht> worte;
  std::size_t anfang = zeile.find_first_not_of(kTrenner);
  while (anfang != Sicht::npos) {
    const std::size_t ende = std::min(zeile.find_first_of(kTrenner, anfang), zeile.size());
    worte.push_back(zeile.substr(anfang, ende - anfang));
    anfang = zeile.find_first_not_of(kTrenner, ende);
  }
  return worte;
}

int Zahl(Sicht wort) {
  return Ganz32(Val(Text(wort)));
}

int Twips(const std::vector<Sicht>& worte, std::size_t platz) {
  return platz < worte.size() ? Zahl(worte[platz]) : 0;
}

Color FarbeLesen(Sicht wort) {
  if (wort == L"none") return kTransparent;
  Color farbe = 0;
  for (const wchar_t zeichen : Ucase(Text(wort))) {
    const std::size_t ziffer = Sicht(L"0123456789ABCDEF").find(zeichen);
    if (ziffer != Sicht::npos) farbe = (farbe << 4U) | static_cast<Color>(ziffer);
  }
  return farbe;
}

Control* Gemeint(Form& fenster, Sicht name) {
  const std::size_t klammer = name.find(L'(');
  if (klammer == Sicht::npos) return fenster.Find(Text(name));
  return fenster.Find(Text(name.substr(0, klammer)), Zahl(name.substr(klammer + 1)));
}

void Ausrichten(Control& control, Sicht wert) {
  if (auto* schild = dynamic_cast<Label*>(&control)) {
    schild->Align = wert == L"right"    ? Alignment::Right
                    : wert == L"center" ? Alignment::Center
                                        : Alignment::Left;
  }
}

void Bild(Control& control, Sicht wert) {
  if (auto* knopf = dynamic_cast<PictureButton*>(&control)) {
    knopf->Picture = Text(wert);
    knopf->PictureReleased = Text(wert);
  }
  if (auto* bild = dynamic_cast<PictureBox*>(&control)) bild->Picture = Text(wert);
}

// Only a control that was made earlier can hold this one, so that no two controls hold each other.
void Hineinlegen(Control& control, Sicht wert) {
  Control* behaelter = Gemeint(control.Owner(), wert);
  const std::vector<Control*>& alle = control.Owner().Controls;
  const auto hier = std::find(alle.begin(), alle.end(), &control);
  if (behaelter == nullptr || std::find(alle.begin(), hier, behaelter) == hier) return;
  const ControlKind art = behaelter->Kind();
  if (art == ControlKind::PictureBox || art == ControlKind::Shape) control.Container = behaelter;
}

using Setzer = void (*)(Control&, Sicht);

const std::map<Sicht, Setzer>& Eigenschaften() {
  static const std::map<Sicht, Setzer> kAlle = {
      {L"picture", Bild},
      {L"align", Ausrichten},
      {L"in", Hineinlegen},
      {L"pressed",
       [](Control& c, Sicht w) {
         if (auto* knopf = dynamic_cast<PictureButton*>(&c)) knopf->PicturePressed = Text(w);
       }},
      {L"icon",
       [](Control& c, Sicht w) {
         if (auto* knopf = dynamic_cast<PictureButton*>(&c)) knopf->Icon = Text(w);
       }},
      {L"font", [](Control& c, Sicht w) { c.FontSize = Zahl(w); }},
      {L"bold", [](Control& c, Sicht w) { c.FontBold = w == L"1"; }},
      {L"fore", [](Control& c, Sicht w) { c.ForeColor = FarbeLesen(w); }},
      {L"back", [](Control& c, Sicht w) { c.BackColor = FarbeLesen(w); }},
      {L"tab",
       [](Control& c, Sicht w) {
         c.TabIndex = Zahl(w);
         if (auto* schild = dynamic_cast<Label*>(&c)) schild->TabStop = true;
       }},
      {L"wrap",
       [](Control& c, Sicht w) {
         if (auto* schild = dynamic_cast<Label*>(&c)) schild->WordWrap = w == L"1";
       }},
      {L"fill",
       [](Control& c, Sicht w) {
         if (auto* flaeche = dynamic_cast<Shape*>(&c)) flaeche->FillColor = FarbeLesen(w);
       }},
      {L"line",
       [](Control& c, Sicht w) {
         if (auto* flaeche = dynamic_cast<Shape*>(&c)) flaeche->BorderColor = FarbeLesen(w);
       }},
  };
  return kAlle;
}

void FormZeile(const std::vector<Sicht>& worte, Form& fenster) {
  fenster.Window.Width = Twips(worte, 1);
  fenster.Window.Height = Twips(worte, 2);
  for (std::size_t i = 3; i < worte.size(); ++i) {
    const Sicht wort = worte[i];
    if (wort.starts_with(L"picture=")) fenster.Picture = Text(wort.substr(8));
    if (wort.starts_with(L"back=")) fenster.Window.BackColor = FarbeLesen(wort.substr(5));
    if (wort.starts_with(L"border=")) fenster.HasBorder = wort.substr(7) != L"0";
  }
}

void SpaltenZeile(const std::vector<Sicht>& worte, Form& fenster) {
  auto* liste = worte.size() > 1 ? dynamic_cast<ListView*>(Gemeint(fenster, worte[1])) : nullptr;
  if (liste == nullptr) return;
  std::vector<ListView::Column> spalten = liste->Columns();
  spalten.resize(worte.size() - 2);
  for (std::size_t i = 0; i < spalten.size(); ++i) spalten[i].Width = Twips(worte, i + 2);
  liste->SetColumns(std::move(spalten));
}

void ControlZeile(const std::vector<Sicht>& worte, Form& fenster) {
  Control* control = Gemeint(fenster, worte[0]);
  if (control == nullptr) return;
  control->Left = Twips(worte, 1);
  control->Top = Twips(worte, 2);
  control->Width = Twips(worte, 3);
  control->Height = Twips(worte, 4);
  for (std::size_t i = 5; i < worte.size(); ++i) {
    const std::size_t gleich = worte[i].find(L'=');
    if (gleich == Sicht::npos) continue;
    const auto setzer = Eigenschaften().find(worte[i].substr(0, gleich));
    if (setzer != Eigenschaften().end()) setzer->second(*control, worte[i].substr(gleich + 1));
  }
}

}  // namespace

void LayoutLesen(const Text& layout, Form& fenster) {
  std::size_t anfang = 0;
  while (anfang < layout.size()) {
    const std::size_t ende = std::min(layout.find(L'\n', anfang), layout.size());
    const std::vector<Sicht> worte = Worte(Sicht(layout).substr(anfang, ende - anfang));
    anfang = ende + 1;
    if (worte.empty()) continue;
    if (worte[0] == L"form") {
      FormZeile(worte, fenster);
    } else if (worte[0] == L"columns") {
      SpaltenZeile(worte, fenster);
    } else {
      ControlZeile(worte, fenster);
    }
  }
}

}  // namespace vantora
