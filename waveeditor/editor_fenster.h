// The operations of the editor window that its parts call. All calls come from the interface thread
// while the window lives.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class EditorFenster {
 public:
  virtual const Text& WorkDatei() const = 0;  // the file that is open

  // ---- what is shown ----
  virtual void Status(const Text& text) = 0;          // shows a line about the work
  virtual void StelleZeigen(std::int64_t frame) = 0;  // shows the place and scrolls to it
  virtual void NormalizeUhr(bool an) = 0;             // shows the progress of normalizing, or stops
  virtual void KlangZeigen() = 0;  // reads the file and draws it; events run meanwhile
  // Opens the file again, reads it and draws it. Raises the errors of the file. Events run
  // meanwhile.
  virtual void NeuZeigen() = 0;
  // True when another program has changed the file since it was read. A message says so, and the
  // file is shown as it is now.
  virtual bool Veraendert() = 0;
  virtual void marker_update() = 0;  // selects the range that the marker covers

  // ---- when the user can work ----
  virtual void Freigeben(bool frei) = 0;  // enables the window, or disables it
  // Disables the window while a file is rendered. The user can still end the program, because a
  // render that has failed never unlocks the window.
  virtual void Sperren(bool gesperrt) = 0;
  // True while the window opens or closes, or while the file is being written. Nothing may begin to
  // play then.
  virtual bool Besetzt() const = 0;

  // ---- other parts ----
  virtual void RuntimeConnections() = 0;  // wires the chain; events run meanwhile
  virtual void StapelFertig() = 0;        // a file of a batch has been written

 protected:
  ~EditorFenster() = default;
};

}  // namespace vantora
