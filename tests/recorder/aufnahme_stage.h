// A program with an open recorder, and the files that it has written.
#pragma once

#include "recorder/frmAufnehmen.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/buehne.h"
#include "tests/support/geraete.h"

namespace vantora {

class AufnahmeBuehne : private Geraete {
 public:
  AufnahmeBuehne() : b([this](HeadlessPlatform& p) { return Umbau(p); }) {
    platte->OldRoomIsFree = true;
    b.Start();
  }

  static Text Ort(const Text& name) { return L"C:\\Vantora\\Wavs\\" + name; }

  // Starts a recording of several takes whose names begin with "lp": of a whole record, or split by
  // level.
  void OeffneLP() {
    b.WaehltDatei({Ort(L"lp.wav")});
    b.Tu([this] { b.Haupt().imgLPKopieren_MouseUp(); });
  }
  void OeffneEinzeln(int meldungen = 0) {
    b.Antwortet(kNein);
    for (int i = 0; i < meldungen; ++i) b.Antwortet(kNein);
    b.Tu([this] { b.Haupt().imgLPAufnehmen_MouseUp(); });
  }
  frmAufnehmen& A() { return b.prog.frmAufnehmen(); }
  void Druecke(Control& control) {
    b.Tu([&] { b.platform.hands.Press(control); });
  }
  void Nimm(const Text& name) {  // a single take
    b.WaehltDatei({Ort(name)});
    Druecke(A().imgAufnehmen);
  }
  void Nimm(const Text& name, int ms) {  // and stops it after this time
    Nimm(name);
    Warte(ms);
    Druecke(A().imgRecordStop);
  }
  void Warte(int ms) { b.platform.loop.Pass(ms); }
  // Plays sound into the input from now on.
  void Spiele(const std::string& daten) {
    const Text datei = L"C:\\spiel" + std::to_wstring(++gespielt_) + L".wav";
    b.Datei(datei, test::Wave(daten));
    b.platform.input.Play(datei);
  }
  bool Gibt(const Text& name) { return b.prog.DateiExistiert(Ort(name)); }
  // The sound of a take; empty when the file is not a complete wave.
  std::string Klang(const Text& name) { return test::SoundOf(b.Lies(Ort(name))); }

  using Geraete::frei;
  using Geraete::platte;
  Buehne b;

 private:
  int gespielt_ = 0;
};

}  // namespace vantora
