// A program with the wave editor open on a wave file of the test.
#pragma once

#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/buehne.h"
#include "waveeditor/frmWaveEditor.h"

namespace vantora {

class EditorBuehne {
 public:
  static constexpr const wchar_t* kDatei = L"C:\\Vantora\\Wavs\\a.wav";

  EditorBuehne() { b.Start(); }
  explicit EditorBuehne(const Buehne::Umbau& umbau) : b(umbau) { b.Start(); }

  // Writes a file whose frames, numbered from 0, are given by a function.
  using Klang = std::function<KlangFrame(std::int64_t frame)>;
  void Schreibe(std::int64_t frames, const Klang& klang) {
    std::vector<std::int16_t> werte;
    for (std::int64_t i = 0; i < frames; ++i) {
      const KlangFrame frame = klang(i);
      werte.insert(werte.end(), {frame.Links, frame.Rechts});
    }
    b.Datei(kDatei, test::Wave(test::BytesOf(werte)));
  }
  void Oeffne() {
    b.prog.WaveEditorDatei = kDatei;
    b.Tu([this] { b.prog.Zeigen(*b.prog.frmWaveEditor.Laden()); });
  }
  void Oeffne(std::int64_t frames) {
    b.Wave(kDatei, frames);
    Oeffne();
  }
  frmWaveEditor& E() { return b.prog.frmWaveEditor(); }
  // Presses at one position of the picture and releases at another, in twips.
  void Ziehe(int von, int nach) {
    b.Tu([&] {
      E().picWave_MouseDown(von);
      E().picWave_MouseMove(kLeftButton, nach);
      E().picWave_MouseUp();
    });
  }
  void Druecke(PictureButton& knopf) { b.platform.hands.Press(knopf); }
  void Waehle(std::int32_t anfang, std::int32_t ende) {
    E().Waehlen({.MarkerAnfang = anfang, .MarkerEnde = ende});
  }
  void HalbeLautstaerke() {
    Setzen(E().slVolume, 8192);
    Druecke(E().imgEffekt(1));
    Druecke(E().imgVolumeByPass);
  }
  void Vergeht(int ms) { b.platform.loop.Pass(ms); }

  Buehne b;
};

}  // namespace vantora
