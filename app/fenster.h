// The parts that all windows of the program share: loading sets their layout and texts, F1 opens
// the help, and a caption label acts as the button below it.
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
  // Places every control as the layout of that name says; a control without a line stays where it
  // is.
  void LayoutAnwenden(const Text& name);
  // Sets the layout of the window's own name, the tooltips, the scale and the centre. Every
  // Form_Load begins with it.
  void FensterEinrichten();
  // Makes a picture button from its released and pressed pictures; releasing the left button runs
  // `aktion`.
  void Knopf(PictureButton& knopf, std::function<void()> aktion);
  // Puts a caption label on a button. A click on the label shows the pressed picture and runs the
  // button's action.
  void Beschriften(Label& schild, PictureButton& knopf, const Text& text);
  Text LoadResString(int nummer) const;

  Programm& prog;
};

// Sets captions and tooltips of all controls to "--", so that only texts set by SetTexte show.
void ToolTipsSetzen(Form& fenster);
// Enlarges a window and its controls for large fonts.
void SkaliereForm(Programm& prog, Form& fenster);
void MitteSetzen(Programm& prog, Form& fenster);
// Shows the released picture of a button.
void KnopfBild(PictureButton& ziel);

// Holds a window. The window is loaded at its first use, and loaded anew after it was unloaded. It
// may stand on a higher level, so this class knows it only by the function that makes it.
class FensterPlatz {
 public:
  using Macher = std::shared_ptr<VtrFenster> (*)(Programm&);

  explicit FensterPlatz(Programm& programm) : prog_(programm) {}

  void MacherSetzen(Macher macher) { macher_ = macher; }
  bool Geladen() const { return fenster_ != nullptr; }
  std::shared_ptr<VtrFenster> Holen();  // loads the window if needed
  void Entladen();

 private:
  Programm& prog_;
  Macher macher_ = nullptr;
  std::shared_ptr<VtrFenster> fenster_;
};

// Holds a window of a known type, for callers that may include the window's header. The maker of a
// `Fenster<W>` makes a W.
template <typename W>
class Fenster : public FensterPlatz {
 public:
  using FensterPlatz::FensterPlatz;

  W& operator()() { return *Laden(); }
  std::shared_ptr<W> Laden() { return std::static_pointer_cast<W>(Holen()); }
};

}  // namespace vantora
