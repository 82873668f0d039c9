#include "catalog/wave_pruefung.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/buehne.h"

namespace vantora {
namespace {

constexpr std::int64_t kZweiSekunden = 2 * 44100;

std::string MitFremdemChunk(std::string wave, std::uint32_t bytes) {
  wave.insert(36, "LIST" + test::Number(bytes, 4) + std::string(bytes, 'x'));
  wave.replace(4, 4, test::Number(static_cast<std::uint32_t>(wave.size()) - 8, 4));
  return wave;
}

class Import : public MitProgramm {
 protected:
  void Importiere() {
    b.Tu([&] { b.Haupt().imgLiedImport_MouseUp(); });
  }
  // Enters the title of the imported track.
  ScriptedUser::Action Nennt(const Text& titel) {
    return [this, titel](Form& front) {
      b.platform.hands.Type(dynamic_cast<frmNeuerInterpret&>(front).txtTitel, titel);
      b.platform.hands.Key(front, L"Return");
    };
  }
};

TEST_F(Import, TheHeaderIsTakenAtItsWordAndNoOther) {
  const std::string gut = test::Wave(test::Noise(3 * 176400));
  const auto ersetzt = [&](std::size_t stelle, const std::string& bytes) {
    return std::string(gut).replace(stelle, bytes.size(), bytes);
  };
  const auto groesse = static_cast<std::uint32_t>(gut.size());
  const struct {
    const char* Name;
    std::string Bytes;
    bool Gueltig = false;
  } faelle[] = {
      {"as it is", gut, true},
      {"no RIFF", ersetzt(0, "RF64"), false},
      {"RIFF size one off", ersetzt(4, test::Number(groesse - 9, 4)), false},
      {"no WAVE", ersetzt(8, "AVI "), false},
      {"no format first", ersetzt(12, "JUNK"), false},
      {"format size beyond the file", ersetzt(16, test::Number(0x7FFFFFF0, 4)), false},
      {"mono", ersetzt(22, std::string("\1\0", 2)), false},
      {"48 kHz", ersetzt(24, test::Number(48000, 4)), false},
      {"8 bit", ersetzt(34, std::string("\x08\0", 2)), false},
      {"data beyond the file", ersetzt(40, test::Number(groesse + 1, 4)), false},
      {"foreign chunk of 200", MitFremdemChunk(gut, 200), true},
      {"foreign chunk of 201", MitFremdemChunk(gut, 201), false},
      {"foreign chunk of 199, not filled up", MitFremdemChunk(gut, 199), true},
      {"cut in the header", gut.substr(0, 30), false},
      {"empty", "", false},
  };
  const auto gueltig = [this](const wchar_t* datei) {
    return CheckWaveValid(b.platform.bundle, *b.Haupt().MMWaveFileX1, datei);
  };
  for (const auto& fall : faelle) {
    b.Datei(L"C:\\probe.wav", fall.Bytes);
    EXPECT_EQ(gueltig(L"C:\\probe.wav"), fall.Gueltig) << fall.Name;
  }
  EXPECT_FALSE(gueltig(L"C:\\Vantora"));
}

TEST_F(Import, TwoSecondsAreTooShortAndAMillisecondMoreIsNot) {
  b.Wave(L"C:\\corta.wav", kZweiSekunden);
  b.WaehltDatei({L"C:\\corta.wav"}).Antwortet(kNein);
  Importiere();
  EXPECT_EQ(b.Gesagt(), std::vector{Sagt(8040)});
  b.Wave(L"C:\\justa.wav", kZweiSekunden + 45);
  b.WaehltDatei({L"C:\\justa.wav"}).Macht(Nennt(L"x"));
  Importiere();
  EXPECT_EQ(b.Titel().size(), 1U);
}

TEST_F(Import, RefusalsHaveTheirMessageAndLeaveNothing) {
  const Text lang = L"C:\\" + Text(95, L'a') + L".wav";
  b.Datei(L"C:\\texto.mp3", std::string(4000, 'x'));
  const std::pair<Text, int> faelle[] = {
      {L".wav;*.mp3", 8034}, {L"C:\\falta.wav", 8035}, {lang, 8085}, {L"C:\\texto.mp3", 8067}};
  for (const auto& [datei, meldung] : faelle) {
    b.user.Said.clear();
    b.WaehltDatei({datei}).Antwortet(kNein);
    Importiere();
    EXPECT_EQ(b.Gesagt(), std::vector{Sagt(meldung)});
  }
  EXPECT_TRUE(b.Titel().empty());
  EXPECT_FALSE(b.prog.KatalogGeaendert);
}

TEST_F(Import, ATrackOnACDIsCopiedUnderANameThatIsOne) {
  b.Wave(L"D:\\pista.wav", 3 * 44100);
  for (const wchar_t* keiner : {L"a*b", L".wav"}) {
    b.WaehltDatei({L"D:\\pista.wav"}).Antwortet(kJa).WaehltDatei({keiner}).Antwortet(kNein);
    Importiere();
    EXPECT_EQ(b.Gesagt().back(), b.prog.Text(8038));
    EXPECT_TRUE(b.Titel().empty());
  }
  b.WaehltDatei({L"D:\\pista.wav"}).Antwortet(kJa).WaehltDatei({L"C:\\m"}).Macht(Nennt(L"x"));
  Importiere();
  EXPECT_EQ(b.prog.Katalog.at(1).Datei.Getrimmt(), L"C:\\m.wav");
  EXPECT_EQ(b.user.Left(), 0U);
}

TEST_F(Import, ACancelledMp3LeavesNoFile) {
  b.Wave(L"C:\\fuente.wav", 5 * 44100);
  const std::string ordner = b.home.Path().string();
  const std::string befehl =
      "lame --quiet -b 128 '" + ordner + "/fuente.wav' '" + ordner + "/mi canto.nuevo.mp3'";
  ASSERT_EQ(std::system(befehl.c_str()), 0);
  const std::function<void()> abbrechen = [&] {
    if (!b.prog.frmSchreibFortschritt.Geladen()) return b.platform.loop.PostAfter(1, abbrechen);
    b.prog.frmSchreibFortschritt().imgAbbrechen_MouseUp();
  };
  abbrechen();
  b.WaehltDatei({L"C:\\mi canto.nuevo.mp3"}).Antwortet(kNein);
  Importiere();
  EXPECT_EQ(b.Gesagt(), std::vector{Sagt(8029)});
  EXPECT_FALSE(b.prog.DateiExistiert(L"C:\\Vantora\\Wavs\\mi_canto.nuevo.wav"));
  EXPECT_TRUE(b.Titel().empty());
  EXPECT_TRUE(b.Haupt().Window.Enabled);
}

}  // namespace
}  // namespace vantora
