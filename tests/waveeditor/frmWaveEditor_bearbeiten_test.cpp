#include "tests/support/geraete.h"
#include "tests/waveeditor/editor_stage.h"

#include <cmath>
#include <random>

namespace vantora {
namespace {

const std::string kAnhang = test::Chunk("LIST", test::Noise(701, 2));

// A model of the edits in memory: the sound of the file, the clipboard and one undo.
struct Modell {
  std::string Klang;
  std::optional<std::string> Ablage;
  std::string Gesichert;
  bool Undo = true, UndoVorhanden = false;
  int Schritt = 0;
  std::size_t UndoStart = 0, Anfang = 0, Ende = 0;  // frames

  std::size_t Frames() const { return Klang.size() / 4; }
  std::string Teil(std::size_t von, std::size_t bis) const {
    return Klang.substr(von * 4, (bis - von) * 4);
  }
  void Sichern(std::size_t von, std::size_t bis, int schritt) {
    Schritt = schritt;
    if (!Undo) return;
    Gesichert = Teil(von, bis);
    UndoStart = von;
    UndoVorhanden = true;
  }
  void Ueberschreiben(std::size_t stelle, const std::string& bytes) {
    Klang.resize(std::max(Klang.size(), stelle * 4 + bytes.size()));
    Klang.replace(stelle * 4, bytes.size(), bytes);
  }
  int Einfuegen(std::size_t stelle) {
    if (!Ablage || Ablage->empty()) return 21004;
    Klang.resize(std::max(Klang.size() / 4, stelle) * 4);
    Klang.insert(stelle * 4, *Ablage);
    return 0;
  }
  void Ausschneiden() {
    Sichern(Anfang, Ende, 1);
    Ablage = Teil(Anfang, Ende);
    Klang = Teil(0, Anfang) + Teil(Ende, Frames());
  }
  void Blenden(const std::function<double(double k, double s)>& gain) {
    Sichern(Anfang, Ende, 2);
    std::vector<std::int16_t> werte = test::SamplesOf(Teil(Anfang, Ende));
    const double s = 1.0 / static_cast<double>(Ende - Anfang);
    for (std::size_t i = 0; i < werte.size(); ++i) {
      werte[i] =
          static_cast<std::int16_t>(std::nearbyint(werte[i] * gain(static_cast<double>(i / 2), s)));
    }
    Ueberschreiben(Anfang, test::BytesOf(werte));
  }
  int Rueckgaengig() {
    if (!Undo) return 21000;
    if (!UndoVorhanden) return 21002;
    UndoVorhanden = false;
    if (Schritt == 1) return Einfuegen(UndoStart);
    if (Schritt == 2) Ueberschreiben(UndoStart, Gesichert);
    return 0;  // an insertion cannot be undone
  }
};

class Bearbeiten : public ::testing::Test, protected Geraete, protected EditorBuehne {
 protected:
  Bearbeiten() : EditorBuehne([this](HeadlessPlatform& p) { return Umbau(p); }) {}

  void Cursor(std::size_t stelle) {
    E().Waehlen({.NurCursor = true, .CursorPos = static_cast<std::int32_t>(stelle)});
  }
  // Presses a button and answers its message, if there is to be one.
  void Druecke(PictureButton& knopf, int text = 0) {
    if (text != 0) b.Antwortet(kNein);
    const std::size_t gesagt = b.Gesagt().size();
    EditorBuehne::Druecke(knopf);
    ASSERT_EQ(b.Gesagt().size(), gesagt + (text == 0 ? 0 : 1));
    if (text != 0) {
      ASSERT_EQ(b.Gesagt().back(), b.prog.Text(text));
    }
    ASSERT_TRUE(E().Window.Enabled());
  }
  void Schritt(Modell& m, std::mt19937& zufall) {
    const std::size_t a = zufall() % (m.Frames() + 1), e = zufall() % (m.Frames() + 1);
    const bool nichts = zufall() % 8 == 0 || a == e;
    m.Anfang = nichts ? 0 : std::min(a, e);
    m.Ende = nichts ? 0 : std::max(a, e);
    if (nichts) {
      Cursor(a);
    } else {
      Waehle(static_cast<std::int32_t>(m.Anfang), static_cast<std::int32_t>(m.Ende));
    }
    b.prog.Undo = m.Undo = zufall() % 6 != 0;
    const int ohneWahl = nichts ? 21003 : 0;
    switch (zufall() % 9) {
      case 0:
        if (!nichts) m.Ablage = m.Teil(m.Anfang, m.Ende);
        return Druecke(E().imgCopy, ohneWahl);
      case 1:
        if (!nichts && m.Frames() < 1000) return;
        if (!nichts) m.Ausschneiden();
        return Druecke(E().imgCut, ohneWahl);
      case 2:
      case 3: {
        if (!E().imgPaste.Enabled() || m.Klang.size() > grenze) return;
        const std::size_t stelle = nichts ? a : m.Anfang;
        m.Sichern(stelle, m.Frames(), 3);
        return Druecke(E().imgPaste, m.Einfuegen(stelle));
      }
      case 4:
        if (!nichts) m.Blenden([](double, double) { return 0.0; });
        return Druecke(E().imgMute, ohneWahl);
      case 5:
        if (!nichts) m.Blenden([](double k, double s) { return k * s; });
        return Druecke(E().imgFadeIn, ohneWahl);
      case 6:
        if (!nichts) m.Blenden([](double k, double s) { return 1 - k * s; });
        return Druecke(E().imgFadeOut, ohneWahl);
      case 7:
        if (zufall() % 4 != 0) break;
        m.Ablage.reset();
        std::filesystem::remove(b.platform.machine.files.SystemPath(E().Edits().CopyDatei()));
        return;
      default:
        break;
    }
    Druecke(E().imgSteuerung(6), m.Rueckgaengig());
  }
  void ZufaelligeSchritte(unsigned seed, std::size_t frames, int schritte, bool gezeichnet) {
    SCOPED_TRACE(seed);
    std::mt19937 zufall(seed);
    Modell m;
    m.Klang = test::Noise(frames * 4 + seed % 4, seed);
    grenze = 2 * m.Klang.size();
    b.Datei(kDatei, test::Wave(m.Klang, kAnhang));
    b.prog.EditorBatch = !gezeichnet;  // saves time: without scans nothing stays selected
    Oeffne();
    for (int i = 0; i < schritte; ++i) {
      SCOPED_TRACE(i);
      Schritt(m, zufall);
      ASSERT_TRUE(b.Lies(kDatei) == test::Wave(m.Klang, kAnhang));
      ASSERT_EQ(E().Edits().UndoVorhanden(), m.UndoVorhanden);
      if (HasFailure()) return;
    }
    b.prog.frmWaveEditor.Entladen();
  }
  std::size_t grenze = 0;  // maximum size of a file
};

TEST_F(Bearbeiten, FileAndModelAgreeToTheSampleWhateverIsDone) {
  for (const unsigned seed : {1U, 2U, 3U, 4U}) ZufaelligeSchritte(seed, 3000, 300, false);
  for (const unsigned seed : {5U, 6U, 7U}) ZufaelligeSchritte(seed, 600'000, 40, false);
  ZufaelligeSchritte(8, 30'000, 40, true);
}

TEST_F(Bearbeiten, TooLittleRoomIsToldBeforeAnythingChanges) {
  constexpr double kMB = 0x100000;
  const std::string wave = test::Wave(test::Noise(4'000'000));
  b.Datei(kDatei, wave);
  b.prog.UndoMB = 2;  // less than the file needs
  Oeffne();
  const Text temp = AddBackslash(b.prog.Temporary_Directory.Getrimmt());
  const Text laufwerk = L"C:\\", ablage = E().Edits().CopyDatei().substr(0, 3);
  const struct {
    PictureButton& Knopf;
    Text Ort;
    double Frei;
    const char* Protokoll;
  } faelle[] = {{E().imgCut, laufwerk, 2 * kMB - 1, ""},
                {E().imgCut, temp, static_cast<double>(wave.size()) - 1, ""},
                {E().imgCopy, ablage, 2 * kMB - 1, " : CopyWave > No Undo Buffer  \r\n"},
                {E().imgCopy, temp, static_cast<double>(wave.size()) - 1,
                 " : CopyWave > Not enough TempSpace on HD\r\n"},
                {E().imgNormalize, laufwerk, 3'999'999, ""}};
  b.prog.LogAktiv = true;
  for (const auto& fall : faelle) {
    SCOPED_TRACE(fall.Frei);
    freiIn = {{fall.Ort, fall.Frei}};
    Waehle(100, 200);
    Druecke(fall.Knopf, 8056);
    EXPECT_TRUE(b.Lies(kDatei) == wave);
    EXPECT_EQ(E().lblStatus.Caption(), L"");
    EXPECT_TRUE(E().Kette().SourceFile().Wave.IsOpen());
    EXPECT_NE(b.Lies(L"C:\\Vantora\\vantora.APL").find(fall.Protokoll), std::string::npos);
  }
  freiIn = {{laufwerk, 2 * kMB - 1}};
  Waehle(100, 200);
  Druecke(E().imgMute, 8056);
  EXPECT_FALSE(b.Lies(kDatei) == wave);
  freiIn.clear();
  Druecke(E().imgSteuerung(6), 21001);
}

TEST_F(Bearbeiten, AnUndoCopyThatFailedIsNotOfferedAndTheClipboardStaysOfUse) {
  Oeffne(100'000);
  const auto scheitert = [this](PictureButton& knopf) {
    Waehle(100, 50'000);
    b.Antwortet(kNein);
    EditorBuehne::Druecke(knopf);
    EXPECT_TRUE(b.Gesagt().back().ends_with(L"(61)"));
    EXPECT_FALSE(E().Edits().UndoVorhanden());
  };
  Waehle(100, 50'000);
  Druecke(E().imgFadeIn);
  EXPECT_TRUE(E().Edits().UndoVorhanden());
  platte->Room = 1000;
  scheitert(E().imgMute);
  scheitert(E().imgCut);
  EXPECT_TRUE(E().imgPaste.Enabled());
  EXPECT_FALSE(E().lblPasteDisabled.Visible());
  Druecke(E().imgSteuerung(6), 21002);
  platte->Room = 50'000 * 4;  // enough for the undo file, but not for the clipboard
  scheitert(E().imgCut);
}

}  // namespace
}  // namespace vantora
