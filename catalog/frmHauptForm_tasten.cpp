// The keys of the main window, and the menu of its list, which names the key of each command.

#include "app/programm.h"
#include "catalog/frmHauptForm.h"

namespace vantora {

namespace {

constexpr const wchar_t* kTrennung = L"-";

Shortcut Taste(int taste, std::function<void()> aktion) {
  Shortcut neu;
  neu.Key = taste;
  neu.Act = std::move(aktion);
  return neu;
}

Shortcut Strg(int taste, std::function<void()> aktion) {
  Shortcut neu = Taste(taste, std::move(aktion));
  neu.Control = true;
  return neu;
}

// Moves a track as long as the key is held.
Shortcut Alt(int taste, std::function<void()> aktion) {
  Shortcut neu = Taste(taste, std::move(aktion));
  neu.Alt = neu.Repeats = true;
  return neu;
}

Text TastenName(const Programm& prog, const Shortcut& taste) {
  if (taste.Key == 0) return {};
  const Text halten =
      (taste.Control ? prog.Text(30046) : Text()) + (taste.Alt ? prog.Text(30047) : Text());
  switch (taste.Key) {
    case kKeySpace:
      return halten + prog.Text(30043);
    case kKeyReturn:
      return halten + prog.Text(30044);
    case kKeyDelete:
      return halten + prog.Text(30045);
    case kKeyUp:
      return halten + prog.Text(30048);
    case kKeyDown:
      return halten + prog.Text(30049);
    case kKeyF2:
      return halten + L"F2";
    default:
      return halten + static_cast<wchar_t>(taste.Key);
  }
}

}  // namespace

// In the order of the menu.
std::vector<frmHauptForm::Befehl> frmHauptForm::Befehle() {
  const auto knopf = [](PictureButton& gedrueckt) {
    return [&gedrueckt] {
      if (gedrueckt.InUse()) Release(gedrueckt);
    };
  };
  const auto inDerListe = [this](Shortcut taste) {
    taste.Focus = &lvwKatalog;  // on a button, these keys press the button
    return taste;
  };
  // At the end of the list, a step moves nothing but replaces the undo copy. A key that is held
  // a little too long must not lose this copy.
  const auto schieben = [this, knopf](int index) {
    const int schritt = index == 0 ? -1 : 1;
    return [this, schritt, druck = knopf(imgMove(index))] {
      if (bearbeitung_.KannVerschieben(schritt)) druck();
    };
  };
  const auto mitKnopf = [&](const wchar_t* name, int wort, PictureButton& gedrueckt,
                            Shortcut (*halten)(int, std::function<void()>), int taste) {
    return Befehl{name, wort, halten(taste, knopf(gedrueckt)), knopf(gedrueckt)};
  };
  return {
      {L"mnuAbspielen", 8221, inDerListe(Taste(kKeySpace, [this] { VorspielUmschalten(); })),
       [this] { imgAbspielen_MouseUp(); }},
      {L"mnuWAVEditor", 8222, inDerListe(Taste(kKeyReturn, knopf(imgWaveEdit))),
       [this] { mnuWAVEditor_Click(); }},
      {L"mnuUeberblenden", 8223, {}, [this] { imgTitel_MouseUp(); }},
      {L"mnuEigentschaft", 8224, Taste(kKeyF2, knopf(imgTitelBearb)),
       [this] {
         prog.KatalogGeaendert = true;
         TrackDatenAendern();
       }},
      // The list itself acts when this key is released.
      {L"mnuDelete", 8225, Taste(kKeyDelete, nullptr), [this] { KatRowDelete(); }},
      {L"mnuWaveAssistent", 8226, {}, [this] { mnuWaveAssistent_Click(); }},
      {kTrennung, 0, {}, nullptr},
      {L"mnuAuf", 30050, Alt(kKeyUp, schieben(0)), knopf(imgMove(0))},
      {L"mnuAb", 30051, Alt(kKeyDown, schieben(1)), knopf(imgMove(1))},
      {kTrennung, 0, {}, nullptr},
      mitKnopf(L"mnuNeuerKatalog", 30052, imgNeuerKatalog, Strg, L'N'),
      mitKnopf(L"mnuKatalogOeffnen", 30053, imgKatalogÖffnen, Strg, L'O'),
      mitKnopf(L"mnuKatalogSpeichern", 30054, imgKatalogSpeichern, Strg, L'S'),
      mitKnopf(L"mnuUndo", 30055, imgDeleteTitel, Strg, L'Z'),
      mitKnopf(L"mnuLiedImport", 8204, imgLiedImport, Strg, L'I'),
      mitKnopf(L"mnuBrennen", 8216, imgBrennen, Strg, L'B'),
  };
}

void frmHauptForm::MenueEinrichten() {
  Menu menue{L"mnuKatalog", {}};
  for (Befehl& befehl : Befehle()) {
    if (befehl.Taste.Act) Shortcuts.push_back(befehl.Taste);
    menue.Items.push_back({befehl.Name, befehl.Name == kTrennung ? kTrennung : L"", befehl.Klick});
  }
  Menus.push_back(std::move(menue));
}

void frmHauptForm::MenueBeschriften() {
  const std::vector<Befehl> befehle = Befehle();
  std::vector<MenuItem>& menue = FindMenu(L"mnuKatalog")->Items;
  for (std::size_t i = 0; i < befehle.size(); ++i) {
    if (befehle[i].Wort == 0) continue;
    menue[i].Caption = LoadResString(befehle[i].Wort);
    menue[i].Key = TastenName(prog, befehle[i].Taste);
  }
}

void frmHauptForm::VorspielUmschalten() {
  if (vorschau_.Spielt()) {
    imgStop_MouseUp();
  } else {
    imgAbspielen_MouseUp();
  }
}

}  // namespace vantora
