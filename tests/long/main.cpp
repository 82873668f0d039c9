// long-run [--windows] [--seed N] [--lives N] [--hours H] FOLDER
//
// A random user uses the program for a number of lives, or for hours: of the program's clock
// without a screen, of the real clock with --windows. Each life has a home and a seed of its own,
// and starts the program several times. After each end of the program, the process has to hold
// as much as after the first ends. The last line of FOLDER/diary is the deed at which a run
// stopped; --seed with the seed of that life and --lives 1 repeat it without a screen.

#include "backends/qt/desktop/qt_app.h"
#include "catalog/katalog_datei.h"
#include "main/story_stage.h"
#include "main/window_platform.h"
#include "robot/made_files.h"
#include "tests/emulators/cddb_server.h"
#include "tests/long/level.h"
#include "tests/long/random_user.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <numeric>
#include <unistd.h>

namespace vantora::test {
namespace {

namespace fs = std::filesystem;

constexpr int kStarts = 3, kDeeds = 250;        // of a life; deeds of a start
constexpr int kWarmLives = 8;                   // caches may fill that long
constexpr std::size_t kMoreKb = 512;            // memory that a later end may hold more
constexpr double kKbPerStart = 4;               // that a long run may use more from start to start
constexpr std::ptrdiff_t kThirdOfLongRun = 10;  // starts
constexpr unsigned kHangSeconds = 900;  // without a deed; far more than a job of a sanitizer
constexpr int kGraceTurns = 100, kGraceUs = 100'000;
constexpr int kCalls = 1'000'000;  // of the server for titles

struct Options {
  bool Windows = false;
  std::uint32_t Seed = 1;
  int Lives = 1;
  double Hours = 0;
  fs::path Folder;
};

Options Read(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const double number = i + 1 < argc ? std::atof(argv[i + 1]) : 0;
    if (word == "--windows") options.Windows = true;
    if (word == "--seed") options.Seed = static_cast<std::uint32_t>(number);
    if (word == "--lives") options.Lives = static_cast<int>(number);
    if (word == "--hours") options.Hours = number;
    if (!word.starts_with("--")) options.Folder = fs::absolute(word);
    if (word.starts_with("--") && word != "--windows") ++i;
  }
  return options;
}

void OnHang(int /*signal*/) {
  constexpr char kWhy[] = "long-run: no deed for a long time; the diary has the last one\n";
  static_cast<void>(!::write(STDERR_FILENO, kWhy, sizeof kWhy - 1));
  std::abort();
}

class LongRun {
 public:
  LongRun(Options options, RobotStage& stage, const std::uint16_t port)
      : options_(std::move(options)),
        stage_(stage),
        port_(port),
        diary_(options_.Folder / "diary"),
        user_(stage, diary_) {
    user_.OnDeed = [] { ::alarm(kHangSeconds); };
  }

  bool Go() {
    bool good = true;
    for (int life = 0; good && !Over(life); ++life) good = Live(life);
    ::alarm(0);
    Summary();
    if (good && KbPerStart() > kKbPerStart) return Fail(options_.Seed, "the memory grows");
    return good;
  }

 private:
  double Hours() const {
    constexpr double kSeconds = 3600;
    const std::chrono::duration<double> real = std::chrono::steady_clock::now() - start_;
    return (options_.Windows ? real.count() : static_cast<double>(user_.ProgramMs()) / 1000) /
           kSeconds;
  }
  bool Over(int life) const {
    return options_.Hours > 0 ? Hours() >= options_.Hours : life == options_.Lives;
  }

  bool Live(int life) {
    const std::uint32_t seed = options_.Seed + static_cast<std::uint32_t>(life);
    const fs::path home = options_.Folder / ("home" + std::to_string(life % 2));
    diary_ << "life " << life << ", seed " << seed << std::endl;
    Dice dice(seed);
    fs::remove_all(home);
    FillHome(home);
    stage_.Home(home.string());
    stage_.Screen(life % 2 == 0 ? 1024 : 800, life % 2 == 0 ? 768 : 600);
    stage_.SetClock({2026, 11, 24, 10, 0, 0});
    stage_.Setting(L"CDDBactive", L"1");
    stage_.Setting(L"CDDB_Server", L"127.0.0.1:" + std::to_wstring(port_));
    stage_.Printing().Present = true;
    stage_.Printing().PdfFolder = (home / "pdf").string();
    stage_.Writer() = {};
    for (int start = 0; start < kStarts; ++start) {
      const int before = user_.Deeds();
      if (!dice.OneIn(4)) GiveList();
      user_.Begin(dice, kDeeds, start + 1 < kStarts ? L"" : L"imgWaveEdit");
      stage_.Start(user_);
      if (user_.Deeds() == before) return Fail(seed, "the program did not start");
      if (!user_.Failure().empty()) return Fail(seed, user_.Failure());
      if (!stage_.Loop().Forms().empty()) return Fail(seed, "a window is left");
      stage_.Home(home.string());  // ends the process of the program
      ForgetCaches();
      if (!Check(life, seed)) return false;
    }
    return true;
  }

  void FillHome(const fs::path& home) {
    const fs::path music = home / "Música", discs = home / "Vantora/Discos";
    fs::create_directories(music);
    fs::create_directories(discs);
    fs::create_directories(home / "pdf");
    const auto wave = [&](const char* name, int seconds, int hertz) {
      WriteSineWave((music / name).string(), {.Ms = seconds * 1000, .Hertz = hertz});
    };
    wave("azul.wav", 6, 330);
    wave("faro.wav", 9, 440);
    wave("luz.wav", 4, 262);
    WriteSineWave((music / "mono.wav").string(),
                  {.Ms = 2500, .Rate = 22050, .Bits = 8, .Channels = 1});
    WriteBmp((music / "foto.bmp").string(), 120, 80);
    std::ofstream(music / "roto.mp3") << "no music";
    std::ofstream(music / "roto.wav") << "RIFF";
    try {
      WriteSineMp3((music / "mar.mp3").string(), {.Ms = 5000});
    } catch (const std::runtime_error&) {  // there is no encoder here
    }
    std::ofstream bin(discs / "Disco 900.bin", std::ios::binary);
    for (const char* name : {"azul.wav", "faro.wav", "luz.wav"}) {
      std::ifstream file(music / name, std::ios::binary);
      bin << file.seekg(44).rdbuf();
    }
    std::ofstream(discs / "Disco 900.cue") << "FILE \"Disco 900.bin\" BINARY\n"
                                              "  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"
                                              "  TRACK 02 AUDIO\n    INDEX 01 00:06:00\n"
                                              "  TRACK 03 AUDIO\n    INDEX 01 00:15:00\n";
  }

  // A list to begin with, so that there is something to edit, mix and burn at once.
  void GiveList() {
    const Text file = L"C:\\Vantora\\lista.vtr";
    KatalogFeld list(1);
    for (const wchar_t* name : {L"azul", L"faro", L"luz", L"azul", L"faro"}) {
      KatalogEintrag& track = list.emplace_back();
      track.Titel = name;
      track.Datei = L"C:\\Música\\" + Text(name) + L".wav";
    }
    KatalogSchreiben(stage_.Files(), file, list);
    for (const wchar_t* key : {L"Wave_Import_Dir", L"Songs_Import_Dir"}) {
      stage_.Setting(key, L"C:\\Música\\");
    }
    stage_.Setting(L"Last_Catalogue_Name", file);
    stage_.Setting(L"Last_Catalog_Load", L"1");
  }

  // Compares what the process holds with the most that it held after the first lives.
  bool Check(int life, std::uint32_t seed) {
    const auto measure = [&] {
      return Measure(options_.Folder / "tmp", stage_.Files().SystemPath(L"C:\\"));
    };
    Level now = measure();
    // The threads that ask the system for a drive or a name end on their own.
    for (int i = 0; life >= kWarmLives && now.Threads > most_.Threads && i < kGraceTurns; ++i) {
      ::usleep(kGraceUs);
      now = measure();
    }
    std::cout << "life " << life << ", seed " << seed << ": " << user_.Deeds() << " deeds, "
              << user_.ProgramMs() / 1000 << " s; " << now.Words() << std::endl;
    if (now.TempFiles > 0) return Fail(seed, "temporary files are left");
    if (life < kWarmLives) {
      most_.Handles = std::max(most_.Handles, now.Handles);
      most_.Threads = std::max(most_.Threads, now.Threads);
      most_.LiveKb = std::max(most_.LiveKb, now.LiveKb);
      return true;
    }
    if (now.Handles > most_.Handles) return Fail(seed, "there are more handles");
    if (now.Threads > most_.Threads) return Fail(seed, "there are more threads");
    if (now.LiveKb > most_.LiveKb + kMoreKb) return Fail(seed, "there is more memory");
    later_.push_back(static_cast<double>(now.LiveKb));
    return true;
  }

  // The growth from the first third of the later starts to the last one. A window or a font that is
  // used for the first time makes a step, so a short run shows nothing.
  double KbPerStart() const {
    const auto third = static_cast<std::ptrdiff_t>(later_.size() / 3);
    if (third < kThirdOfLongRun) return 0;
    const double first = std::accumulate(later_.begin(), later_.begin() + third, 0.0),
                 last = std::accumulate(later_.end() - third, later_.end(), 0.0);
    return (last - first) / static_cast<double>(third) /
           static_cast<double>(std::ssize(later_) - third);
  }

  bool Fail(std::uint32_t seed, const std::string& what) {
    std::cout << "FAILED: seed " << seed << ", deed " << user_.Deeds() << ": " << what << std::endl;
    return false;
  }

  void Summary() {
    std::cout << user_.Deeds() << " deeds, " << user_.ProgramMs() / 1000
              << " s of the program's clock; memory grows by " << KbPerStart() << " kB a start\n";
    for (const auto& [window, deeds] : user_.Windows()) {
      std::cout << "  " << ToUtf8(window) << ": " << deeds << "\n";
    }
    for (const auto& [error, count] : user_.Errors()) {
      std::cout << "  error, " << count << " times: " << error << "\n";
    }
  }

  const Options options_;
  RobotStage& stage_;
  const std::uint16_t port_;
  std::ofstream diary_;
  RandomUser user_;
  Level most_;
  std::vector<double> later_;  // memory in use after the starts of the later lives, kB
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

int Main(int argc, char** argv) {
  const Options options = Read(argc, argv);
  if (options.Folder.empty()) {
    std::cerr << "usage: long-run [--windows] [--seed N] [--lives N] [--hours H] FOLDER\n";
    return 2;
  }
  fs::create_directories(options.Folder / "tmp");
  fs::create_directories(options.Folder / "machine");
  fs::create_directories(options.Folder / "runtime");
  fs::permissions(options.Folder / "runtime", fs::perms::owner_all);
  setenv("TMPDIR", (options.Folder / "tmp").c_str(), 1);
  setenv("XDG_RUNTIME_DIR", (options.Folder / "runtime").c_str(), 1);
  setenv(kSmallMachine, (options.Folder / "machine").c_str(), 1);
  std::signal(SIGALRM, OnHang);
  CddbServer server(kCalls);
  server.Knows("rock", "12001303", "DTITLE=Las olas / Mar\r\nTTITLE0=Canción\r\nTTITLE1=Brisa\r\n");
  if (!options.Windows) {
    StoryStage<PrintingPlatform> stage(ResourceFolder());
    return LongRun(options, stage, server.Port()).Go() ? 0 : 1;
  }
  if (!QtApp::HasScreen()) setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const QtApp app(argc, argv);
  StoryStage<WindowPlatform> stage(ResourceFolder());
  return LongRun(options, stage, server.Port()).Go() ? 0 : 1;
}

}  // namespace
}  // namespace vantora::test

int main(int argc, char** argv) {
  return vantora::test::Main(argc, argv);
}
