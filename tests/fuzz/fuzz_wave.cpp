// Random bytes as a wave file: opened, read, lengthened and cut. A file that opens must be a valid
// wave file after each edit.
#include "backends/sound/edits/cutter.h"
#include "backends/sound/edits/wave_edits.h"
#include "backends/sound/files/wave_file.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/running_out.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/fuzz/fuzz_body.h"

namespace vantora::test {

namespace {

const Text kWave = L"C:\\a.wav";

std::string Sound(WaveFile& wave) {
  std::string data(static_cast<std::size_t>(wave.DataBytes()), '?');
  wave.SetPosition(0);
  Require(wave.Read(data.data(), data.size()) == data.size(), "all the data can be read");
  return data;
}

std::string SoundInTrueFile(const Home& home, Dateien& files) {
  const std::string bytes = Taken(home / "a.wav");
  Require(bytes.substr(4, 4) == Number(bytes.size() - 8, 4), "RIFF tells the file's length");
  WaveFile wave(files);
  wave.Open(kWave);
  const auto size = static_cast<std::size_t>(wave.DataOffset()) - 4;
  Require(bytes.substr(size, 4) == Number(static_cast<std::uint64_t>(wave.DataBytes()), 4),
          "data tells its length");
  return Sound(wave);
}

}  // namespace

void FuzzOne(const std::string& bytes) {
  static Home home;
  Lay(home / "a.wav", bytes);
  std::string sound;
  {
    WaveFile wave(home.Files);
    try {
      wave.Open(kWave);
    } catch (const Laufzeitfehler& fehler) {
      Require(fehler.Nummer == 57, "what is no wave file raises 57");
      return;
    }
    Require(wave.Samples() * wave.FrameBytes() <= std::ssize(bytes), "no invented sound");
    sound = Sound(wave);
  }
  RunningOut disk(home.Files);  // its Flush does nothing, which saves time
  WaveEdits edits(disk, {}, 4096);
  const auto before = static_cast<std::int64_t>(sound.size());
  edits.Apply({{{kWave, before, before + 4, {MixStep(before, {'m', 'o', 'r', 'e'})}}}, {}});
  sound += "more";
  Require(SoundInTrueFile(home, home.Files) == sound, "what is added is where it belongs");

  Cutter(home.Files, edits).Cut(kWave, 2, 5);
  const std::size_t frames = sound.size() / 4;
  if (frames > 2) {
    sound.resize(frames * 4);
    sound.erase(2 * 4, 3 * 4);
  }
  Require(SoundInTrueFile(home, home.Files) == sound, "the cut is where it belongs");
}

}  // namespace vantora::test
