// The operations of the main window that its parts call. All calls come from the interface thread
// while the window lives.
#pragma once

namespace vantora {

class HauptFenster {
 public:
  virtual void SetTexte() = 0;
  virtual void KnoepfeZeigen() = 0;  // shows all buttons as released

  // ---- when the user can work ----
  virtual void FreiSetzen(bool frei) = 0;  // enables the window, or disables it
  // Lets the user end the program while the window is disabled, because a batch that has failed
  // never enables it.
  virtual void EndeErlauben(bool erlaubt) = 0;

  // ---- other windows ----
  virtual void imgBrennen_MouseUp() = 0;  // opens the burn window with the catalog

 protected:
  ~HauptFenster() = default;
};

}  // namespace vantora
