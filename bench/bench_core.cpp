// The program's work without a screen. `bench-core WORK HOME`: what is measured inside is printed,
// what is measured as a process (time, memory) is the caller's.

#include "bench/stage.h"
#include "catalog/frmHauptForm.h"
#include "main/headless_platform.h"

#include <array>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;

// The decoder as an import uses it: a look at the length first, then the decoding.
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

// One disc of all the waves, in the order of their names, at full speed.
int Burn(const fs::path& home) {
  HeadlessPlatform platform(home);
  ImageWriter& writer = platform.machine.writer;
  int success = -1;
  writer.Events.MCD_BurningProcessComplete = [&success](int result) { success = result; };
  writer.Init_Prog();
  writer.SelectBurner(0);
  const Text folder = L"C:\\Vantora\\Wavs\\";
  for (const Text& name : platform.machine.files.List(folder, L"*.wav")) {
    if (writer.AddTrack(folder + name, 0) != 0) return 1;
  }
  if (!writer.CheckIfBurnerOK() || writer.WriteDAO() != 0) return 1;
  while (success < 0) platform.loop.DoEvents();
  writer.ResetBurner();
  return success == 1 ? 0 : 1;
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

// Pairs of times in ms, by turns: the catalog shown, and the headers read by plain system calls.
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

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  const std::string work = argc == 3 ? argv[1] : "";
  if (work == "mp3") return vantora::RunWork(vantora::Decode, argv[2]);
  if (work == "burn") return vantora::RunWork(vantora::Burn, argv[2]);
  if (work == "show") return vantora::RunWork(vantora::Show, argv[2]);
  std::fputs("bench-core mp3|burn|show HOME\n", stderr);
  return 2;
}
