#include "app/layout.h"

#include "app/zahlen.h"
#include "app/zeichen.h"

#include <functional>
#include <map>

namespace vantora {

namespace {

std::vector<Text> Worte(const Text& zeile) {
  std::vector<Text> worte;
  Text wort;
  for (const wchar_t zeichen : zeile + L" ") {
    if (zeichen == L'#') break;
    if (zeichen != L' ' && zeichen != L'\t' && zeichen != L'\r') {
      wort += zeichen;
    } else if (!wort.empty()) {
      worte.push_back(std::move(wort));
      wort.clear();
    }
  }
  if (!wort.empty()) worte.push_back(std::move(wort));
  return worte;
}

int Twips(const std::vector<Text>& worte, std::size_t platz) {
  return platz < worte.size() ? Ganz32(Val(worte[platz])) : 0;
}

Color FarbeLesen(const Text& text) {
  if (text == L"none") return kTransparent;
  Color farbe = 0;
  for (const wchar_t zeichen : Ucase(text)) {
    const std::size_t ziffer = Text(L"0123456789ABCDEF").find(zeichen);
    if (ziffer != Text::npos) farbe = (farbe << 4U) | static_cast<Color>(ziffer);
  }
  return farbe;
}

Control* Gemeint(Form& fenster, const Text& name) {
  const std::size_t klammer = name.find(L'(');
  if (klammer == Text::npos) return fenster.Find(name);
  return fenster.Find(name.substr(0, klammer), Ganz32(Val(name.substr(klammer + 1))));
}

void Ausrichten(Control& control, const Text& wert) {
  if (auto* schild = dynamic_cast<Label*>(&control)) {
    schild->Align = wert == L"right"    ? Alignment::Right
                    : wert == L"center" ? Alignment::Center
                                        : Alignment::Left;
  }
}

void Bild(Control& control, const Text& wert) {
  if (auto* knopf = dynamic_cast<PictureButton*>(&control)) {
    knopf->Picture = wert;
    knopf->PictureReleased = wert;
  }
  if (auto* bild = dynamic_cast<PictureBox*>(&control)) bild->Picture = wert;
}

void Hineinlegen(Control& control, const Text& wert) {
  Control* behaelter = Gemeint(control.Owner(), wert);
  if (behaelter == nullptr || behaelter == &control) return;
  const ControlKind art = behaelter->Kind();
  if (art == ControlKind::PictureBox || art == ControlKind::Shape) control.Container = behaelter;
}

using Setzer = std::function<void(Control&, const Text&)>;

const std::map<Text, Setzer>& Eigenschaften() {
  static const std::map<Text, Setzer> kAlle = {
      {L"picture", Bild},
      {L"align", Ausrichten},
      {L"in", Hineinlegen},
      {L"pressed",
       [](Control& c, const Text& w) {
         if (auto* knopf = dynamic_cast<PictureButton*>(&c)) knopf->PicturePressed = w;
       }},
      {L"icon",
       [](Control& c, const Text& w) {
         if (auto* knopf = dynamic_cast<PictureButton*>(&c)) knopf->Icon = w;
       }},
      {L"font", [](Control& c, const Text& w) { c.FontSize = Ganz32(Val(w)); }},
      {L"bold", [](Control& c, const Text& w) { c.FontBold = w == L"1"; }},
      {L"fore", [](Control& c, const Text& w) { c.ForeColor = FarbeLesen(w); }},
      {L"back", [](Control& c, const Text& w) { c.BackColor = FarbeLesen(w); }},
      {L"tab",
       [](Control& c, const Text& w) {
         c.TabIndex = Ganz32(Val(w));
         if (auto* schild = dynamic_cast<Label*>(&c)) schild->TabStop = true;
       }},
      {L"wrap",
       [](Control& c, const Text& w) {
         if (auto* schild = dynamic_cast<Label*>(&c)) schild->WordWrap = w == L"1";
       }},
      {L"fill",
       [](Control& c, const Text& w) {
         if (auto* flaeche = dynamic_cast<Shape*>(&c)) flaeche->FillColor = FarbeLesen(w);
       }},
      {L"line",
       [](Control& c, const Text& w) {
         if (auto* flaeche = dynamic_cast<Shape*>(&c)) flaeche->BorderColor = FarbeLesen(w);
       }},
  };
  return kAlle;
}

void FormZeile(const std::vector<Text>& worte, Form& fenster) {
  fenster.Window.Width = Twips(worte, 1);
  fenster.Window.Height = Twips(worte, 2);
  for (std::size_t i = 3; i < worte.size(); ++i) {
    const Text& wort = worte[i];
    if (wort.starts_with(L"picture=")) fenster.Picture = wort.substr(8);
    if (wort.starts_with(L"back=")) fenster.Window.BackColor = FarbeLesen(wort.substr(5));
    if (wort.starts_with(L"border=")) fenster.HasBorder = wort.substr(7) != L"0";
  }
}

void SpaltenZeile(const std::vector<Text>& worte, Form& fenster) {
  auto* liste = worte.size() > 1 ? dynamic_cast<ListView*>(fenster.Find(worte[1])) : nullptr;
  if (liste == nullptr) return;
  std::vector<ListView::Column> spalten = liste->Columns();
  spalten.resize(worte.size() - 2);
  for (std::size_t i = 0; i < spalten.size(); ++i) spalten[i].Width = Twips(worte, i + 2);
  liste->SetColumns(std::move(spalten));
}

void ControlZeile(const std::vector<Text>& worte, Form& fenster) {
  Control* control = Gemeint(fenster, worte[0]);
  if (control == nullptr) return;
  control->Left = Twips(worte, 1);
  control->Top = Twips(worte, 2);
  control->Width = Twips(worte, 3);
  control->Height = Twips(worte, 4);
  for (std::size_t i = 5; i < worte.size(); ++i) {
    const std::size_t gleich = worte[i].find(L'=');
    if (gleich == Text::npos) continue;
    const auto setzer = Eigenschaften().find(worte[i].substr(0, gleich));
    if (setzer != Eigenschaften().end()) setzer->second(*control, worte[i].substr(gleich + 1));
  }
}

}  // namespace

void LayoutLesen(const Text& layout, Form& fenster) {
  std::size_t anfang = 0;
  while (anfang < layout.size()) {
    const std::size_t ende = std::min(layout.find(L'\n', anfang), layout.size());
    const std::vector<Text> worte = Worte(layout.substr(anfang, ende - anfang));
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
