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

// Holds a window that is loaded when it is first asked for, and loaded anew after it was unloaded.
template <typename W>
class Fenster {
 public:
  explicit Fenster(Programm& programm) : prog_(programm) {}

  W& operator()() { return *Laden(); }
  bool Geladen() const { return fenster_ != nullptr; }
  std::shared_ptr<W> Laden() {
    if (!fenster_) {
      fenster_ = std::make_shared<W>(prog_);
      // Kept here as well: a window may unload itself while it loads.
      std::shared_ptr<W> bleibt = fenster_;
      bleibt->Form_Load();
      return bleibt;
    }
    return fenster_;
  }
  void Entladen();

 private:
  Programm& prog_;
  std::shared_ptr<W> fenster_;
};

}  // namespace vantora
