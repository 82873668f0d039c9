// What the parts of the wave editor ask of the window that they belong to. All calls come from the
// interface thread, and while the window lives.
#pragma once

#include "platform/text.h"

#include <cstdint>

namespace vantora {

class EditorFenster {
 public:
  virtual const Text& WorkDatei() const = 0;  // the file that is open

  // ---- what is shown ----
  virtual void Status(const Text& text) = 0;          // a line about the work
  virtual void StelleZeigen(std::int64_t frame) = 0;  // a place of the sound, scrolled to
  virtual void NormalizeUhr(bool an) = 0;             // the progress of normalizing
  virtual void KlangZeigen() = 0;    // reads the file and draws it; events run meanwhile
  virtual void NeuZeigen() = 0;      // opens the file again first; errors of that are raised
  virtual void marker_update() = 0;  // selects what the marker covers

  // ---- what the window takes from the user ----
  virtual void Freigeben(bool frei) = 0;
  // While the window is locked the program can still be ended: a render that has failed never
  // unlocks it.
  virtual void Sperren(bool gesperrt) = 0;
  // The window opens or closes, or the file is being written: nothing may begin to play.
  virtual bool Besetzt() const = 0;

  // ---- what concerns other parts ----
  virtual void RuntimeConnections() = 0;  // wires the chain; events run meanwhile
  virtual void StapelFertig() = 0;        // a file of a batch has been written: the window closes

 protected:
  ~EditorFenster() = default;
};

}  // namespace vantora
