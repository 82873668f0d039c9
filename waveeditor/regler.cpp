#include "waveeditor/regler.h"

#include "app/dienste.h"
#include "app/werte/zahlen.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

constexpr int kFeldZeichen = 6;

}  // namespace

void Setzen(Slider& schieber, double wert) {
  const int neu = Ganz32(std::clamp<double>(Runden(wert), schieber.Min, schieber.Max));
  if (neu == schieber.Value()) return;
  schieber.Value = neu;
  schieber.Change();
}

void Setzen(CheckBox& kasten, int wert) {
  if (kasten.Value() == wert) return;
  kasten.Value = wert;
  kasten.Click();
}

void ReglerBrett::Hinzufuegen(Regler regler) {
  const std::size_t nummer = plaetze_.size();
  plaetze_.push_back({std::move(regler), {}});
  const Regler& r = plaetze_.back().R;
  r.Schieber->Min = r.Von;
  r.Schieber->Max = r.Bis;
  r.Schieber->Value = r.Anfang;
  r.Schieber->Change = [this, nummer] { Geaendert(plaetze_[nummer]); };
  if (r.Feld == nullptr) return;
  r.Feld->MaxLength = kFeldZeichen;
  r.Feld->KeyPress = [this, nummer](int taste) {
    if (taste != kKeyReturn) return NurZiffern(taste);
    FeldUebernehmen(plaetze_[nummer], true);
    return true;
  };
  r.Feld->GotFocus = [this, nummer] { plaetze_[nummer].Vorher = plaetze_[nummer].R.Feld->Text; };
  // A box shows less than its slider has (percent, decibels, "Off"), so a box that the focus has
  // only passed through must not write back what it shows.
  r.Feld->LostFocus = [this, nummer] {
    Platz& platz = plaetze_[nummer];
    if (platz.R.Feld->Text() != platz.Vorher) FeldUebernehmen(platz, false);
  };
}

void ReglerBrett::AlleAnwenden() {
  for (Platz& platz : plaetze_) Geaendert(platz);
}

void ReglerBrett::Geaendert(Platz& platz) {
  if (platz.R.Feld != nullptr) FeldZeigen(platz);
  platz.R.Wirkung(platz.R.Schieber->Value);
}

void ReglerBrett::FeldZeigen(Platz& platz) {
  const int wert = platz.R.Schieber->Value;
  platz.Vorher = platz.R.Anzeige ? platz.R.Anzeige(wert) : ZahlText(wert);
  platz.R.Feld->Text = platz.Vorher;
}

// Takes the number in the box. Afterwards the box shows the value of the slider, even if the slider
// has not moved.
void ReglerBrett::FeldUebernehmen(Platz& platz, bool mitReturn) {
  if (platz.R.Eingabe) {
    platz.R.Eingabe(mitReturn);
  } else {
    Setzen(*platz.R.Schieber, Val(platz.R.Feld->Text));
  }
  FeldZeigen(platz);
}

}  // namespace vantora
