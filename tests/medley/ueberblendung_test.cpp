// The crossfade engine without its window, beside a model of the expected sound.
#include "medley/ueberblendung.h"

#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/buehne.h"
#include "tests/support/kill_switch.h"

#include <cmath>
#include <random>

namespace vantora {
namespace {

constexpr std::size_t kMindest = 617'400;

// The linear crossfade of two sounds of the same length.
std::string Gemischt(const std::string& ende, const std::string& anfang) {
  std::vector<std::int16_t> mix = test::SamplesOf(ende);
  const std::vector<std::int16_t> zwei = test::SamplesOf(anfang);
  for (std::size_t v = 0; v < mix.size(); ++v) {
    const double f = static_cast<double>(v - v % 2) / static_cast<double>(mix.size());
    mix[v] = static_cast<std::int16_t>(std::nearbyint((1 - f) * mix[v] + f * zwei[v]));
  }
  return test::BytesOf(mix);
}

// Changes two sounds as a crossfade does, with the given mix or else the linear one. Each of them
// loses `u` values.
void Ueberblende(std::string& a, std::string& b, double sekunden, std::string mix = {}) {
  auto u = static_cast<std::size_t>(std::nearbyint(sekunden * 88200));
  u -= u % 4;
  if (mix.empty()) mix = Gemischt(a.substr(a.size() - 2 * u), b.substr(0, 2 * u));
  a = a.substr(0, a.size() - 2 * u) + mix.substr(0, u);
  b = mix.substr(u) + b.substr(2 * u);
}

class MedleyVorDemStart : public VorDemStart {
 protected:
  void Starte() {
    b.Start();
    b.prog.Medley.clear();
    b.prog.Temporary_Directory = L"C:\\Temp\\";
    motor = std::make_unique<Ueberblendung>(b.prog, chkPitch);
  }
  static Text Ort(std::size_t n) { return L"C:\\Vantora\\Wavs\\" + std::to_wstring(n) + L".wav"; }
  std::filesystem::path Pfad(std::size_t n) { return b.platform.machine.files.SystemPath(Ort(n)); }
  std::string Datei(std::size_t n) { return b.Lies(Ort(n)); }
  // Adds a track with this sound to the medley, in its own file.
  MedleyEintrag& Reihe(const std::string& ton, const Text& dauer = L"1",
                       const std::string& anhang = {}) {
    const std::size_t n = b.prog.Medley.size();
    b.Datei(Ort(n), test::Wave(ton, anhang));
    MedleyEintrag& reihe = b.prog.Medley.emplace_back();
    reihe.Titel = L"T" + std::to_wstring(n);
    reihe.Datei = Ort(n);
    reihe.Dauer = dauer;
    return reihe;
  }
  // Runs all transitions in order. Returns true when the catalog was marked as changed.
  bool Lauf() {
    bool markiert = false;
    b.Tu([&] {
      motor->LaufBeginnen();
      for (int j = 0; j + 1 < static_cast<int>(b.prog.Medley.size()); ++j) {
        motor->UeberblendungAusfuehren(j, j + 1);
      }
      markiert = motor->KatalogMarkieren();
    });
    return markiert;
  }
  // The numbers of the texts with which the messages begin.
  std::vector<int> Gesagt() {
    std::vector<int> nummern;
    for (const Text& text : b.Gesagt()) {
      for (const int n : {13000, 13003, 13004, 30120, 30121, 30122, 30123, 30124, 30125}) {
        if (text.starts_with(Sagt(n))) nummern.push_back(n);
      }
    }
    return nummern;
  }

  Form fenster{b.platform.loop, L"frm"};
  CheckBox chkPitch{fenster, L"chkPitch"};
  std::unique_ptr<Ueberblendung> motor;
};

class Medley : public MedleyVorDemStart {
 protected:
  Medley() { Starte(); }
};
using MedleyNeustart = MedleyVorDemStart;

// VANTORA_SEEDS adds seeds. A failing seed is printed.
TEST_F(Medley, RandomMedleysEqualTheModelToTheByte) {
  const char* const mehr = std::getenv("VANTORA_SEEDS");
  const unsigned seeds = mehr != nullptr ? static_cast<unsigned>(std::atoi(mehr)) : 5;
  for (unsigned seed = 1; seed <= seeds; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 zufall(seed);
    const auto bis = [&](std::size_t n) { return static_cast<std::size_t>(zufall() % (n + 1)); };
    b.prog.Medley.clear();
    std::vector<std::string> toene, anhaenge;
    for (std::size_t n = 0, reihen = 2 + bis(3); n < reihen; ++n) {
      // Some files are a block or more longer than the fade, exactly or not.
      std::size_t bytes = 4 * (kMindest + bis(100'000)) + bis(2) * 524'288;
      if (bis(4) == 0) bytes += bis(3);
      toene.push_back(test::Noise(bytes, seed * 100 + static_cast<unsigned>(n)));
      anhaenge.push_back(bis(1) == 0 ? "" : test::Chunk("LIST", test::Noise(bis(5000), seed)));
      const auto zehntel = static_cast<double>(5 + bis(25));
      const double dauer = bis(3) == 0 ? 1 : zehntel / 10 + static_cast<double>(bis(99)) / 1e4;
      Reihe(toene.back(), std::to_wstring(dauer), anhaenge.back());
    }
    for (std::size_t n = 0; n + 1 < toene.size(); ++n) {
      Ueberblende(toene[n], toene[n + 1], std::stod(b.prog.Medley[n].Dauer));
    }
    EXPECT_TRUE(Lauf());
    for (std::size_t n = 0; n < toene.size(); ++n) {
      ASSERT_TRUE(Datei(n) == test::Wave(toene[n], anhaenge[n])) << n;
    }
  }
  EXPECT_TRUE(b.Gesagt().empty());
  EXPECT_FALSE(b.NochNotizen());
}

TEST_F(Medley, TheTempoSlidesByTheTwoTemposAndWhatItLeavesIsSilent) {
  const struct {
    Text Tempo1, Tempo2;
    bool Korrektur;
    double Endwert;
  } faelle[] = {{L"120", L"125", true, 125.0 / 120 * 25},
                {L"125", L"120", true, -125.0 / 120 * 25},
                {L"120", L"125", false, 0},
                {L"", L"125", false, 0},
                {L"119.5", L"120.4", true, 0},
                {L"50", L"280", true, 140},
                {L"", L"", true, 0}};
  for (const auto& fall : faelle) {
    SCOPED_TRACE(testing::Message() << fall.Endwert);
    b.prog.Medley.clear();
    std::string eins = test::Noise(700'000, 1), zwei = test::Noise(700'000, 2);
    MedleyEintrag& reihe = Reihe(eins, L"2");
    reihe.BPM = fall.Tempo1;
    reihe.PitchKorrektur = fall.Korrektur ? std::int16_t{-1} : std::int16_t{0};
    Reihe(zwei).BPM = fall.Tempo2;
    EXPECT_TRUE(Lauf());
    EXPECT_DOUBLE_EQ(motor->PitchSchritt, 4096.0 / 352'800 * fall.Endwert);
    const std::string ende = eins.substr(700'000 - 352'800);
    EXPECT_EQ(b.Lies(L"C:\\Temp\\xfade.dat"), test::Wave(ende));
    std::string gebogen = b.Lies(L"C:\\Temp\\xfade2.dat").substr(44);
    if (fall.Endwert == 0) {
      EXPECT_EQ(gebogen, ende);
    } else {
      // Its length: the frames after which the mean speed has reached the end of the sound.
      const double k = 0.0016 * fall.Endwert / 88'200;
      EXPECT_NEAR(static_cast<double>(gebogen.size()) / 4, (std::sqrt(1 + 2 * k * 88'200) - 1) / k,
                  3);
    }
    gebogen.resize(352'800, '\0');
    Ueberblende(eins, zwei, 2, Gemischt(gebogen, zwei.substr(0, 352'800)));
    EXPECT_TRUE(Datei(0) == test::Wave(eins) && Datei(1) == test::Wave(zwei));
  }
}

// Three tracks. The first transition has the fault, the second one succeeds.
TEST_F(Medley, AFaultLeavesBothFilesOfItsTransitionAndTheRunGoesOn) {
  const auto dauert = [this](const wchar_t* dauer) { b.prog.Medley[0].Dauer = dauer; };
  const auto weg = [this] { std::filesystem::remove(Pfad(0)); };
  const auto schreibe = [this](std::size_t bytes, test::Format format) {
    b.Datei(Ort(0), test::Wave(test::Noise(bytes), "", format));
  };
  const struct {
    const char* Name;
    int Meldung;
    std::function<void()> Geschieht;
  } faelle[] = {
      {"one name", 13000, [&] { b.prog.Medley[0].Datei = L"c:\\VANTORA\\wavs\\1.wav"; }},
      {"one file", 13000, [&] { weg(), std::filesystem::create_symlink(Pfad(1), Pfad(0)); }},
      {"gone", 30121, weg},
      {"no wave", 30121, [&] { b.Datei(Ort(0), "no wave"); }},
      {"short", 13003, [&] { schreibe(kMindest - 4, {}); }},
      {"below the fade", 13003, [&] { schreibe(700'000, {}), dauert(L"4"); }},
      {"mono", 30122,
       [&] {
         schreibe(700'000, {1, 1, 44100, 16});
       }},
      {"48 kHz", 30122,
       [&] {
         schreibe(700'000, {1, 2, 48000, 16});
       }},
      {"too large a number", 30120, [&] { dauert(L"1e999"); }},
      {"below nothing", 30120, [&] { dauert(L"-5"); }},
      {"nothing", 30120, [&] { dauert(L"0"); }},
      {"a day", 30120, [&] { dauert(L"86400"); }},
      {"tempo", 30120, [&] { b.prog.Medley[0].BPM = L"1e999"; }},
      {"slide without a tempo", 13004, [&] { b.prog.Medley[0].PitchKorrektur = -1; }},
  };
  for (const auto& fall : faelle) {
    SCOPED_TRACE(fall.Name);
    b.prog.Medley.clear();
    b.user.Said.clear();
    std::string toene[] = {test::Noise(700'000, 1), test::Noise(700'000, 2),
                           test::Noise(700'000, 3)};
    for (const std::string& ton : toene) Reihe(ton).BPM = L"120";
    b.prog.Medley[0].BPM = L"";
    b.prog.Medley[1].BPM = fall.Meldung == 13004 ? L"100" : L"";
    fall.Geschieht();
    const bool link = std::filesystem::is_symlink(Pfad(0));
    const std::string vorher = Datei(0);
    b.Antwortet(kNein);
    EXPECT_TRUE(Lauf()) << "the last transition decides";
    EXPECT_EQ(Gesagt(), std::vector<int>{fall.Meldung});
    EXPECT_TRUE(link || Datei(0) == vorher);
    Ueberblende(toene[1], toene[2], 1);
    EXPECT_TRUE(Datei(1) == test::Wave(toene[1]));
    EXPECT_FALSE(b.NochNotizen());
    weg();
  }
}

TEST_F(Medley, WithoutATempoAndTheBoxTickedTheCrossfadeIsSilence) {
  std::string eins = test::Noise(700'000, 1), zwei = test::Noise(700'000, 2);
  Reihe(eins).BPM = L"120";
  Reihe(zwei);
  b.Katalog({L"x"});
  b.prog.Katalog[0].Datei = Ort(1);
  b.prog.Katalog[1].Datei = L"c:\\vantora\\WAVS\\0.WAV";
  b.prog.KatalogBackup = b.prog.Katalog;
  std::filesystem::permissions(Pfad(0), std::filesystem::perms::owner_read);
  chkPitch.Value = 1;
  b.Antwortet(kNein);
  EXPECT_TRUE(Lauf());
  Ueberblende(eins, zwei, 1, std::string(176'400, '\0'));
  EXPECT_TRUE(Datei(0) == test::Wave(eins) && Datei(1) == test::Wave(zwei));
  EXPECT_EQ(b.prog.Katalog[0].Ueberblendet, -1);
  EXPECT_EQ(b.prog.Katalog[1].Ueberblendet, -1);
  EXPECT_EQ(b.prog.KatalogBackup[1].Ueberblendet, -1) << "an undo would lose the mark";
  EXPECT_TRUE(b.prog.KatalogGeaendert);
  b.prog.Medley[0].Datei = Ort(1);
  b.Antwortet(kNein).Antwortet(kNein);
  EXPECT_FALSE(Lauf()) << "silence for one file";
  EXPECT_EQ(Gesagt(), (std::vector<int>{13004, 13004, 13000}));
  EXPECT_TRUE(Datei(1) == test::Wave(zwei));
}

TEST_F(Medley, TheTemporaryFolderMayBeMissingButNotUnusable) {
  const std::string eins = test::Noise(700'000, 1), zwei = test::Noise(700'000, 2);
  Reihe(eins);
  Reihe(zwei);
  b.Datei(L"C:\\nofolder", "a file");
  b.prog.Temporary_Directory = L"C:\\nofolder";
  b.Antwortet(kNein);
  EXPECT_FALSE(Lauf());
  b.prog.Temporary_Directory = L"C:\\Temp";
  EXPECT_EQ(Gesagt(), std::vector<int>{30123});
  std::filesystem::remove_all(b.platform.machine.files.SystemPath(L"C:\\Temp"));
  b.Tu([&] { motor->UeberblendungBerechnen(0, 1); });
  const Text vorschau = motor->VorschauSchreiben();
  EXPECT_EQ(vorschau, L"C:\\Temp\\temp00.dat");
  const std::string mix = Gemischt(eins.substr(700'000 - 176'400), zwei.substr(0, 176'400));
  EXPECT_EQ(b.Lies(vorschau), test::Wave(mix));
  EXPECT_TRUE(Datei(0) == test::Wave(eins) && Datei(1) == test::Wave(zwei));
  // With a folder name that lacks its "\", no file is deleted.
  motor->TempDateienLoeschen();
  const auto dateien = [&] { return b.platform.machine.files.List(L"C:\\Temp", L"*.dat").size(); };
  EXPECT_EQ(dateien(), 3U);
  b.prog.Temporary_Directory = L"C:\\Temp\\";
  motor->TempDateienLoeschen();
  EXPECT_EQ(dateien(), 0U);
}

TEST_F(MedleyNeustart, TheUserReadsWhichTransitionsAreDone) {
  EXPECT_FALSE(test::RunInProcess([&] {
    Starte();
    for (unsigned n = 0; n < 3; ++n) Reihe(test::Noise(900'000, n));
    b.Tu([&] {
      motor->UeberblendungAusfuehren(0, 1);
      test::KillSwitch::KillAt(1, false);  // between edits, when the next slide begins
      motor->UeberblendungAusfuehren(1, 2);
    });
  }));
  b.Antwortet(kNein);
  b.Start();
  EXPECT_EQ(b.Gesagt(), std::vector<Text>{Sagt(30126) + L"\r\n1. T0 > 2. T1"});
}

}  // namespace
}  // namespace vantora
