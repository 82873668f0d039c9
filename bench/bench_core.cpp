// The program's work without a screen. `bench-core WORK HOME` prints its own measurements; the
// caller measures time and memory of the process.

#include "backends/sound/audio_library.h"
#include "bench/stage.h"
#include "catalog/frmHauptForm.h"
#include "cdinput/frmDatenbank.h"
#include "main/headless_platform.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;

// Decodes as an import does: reads the length first, then decodes.
int Decode(const fs::path& home) {
  HeadlessPlatform platform(home);
  Mp3Decoder& mp3 = platform.machine.mp3;
  int failure = 0;
  mp3.Mp3Play1_Failure = [&failure](int code, const Text&) { failure = code; };
  mp3.Init();
  if (mp3.Open(L"C:\\cancion.mp3", L"") != 0) return 1;
  mp3.Open(L"C:\\cancion.mp3", L"C:\\cancion.wav");
  mp3.Decode();
  while (mp3.Busy()) platform.loop.DoEvents();
  mp3.Close();
  return failure;
}

// Burns all waves to one disc, in the order of their names, at full speed. With `verify`, the image
// is read again as after every burn, and the seconds that this takes are printed.
int Burn(const fs::path& home, bool verify) {
  HeadlessPlatform platform(home);
  ImageWriter& writer = platform.machine.writer;
  int success = -1, same = 0;
  std::chrono::steady_clock::time_point begin;
  writer.Events.MCD_BurningProcessComplete = [&success](int result) { success = result; };
  writer.Events.MCD_Fixating = [&begin] { begin = std::chrono::steady_clock::now(); };
  writer.Events.MCD_Verify = [&same](int, int state) { same += state == kMcdVerifySame; };
  writer.Init_Prog();
  writer.SelectBurner(0);
  const Text folder = L"C:\\Vantora\\Wavs\\";
  const std::vector<Text> waves = platform.machine.files.List(folder, L"*.wav");
  for (const Text& name : waves) {
    if (writer.AddTrack(folder + name, 0) != 0) return 1;
  }
  if (!writer.CheckIfBurnerOK() || writer.WriteDAO() != 0) return 1;
  if (!verify) writer.StopVerify();
  while (success < 0) platform.loop.DoEvents();
  const std::chrono::duration<double> compared = std::chrono::steady_clock::now() - begin;
  if (verify) std::printf("%.4f\n", compared.count());
  if (same != (verify ? static_cast<int>(waves.size()) : 0)) return 1;
  writer.ResetBurner();
  return success == 1 ? 0 : 1;
}

// Reads all tracks of a disc, one after the other, as the product saves them.
int Grab(HeadlessPlatform& platform, DiscReader& reader) {
  bool complete = false, failed = false;
  reader.Events.ACD_ReadComplete = [&complete] { complete = true; };
  reader.Events.ACD_Failure = [&failed](int, const Text&) { failed = true; };
  int track = 1;
  for (; reader.TrackIstAudio(track); ++track) {
    const Text number = (track < 10 ? L"0" : L"") + std::to_wstring(track);
    complete = false;
    if (reader.ReadTrack(track, L"C:\\pista_" + number + L".wav") != 0) return 1;
    while (!complete && !failed) platform.loop.DoEvents();
    if (failed) return 1;
  }
  reader.CloseDevice();
  return track > 1 ? 0 : 1;
}

// Reads the disc in the embedded drive, which comes after the drives of the machine.
int GrabFromTray(const fs::path& home) {
  HeadlessPlatform platform(home);
  DiscReader& reader = platform.machine.acd;
  reader.Init();
  reader.SelectDevice(reader.DriveCount());
  return Grab(platform, reader);
}

// Reads an image as a disc in an optical drive; the library reads its sheet.
int GrabFromDrive(const fs::path& home) {
  HeadlessPlatform platform(home);
  DiscDrive drive;
  drive.Letter = L'D';
  drive.Device = (home / "Vantora" / "Bandeja" / "disco.cue").string();
  const DiscDrives drives(platform.machine.files, [&drive] { return std::vector{drive}; });
  DiscReader reader(platform.machine.files, platform.loop, platform.background, drives);
  reader.SelectDevice(1);
  return Grab(platform, reader);
}

void ReadHeaders(const std::vector<std::string>& files) {
  for (const std::string& file : files) {
    std::array<char, 44> header{};
    struct stat info {};
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0 || ::fstat(descriptor, &info) != 0 ||
        ::read(descriptor, header.data(), header.size()) != ssize_t{header.size()} ||
        std::memcmp(header.data(), "RIFF", 4) != 0) {
      throw std::runtime_error("no wave file: " + file);
    }
    ::close(descriptor);
  }
}

// Prints alternating times in ms: showing the catalog, and reading the headers by plain system
// calls.
int Show(const fs::path& home) {
  constexpr int kRounds = 101;
  Stage<HeadlessPlatform> stage(home);
  int shown = -1;
  stage.Play([&](Form*) {
    CatalogOfWaves(stage.prog, L"3000");
    std::vector<std::string> files;
    for (std::size_t i = 1; i < stage.prog.Katalog.size(); ++i) {
      const Text file = stage.prog.Katalog[i].Datei.Getrimmt();
      files.push_back(stage.platform.machine.files.SystemPath(file).string());
    }
    frmHauptForm& window = stage.prog.frmHauptForm();
    window.KatalogShow();
    for (int i = 0; i < kRounds; ++i) {
      const auto start = BenchTime::now();
      window.KatalogShow();
      const auto between = BenchTime::now();
      ReadHeaders(files);
      const auto end = BenchTime::now();
      std::printf("%.4f %.4f\n", Milliseconds(start, between), Milliseconds(between, end));
    }
    shown = window.lvwKatalog.ListItems.Count();
    return false;
  });
  return shown == 99 ? 0 : 1;
}

// Prints times in ms: rebuilding the window's list from a changed file.
int Database(const fs::path& home) {
  constexpr int kRounds = 31;
  Stage<HeadlessPlatform> stage(home);
  const fs::path file = stage.platform.machine.files.SystemPath(L"C:\\WINDOWS\\qmaudio.ini");
  int shown = 0;
  stage.Play([&](Form* front) {
    auto* window = dynamic_cast<frmDatenbank*>(front);
    if (!window) {
      if (shown == 0) stage.platform.hands.Press(stage.prog.frmHauptForm().imgDatenBank);
      return shown == 0;
    }
    for (int i = 0; i < kRounds; ++i) {
      if (::utimensat(AT_FDCWD, file.c_str(), nullptr, 0) != 0) throw std::runtime_error("no file");
      const auto start = BenchTime::now();
      window->DatenbankLaden();
      std::printf("%.4f\n", Milliseconds(start, BenchTime::now()));
    }
    shown = window->lstInterpreten.ListCount();
    stage.platform.hands.Press(window->imgSchliessen);
    return true;
  });
  return shown == kShownDiscs ? 0 : 1;
}

// Runs the three filters over a song, in buffers of the size that the chain uses.
int Restore(const fs::path& home) {
  constexpr std::size_t kHeader = 44, kFrames = 1024;
  const float level = 0.5F;
  const std::int16_t channels = 2;
  std::ifstream in(home / "cancion.wav", std::ios::binary);
  std::ofstream out(home / "restaurada.wav", std::ios::binary);
  std::array<char, kHeader> header{};
  in.read(header.data(), header.size());
  out.write(header.data(), header.size());
  AudioLibrary library;
  library.func_01(8192);
  library.func_05(level);
  library.func_03(level);
  library.func_04(level);
  std::array<std::int16_t, 2 * kFrames> a{}, b{};
  while (in.read(reinterpret_cast<char*>(a.data()), sizeof a), in.gcount() > 0) {
    const int frames = static_cast<int>(in.gcount() / 4);
    library.func_08(level, channels, a.data(), b.data(), frames);
    library.func_06(level, channels, b.data(), a.data(), frames);
    library.func_07(level, channels, a.data(), b.data(), frames);
    out.write(reinterpret_cast<const char*>(b.data()), std::streamsize{4} * frames);
  }
  return out.flush() ? 0 : 1;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  const std::string work = argc == 3 ? argv[1] : "";
  if (work == "mp3") return vantora::RunWork(vantora::Decode, argv[2]);
  if (work == "burn" || work == "burn-verify") {
    const auto burn = [&](const auto& home) { return vantora::Burn(home, work != "burn"); };
    return vantora::RunWork(burn, argv[2]);
  }
  if (work == "show") return vantora::RunWork(vantora::Show, argv[2]);
  if (work == "grab") return vantora::RunWork(vantora::GrabFromTray, argv[2]);
  if (work == "grab-carefully") return vantora::RunWork(vantora::GrabFromDrive, argv[2]);
  if (work == "database") return vantora::RunWork(vantora::Database, argv[2]);
  if (work == "restore") return vantora::RunWork(vantora::Restore, argv[2]);
  std::fputs("bench-core mp3|burn|burn-verify|show|grab|grab-carefully|database|restore HOME\n",
             stderr);
  return 2;
}
