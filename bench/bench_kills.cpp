// Kills edits of a large wave at random moments, and checks that the next start leaves the file as
// it was before the edit or after it. `bench-kills HOME [MEGABYTES [KILLS]]` uses 200 MB and 10
// kills of each edit by default; exit status 1 if a file was in another state.

#include "backends/sound/files/wave_header.h"
#include "main/headless_platform.h"
#include "tests/support/kill_switch.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;
using test::KillSwitch;

constexpr const wchar_t* kFile = L"C:\\a.wav";
constexpr const wchar_t* kClip = L"C:\\clip.wav";
constexpr std::int64_t kHeader = 44;

void MakeWave(const fs::path& path, std::int64_t bytes) {
  std::ofstream file(path, std::ios::binary);
  const WaveHeader header = MakeWaveHeader(bytes);
  file.write(reinterpret_cast<const char*>(header.data()), kHeader);
  std::mt19937_64 random(static_cast<std::uint64_t>(bytes));
  std::vector<std::uint64_t> block(1U << 17U);
  for (std::int64_t left = bytes; left > 0;) {
    for (std::uint64_t& word : block) word = random();
    const auto some = std::min<std::int64_t>(left, static_cast<std::int64_t>(block.size() * 8));
    file.write(reinterpret_cast<const char*>(block.data()), some);
    left -= some;
  }
}

std::uint64_t Sum(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::uint64_t> block(1U << 17U);
  std::uint64_t sum = fs::file_size(path);
  while (file) {
    block.assign(block.size(), 0);
    file.read(reinterpret_cast<char*>(block.data()),
              static_cast<std::streamsize>(block.size() * 8));
    for (const std::uint64_t word : block) sum = (sum ^ word) * 0x9E3779B97F4A7C15ULL + 1;
  }
  return sum;
}

struct Work {
  const char* Name;
  WaveEdit Edit;
};

std::vector<Work> Works(std::int64_t bytes, std::int64_t clip) {
  const std::int64_t middle = bytes / 8 * 4, near = 40'000, far = 10 * 176'400;
  return {
      {"cut near",
       {kFile, bytes, bytes - near, {MoveStep(middle + near, middle, bytes - middle - near)}}},
      {"cut far",
       {kFile, bytes, bytes - far, {MoveStep(middle + far, middle, bytes - middle - far)}}},
      {"insert",
       {kFile,
        bytes,
        bytes + clip,
        {MoveStep(middle, middle + clip, bytes - middle), CopyStep(kClip, 0, middle, clip)}}},
      {"mute", {kFile, bytes, bytes, {ZeroStep(4000, bytes - 8000)}}},
      {"fade", {kFile, bytes, bytes, {RampStep(0, bytes, 1, -4.0 / static_cast<double>(bytes))}}},
      {"scale", {kFile, bytes, bytes, {ScaleStep(0, bytes, 0.7)}}}};
}

int Run(const fs::path& home, std::int64_t megabytes, int kills) {
  HeadlessPlatform platform(home);
  const std::int64_t bytes = megabytes * 1'000'000 / 4 * 4, clip = 3'000'000;
  const fs::path file = home / "a.wav", original = home / "original.wav";
  MakeWave(original, bytes);
  MakeWave(home / "clip.wav", clip);
  const std::uint64_t before = Sum(original);
  const auto fresh = [&] { fs::copy_file(original, file, fs::copy_options::overwrite_existing); };
  std::mt19937 random(1);
  int bad = 0;
  for (const Work& work : Works(bytes, clip)) {
    const auto apply = [&] { platform.machine.edits.Apply({{work.Edit}, {}}); };
    fresh();
    KillSwitch::KillAt(INT_MAX, false);
    apply();
    const int calls = KillSwitch::Calls();
    KillSwitch::Off();
    const std::uint64_t after = Sum(file);
    int first = 0, second = 0, neither = 0;
    for (int i = 0; i < kills; ++i) {
      const int call = static_cast<int>(random() % static_cast<unsigned>(calls)) + 1;
      fresh();
      test::RunInProcess([&] {
        KillSwitch::KillAt(call, random() % 2 == 0);
        apply();
      });
      platform.machine.edits.Mend();
      const std::uint64_t now = Sum(file);
      ++(now == before ? first : now == after ? second : neither);
    }
    std::printf("%-10s %5d calls, %d kills: %d before, %d behind, %d neither\n", work.Name, calls,
                kills, first, second, neither);
    bad += neither;
  }
  return bad == 0 ? 0 : 1;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("bench-kills HOME [MEGABYTES [KILLS]]\n", stderr);
    return 2;
  }
  const long megabytes = argc > 2 ? std::strtol(argv[2], nullptr, 10) : 200;
  const long kills = argc > 3 ? std::strtol(argv[3], nullptr, 10) : 10;
  return vantora::Run(argv[1], megabytes, static_cast<int>(kills));
}
