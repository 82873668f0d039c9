#include "cdinput/frmDatenbank.h"

#include "tests/support/buehne.h"

namespace vantora {
namespace {

using Zeilen = std::vector<Text>;

class DatenbankFenster : public MitProgramm {
 protected:
  void Inhalt(const std::string& ini) { b.Datei(L"C:\\WINDOWS\\qmaudio.ini", ini); }
  std::string Inhalt() { return b.Lies(L"C:\\WINDOWS\\qmaudio.ini"); }
  // Opens the window as the user does, runs `was` in it, and closes it with Escape.
  void Im(std::function<void(frmDatenbank&)> was) {
    b.Macht([this, was = std::move(was)](Form& front) {
      was(dynamic_cast<frmDatenbank&>(front));
      hand().Key(front, L"Escape");
    });
    b.Tu([this] { b.Haupt().imgDatenBank_MouseUp(); });
    EXPECT_EQ(b.user.Left(), 0U);
    EXPECT_FALSE(b.prog.frmDatenbank.Geladen());
    EXPECT_TRUE(b.Gesagt().empty());
  }
  void Sucht(frmDatenbank& d, const Text& text) {
    hand().Type(d.txtSuchtext, text);
    hand().Press(d.imgSuchen);
  }
};

const char* const kZweiDiscos =
    "[1A2B]\r\nartist=Varios\r\ntitle=Verano\r\nnumtracks=3\r\n0=Las olas;Azul oscuro;214\r\n"
    "1=Rosa;El faro;61\r\n2=Las olas;Mar;3700\r\n3=Antiguo;Faro viejo;9\r\ntotaltime=3975\r\n"
    "[FF]\r\nartist=La costa\r\ntitle=Oto\xF1o\r\nnumtracks=1\r\n0=Mar;Brisa;60\r\n"
    "totaltime=60\r\n";

TEST_F(DatenbankFenster, SectionsThatAreNoDiscsAreLeftOutAndOddOnesDoNoHarm) {
  Inhalt(
      "[]\nnumtracks=2\n[sin]\nartist=x\n[cero]\nnumtracks=0\n[nada]\nnumtracks=\n"
      "[menos]\nartist=a\nnumtracks=-2\n[muchas]\nartist=b\nnumtracks=1e30\n0=t;u;1e999\ntotaltime="
      "1e999\n"
      "[fuera]\nartist=z\nnumtracks=1e999\n"
      "[NUL]\nartist=c" +
      std::string(1, '\0') + "d\ntitle=e\nnumtracks=1\n");
  Im([&](frmDatenbank& d) {
    EXPECT_EQ(d.lstInterpreten.Items(), (Zeilen{L"a: ", L"b: ", L"c: e"}));
    EXPECT_EQ(d.lblVorhandeneCDNum.Caption(), L"3");
    EXPECT_EQ(d.lstTitel.ListCount(), 0);
    hand().Select(d.lstInterpreten, {2});
    EXPECT_EQ(d.lstTitel.Items(), Zeilen{L"t: u"});
    EXPECT_EQ(d.lblDauer.Caption(), L"00:00");
    hand().Select(d.lstInterpreten, {3});
    EXPECT_EQ(d.lstTitel.ListCount(), 0);
  });
}

TEST_F(DatenbankFenster, ATracksFieldsAreTakenAsTheyAre) {
  Inhalt(
      "[1]\nartist=a\ntitle=b\nnumtracks=6\ntotaltime=12\n0=;sin int\xE9rprete;5\n1=solo\n"
      "2=x;;7\n3=uno;dos; tres;8\n5=y;z;90\n");
  Im([&](frmDatenbank& d) {
    // A track without a performer has no line, and neither has a missing key.
    EXPECT_EQ(d.lstTitel.Items(), (Zeilen{L"solo", L"x: ", L"uno: dos", L"y: z"}));
    EXPECT_EQ(d.lblDauer.Caption(), L"00:00");
    hand().Select(d.lstTitel, {3});
    EXPECT_EQ(d.lblDauer.Caption(), L"00:00");  // the additional ";" has shifted the fields
    hand().Select(d.lstTitel, {4});
    EXPECT_EQ(d.lblDauer.Caption(), L"01:30");  // its own time, despite the missing lines
  });
}

TEST_F(DatenbankFenster, ASearchLooksAtWhatIsTickedWithCaseAndShowAllUndoesIt) {
  Inhalt(kZweiDiscos);
  const Text verano = L"Varios: Verano", otono = L"La costa: Otoño";
  const struct {
    bool Disco, Temas;
    const wchar_t* Gesucht;
    Zeilen Gefunden;
  } faelle[] = {
      {true, true, L"Mar", {verano, otono}},
      {true, false, L"Var", {verano}},
      {false, true, L"Verano", {}},
      {false, true, L"faro", {verano}},
      {true, true, L"Faro", {}},
      {false, false, L"a", {}},
      {true, true, L"Varios~Verano", {}},
  };
  Im([&](frmDatenbank& d) {
    for (const auto& fall : faelle) {
      SCOPED_TRACE(testing::Message() << fall.Gesucht << fall.Disco << fall.Temas);
      // What a longer disc of the same key left behind is not the present one's.
      EXPECT_EQ(d.lstTitel.Items(),
                (Zeilen{L"Las olas: Azul oscuro", L"Rosa: El faro", L"Las olas: Mar"}));
      EXPECT_EQ(d.lblGesamtzeit.Caption(), L"66:15");
      d.chkLabel.Value = fall.Disco ? 1 : 0;
      d.chkLiedTitel.Value = fall.Temas ? 1 : 0;
      Sucht(d, fall.Gesucht);
      EXPECT_EQ(d.lstInterpreten.Items(), fall.Gefunden);
      EXPECT_EQ(d.lstTitel.ListCount() > 0, !fall.Gefunden.empty());
      hand().Press(d.imgGesammteListe);
      EXPECT_EQ(d.lstInterpreten.Items(), (Zeilen{verano, otono}));
    }
  });
}

TEST_F(DatenbankFenster, ASecondSearchNarrowsTheFirstAndALineOfItIsTheDiscThatGoes) {
  Inhalt(kZweiDiscos);
  Im([&](frmDatenbank& d) {
    Sucht(d, L"Mar");
    Sucht(d, L"Verano");
    EXPECT_EQ(d.lstInterpreten.Items(), Zeilen{L"Varios: Verano"});
    Sucht(d, L"costa");
    EXPECT_EQ(d.lstInterpreten.ListCount(), 0);
    hand().Press(d.imgGesammteListe);
    Sucht(d, L"costa");
    EXPECT_EQ(d.lstTitel.Items(), Zeilen{L"Mar: Brisa"});
    hand().Press(d.imgLöschen);
    EXPECT_EQ(d.lstInterpreten.Items(), Zeilen{L"Varios: Verano"});
    EXPECT_EQ(d.lblVorhandeneTitelNum.Caption(), L"3");
  });
  EXPECT_EQ(Inhalt(), std::string(kZweiDiscos).substr(0, std::string(kZweiDiscos).find("[FF]")));
}

TEST_F(DatenbankFenster, ALargeFileIsThereAsFarAsItsNamesGo) {
  std::string tracks, discs, full = "[1]\nartist=a\nnumtracks=32767\n";
  for (int i = 0; i < 12; ++i) tracks += std::to_string(i) + "=Grupo;Tema;200\r\n";
  for (int i = 10000000; i < 10002000; ++i) {
    discs += "[" + std::to_string(i) + "]\r\nnumtracks=12\r\n" + tracks;
  }
  for (int i = 0; full.size() < 1'000'000; ++i) full += std::to_string(i % 40'000) + "=a;b;1\n";
  const std::pair<std::string, Text> cases[] = {{discs, L"555"}, {full, L"1"}};
  for (const auto& [ini, listed] : cases) {
    Inhalt(ini);
    Im([&](frmDatenbank& d) { EXPECT_EQ(d.lblVorhandeneCDNum.Caption(), listed); });
  }
}

}  // namespace
}  // namespace vantora
