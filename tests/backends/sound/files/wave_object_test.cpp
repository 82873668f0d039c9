#include "backends/sound/files/wave_object.h"

#include "tests/backends/linux/home.h"
#include "tests/backends/running_out.h"
#include "tests/backends/sound/wave_bytes.h"

#include <random>

namespace vantora::test {

namespace {

const Text kWave = L"C:\\a.wav", kCopy = L"C:\\b.wav";

// A model of the file in memory, with the position of the file and the reported position. Only
// writes make the two differ.
struct Model {
  std::string Data;
  std::size_t Value = 0, Cursor = 0;

  std::string Read(std::size_t bytes) {
    std::string got = Cursor < Data.size() ? Data.substr(Cursor, bytes) : "";
    Value += got.size();
    Cursor += got.size();
    return got;
  }
  void Write(const std::string& bytes) {
    if (bytes.empty()) return;
    if (Data.size() < Cursor + bytes.size()) Data.resize(Cursor + bytes.size());
    Data.replace(Cursor, bytes.size(), bytes);
    Cursor += bytes.size();
  }
};

std::string Pulled(MMComponentX& component) {
  std::string sound;
  MMData data;
  for (component.Pull(data); data.Bytes > 0; component.Pull(data)) {
    std::string bytes(data.Bytes, '\0');
    CopyWaveHeader(data, reinterpret_cast<std::int16_t*>(bytes.data()), data.Bytes);
    sound += bytes;
  }
  return sound;
}

}  // namespace

TEST(WaveObject, ReadsMoveTheValueAndWritesOnlyTheFile) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    Home home;
    Model model{Noise(300'001, seed)};
    Put(home / "a.wav", Wave(model.Data));
    WaveComponent component(home.Files);
    MMWaveObject& wave = component.Wave;
    const std::size_t unit = seed == 1 ? 4 : 1;
    wave.TimeFormat = unit == 4 ? TimeFormat::tfSample : TimeFormat::tfByte;
    wave.SetFileName(kWave);
    wave.Open();
    const auto units = [unit](std::size_t bytes) {
      return static_cast<std::int32_t>(bytes / unit);
    };
    for (int step = 0; step < 3000; ++step) {
      const std::size_t bytes = random() % (random() % 10 == 0 ? 200'000 : 6'000);
      switch (random() % 7) {
        case 0:
          model.Value = model.Cursor = random() % (model.Data.size() + 5'000) / unit * unit;
          wave.SetPosition(units(model.Cursor));
          break;
        case 1:
          if (model.Data.size() < 900'000) {
            const std::string sound = Noise(bytes, seed + static_cast<unsigned>(step));
            model.Write(sound);
            EXPECT_EQ(wave.WriteData(sound.data(), sound.size()), sound.size());
          }
          break;
        case 2:
          wave.SetBufferBytes(static_cast<std::int32_t>(random() % 3 * 5'000));
          break;
        case 3: {
          const std::size_t from = random() % model.Data.size() / 4 * 4;
          const std::size_t to = random() % (model.Data.size() + 9'000) / 4 * 4;
          wave.PlayStart = units(from);
          wave.PlayEnd = units(to);
          const std::size_t whole = std::min(to, model.Data.size());
          if (step % 8 == 0) {
            component.Rewind();
            model.Value = model.Cursor = from;
          }
          const std::size_t start = std::max(model.Cursor, from);
          if (start < whole) {
            if (start != model.Cursor) model.Value = model.Cursor = start;
            EXPECT_TRUE(Pulled(component) == model.Read((whole - start) / 4 * 4));
          }
          break;
        }
        default: {
          std::string got(bytes, '?');
          got.resize(wave.ReadData(got.data(), bytes));
          ASSERT_TRUE(got == model.Read(bytes));
        }
      }
      ASSERT_EQ(wave.Position(), units(model.Value));
      ASSERT_EQ(wave.DataSize(), units(model.Data.size()));
    }
    wave.Close();
    EXPECT_TRUE(Get(home / "a.wav") == Wave(model.Data));
  }
}

TEST(WaveObject, ARangeBecomesAWholeFileOrNone) {
  const std::string data = Noise(2'500'003);
  const auto part = [&](std::size_t from, std::size_t to) {
    return Wave(data.substr(from, to - from));
  };
  const struct {
    std::int32_t From, To;
    std::string Expected;
  } cases[] = {{0, INT32_MAX, Wave(data)},
               {4, 1'048'580, part(4, 1'048'580)},
               {7, 10, part(7, 10)},
               {9, 9, Wave("")},
               {9, 3, Wave("")},
               {-5, 2, part(0, 2)},
               {INT32_MAX, INT32_MAX, Wave("")},
               {2'500'000, 2'600'000, part(2'500'000, 2'500'003)}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.From);
    Home home;
    RunningOut disk(home.Files);
    Put(home / "a.wav", Wave(data));
    Put(home / "b.wav", Noise(3'000'000, 9));
    WaveObject wave(disk);
    wave.TimeFormat = TimeFormat::tfByte;
    wave.SetFileName(kWave);
    wave.Open();
    wave.PlayStart = each.From;
    wave.PlayEnd = each.To;
    wave.SaveRange(kCopy);
    EXPECT_TRUE(Get(home / "b.wav") == each.Expected);
    EXPECT_EQ(ErrorOf([&] { wave.SaveRange(L"c:\\A.WAV"); }), 70);
    disk.Room = static_cast<std::int64_t>(each.Expected.size()) - 1;
    EXPECT_EQ(ErrorOf([&] { wave.SaveRange(kCopy); }), 61);
    EXPECT_FALSE(fs::exists(home / "b.wav"));
    EXPECT_TRUE(Get(home / "a.wav") == Wave(data));
  }
}

TEST(WaveObject, WhatIsNoSoundIsAnErrorOrNothing) {
  Home home;
  WaveObject wave(home.Files);
  char byte = 0;
  wave.SetFileName(kWave);
  EXPECT_EQ(ErrorOf([&] { wave.Open(); }), 53);
  EXPECT_EQ(wave.ReadData(&byte, 1), 0U);
  EXPECT_EQ(ErrorOf([&] { wave.WriteData(&byte, 1); }), 52);
  EXPECT_EQ(ErrorOf([&] { wave.SaveRange(kCopy); }), 52);
  EXPECT_EQ(ErrorOf([&] { wave.SetPosition(-1); }), 5);

  for (const bool there : {false, true}) {  // an empty file counts as missing
    wave.FileMustExist = false;
    wave.SetFileName(there ? kCopy : kWave);
    if (there) Put(home / "b.wav", "");
    wave.Open();
    EXPECT_TRUE(wave.IsOpen() && wave.Empty());
    EXPECT_EQ(wave.ReadData(&byte, 1), 0U);
    EXPECT_EQ(fs::exists(home / "a.wav"), there);
    wave.SetPosition(1);
    wave.WriteData("abcd", 4);
    wave.Close();
    EXPECT_EQ(Get(home / (there ? "b.wav" : "a.wav")), Wave(std::string(4, '\0') + "abcd"));
  }

  const std::string withTail = Wave(Noise(8), Chunk("LIST", Noise(9)));
  Put(home / "a.wav", withTail);
  wave.SetFileName(kWave);
  wave.Open();
  wave.SetPosition(1);
  EXPECT_EQ(ErrorOf([&] { wave.WriteData("abcdefgh", 8); }), 70) << "over a foreign chunk";
  wave.Close();
  EXPECT_EQ(Get(home / "a.wav"), withTail);

  Put(home / "a.wav", Wave(Noise(3'000'000)));
  wave.Open();
  wave.PlayEnd = 750'000;
  fs::resize_file(home / "a.wav", 1'000'000);  // done by another program
  std::string rest(3'000'000, '\0');
  EXPECT_EQ(wave.ReadData(rest.data(), rest.size()), 1'000'000U - 44);
  EXPECT_EQ(ErrorOf([&] { wave.WriteData("x", 1); }), 57);
  EXPECT_EQ(ErrorOf([&] { wave.SaveRange(kCopy); }), 62);
  EXPECT_FALSE(fs::exists(home / "b.wav"));
  fs::remove(home / "a.wav");
  EXPECT_EQ(ErrorOf([&] { wave.WriteData("x", 1); }), 53);
  EXPECT_FALSE(fs::exists(home / "a.wav"));
}

TEST(WaveObject, TwoGibibytesLessOneAreTheMostThatBytesCanTell) {
  Home home;
  const auto sparse = [&](std::uint64_t file) {
    Put(home / "a.wav", "RIFF" + Number(file - 8, 4) + "WAVE" + Chunk("fmt ", Format{}.Bytes()) +
                            "data" + Number(file - 44, 4));
    fs::resize_file(home / "a.wav", file);  // a sparse file takes no disk space
  };
  WaveObject wave(home.Files);
  wave.TimeFormat = TimeFormat::tfByte;
  wave.SetFileName(kWave);
  sparse(0x7FFFFFFF);
  wave.Open();
  EXPECT_EQ(wave.DataSize(), 0x7FFFFFFF - 44);
  wave.SetPosition(wave.DataSize());
  EXPECT_EQ(ErrorOf([&] { wave.WriteData(std::string(100, 'x').data(), 100); }), 6);
  wave.SetPosition(wave.DataSize() - 2);
  wave.WriteData("xy", 2);
  wave.Close();
  EXPECT_EQ(fs::file_size(home / "a.wav"), 0x80000000U);  // includes the padding byte
  sparse(0x80000100);
  wave.Open();
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(wave.DataSize()); }), 6);
  wave.TimeFormat = TimeFormat::tfSample;
  EXPECT_EQ(wave.DataSize(), (0x80000100LL - 44) / 4);
}

}  // namespace vantora::test
