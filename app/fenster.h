// What all windows of the program have in common: their layout and texts are brought in when they
// are loaded, F1 opens the help, and caption labels act as the buttons that they lie on.
#pragma once

#include "platform/form.h"

#include <functional>
#include <memory>
#include <vector>

namespace vantora {

struct Programm;

class VtrFenster : public Form {
 public:
  VtrFenster(Programm& programm, const Text& name);

  virtual void Form_Load() {}
  virtual void Form_Unload() {}
  virtual void SetTexte() {}
  bool Form_KeyDown(int taste, bool strg) override;

 protected:
  // Places every control by the layout of that name; a control without a line stays where it is.
  void LayoutAnwenden(const Text& name);
  // Layout of the window's own name, tooltips, scaling, centre: the start of every Form_Load.
  void FensterEinrichten();
  // A picture button with its released and pressed pictures, acting on the left button's release.
  void Knopf(PictureButton& knopf, std::function<void()> aktion);
  // A caption label on a button runs the button's action, with the pressed picture first.
  void Beschriften(Label& schild, PictureButton& knopf, const Text& text);
  Text LoadResString(int nummer) const;

  Programm& prog;
};

// Sets captions and tooltips of all controls to "--", so that only what SetTexte knows has words.
void ToolTipsSetzen(Form& fenster);
// Enlarges a window and its controls for large fonts.
void SkaliereForm(Programm& prog, Form& fenster);
void MitteSetzen(Programm& prog, Form& fenster);
// The released picture of a button.
void KnopfBild(PictureButton& ziel);

// The place of one window: it is loaded when it is first asked for, and loaded anew after it was
// unloaded. The window itself may stand on a higher level, so the place knows it only by its maker.
class FensterPlatz {
 public:
  using Macher = std::shared_ptr<VtrFenster> (*)(Programm&);

  explicit FensterPlatz(Programm& programm) : prog_(programm) {}

  void MacherSetzen(Macher macher) { macher_ = macher; }
  bool Geladen() const { return fenster_ != nullptr; }
  std::shared_ptr<VtrFenster> Holen();  // loads it if need be
  void Entladen();

 private:
  Programm& prog_;
  Macher macher_ = nullptr;
  std::shared_ptr<VtrFenster> fenster_;
};

// The same under the window's own type, for callers that see its header. The maker of a
// `Fenster<W>` makes a W.
template <typename W>
class Fenster : public FensterPlatz {
 public:
  using FensterPlatz::FensterPlatz;

  W& operator()() { return *Laden(); }
  std::shared_ptr<W> Laden() { return std::static_pointer_cast<W>(Holen()); }
};

}  // namespace vantora
