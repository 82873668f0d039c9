#include "backends/sound/files/wave_file.h"

#include "backends/sound/files/wave_header.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/wave_bytes.h"

namespace vantora::test {

namespace {

const Text kWave = L"C:\\a.wav";

struct Studio : Home {
  fs::path File = *this / "a.wav";
  std::unique_ptr<WaveFile> Opened() {
    auto wave = std::make_unique<WaveFile>(Files);
    wave->Open(kWave);
    return wave;
  }
};

std::string Sound(WaveFile& wave) {
  std::string data(static_cast<std::size_t>(wave.DataBytes()) + 10, '?');
  wave.SetPosition(0);
  data.resize(wave.Read(data.data(), data.size()));
  return data;
}

}  // namespace

TEST(WaveFile, AHeaderMayLieAboutEverything) {
  const std::string fmt = Chunk("fmt ", Format{}.Bytes()), data = Chunk("data", "abcdefgh");
  const std::string noFrames =
      Number(1, 2) + Number(2, 2) + Number(44100, 4) + Number(0, 6) + Number(16, 2);
  const auto extensible = [&](std::uint64_t tag) {
    return Riff(Chunk("fmt ", Format{0xFFFE}.Bytes() + Number(22, 2) + Number(16, 2) +
                                  Number(3, 4) + Number(tag, 16)) +
                data);
  };
  const struct {
    const char* What;
    std::string Bytes;
    std::int64_t DataBytes;  // -1: the file is refused
    std::int64_t Offset;
  } cases[] = {
      {"plain", Wave("abcdefgh"), 8, 44},
      {"size too small", "RIFF" + Number(1, 4) + "WAVE" + fmt + data, 8, 44},
      {"data beyond the end", Riff(fmt + "data" + Number(0x7FFFFFFF, 4) + "abcd"), 4, 44},
      {"stream of unknown size", Riff(fmt + "data" + Number(0xFFFFFFFF, 4) + "abcdef"), 6, 44},
      {"nothing behind the head", Riff(fmt + "data" + Number(100, 4)), 0, 44},
      {"chunks in front", Riff(Chunk("LIST", "odd") + fmt + Chunk("fact", "1234") + data), 8, 68},
      {"odd and not filled up in front",
       Riff("LIST" + Number(3, 4) + "abc" + Chunk("LIST", "wxyz") + fmt + data), 8, 67},
      {"data first", Riff(data + Chunk("LIST", "x") + fmt), 8, 20},
      {"long foreign chunk", Riff(fmt + Chunk("JUNK", std::string(70000, 'x')) + data), 8, 70052},
      {"no frame size", Riff(Chunk("fmt ", noFrames) + data), 8, 44},
      {"longer format", Riff(Chunk("fmt ", Format{}.Bytes() + Number(0, 2)) + data), 8, 46},
      {"extensible PCM", extensible(1), 8, 68},
      {"extensible float", extensible(3), -1, 0},
      {"ADPCM", Wave("abcdefgh", "", Format{2}), -1, 0},
      {"no channel", Wave("abcdefgh", "", Format{1, 0}), -1, 0},
      {"no rate", Wave("abcdefgh", "", Format{1, 2, 0}), -1, 0},
      {"short format", Riff(Chunk("fmt ", "abcdef") + data), -1, 0},
      {"format cut off", Riff("fmt " + Number(16, 4) + "abc"), -1, 0},
      {"no data", Riff(fmt), -1, 0},
      {"no format", Riff(data), -1, 0},
      {"RF64", "RF64" + Number(0xFFFFFFFF, 4) + "WAVE" + fmt + data, -1, 0},
      {"no wave", "RIFF" + Number(4, 4) + "AVI " + fmt + data, -1, 0},
      {"empty", "", -1, 0},
      {"nothing but chunks", Riff(std::string(4'000'000, '\0')), -1, 0},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.What);
    Studio studio;
    Put(studio.File, each.Bytes);
    WaveFile wave(studio.Files);
    EXPECT_EQ(ErrorOf([&] { wave.Open(kWave); }), each.DataBytes < 0 ? 57 : 0);
    if (each.DataBytes < 0) continue;
    EXPECT_EQ(wave.DataBytes(), each.DataBytes);
    EXPECT_EQ(wave.DataOffset(), each.Offset);
    EXPECT_EQ(wave.Samples(), each.DataBytes / 4);
    EXPECT_EQ(Sound(wave),
              std::string("abcdefgh").substr(0, static_cast<std::size_t>(each.DataBytes)));
    wave.Close();
    EXPECT_TRUE(Get(studio.File) == each.Bytes);  // reading never changes the file
  }
}

TEST(WaveFile, MoreThanASizeFieldHoldsIsRefused) {
  Studio studio;
  Put(studio.File, Wave("abcd"));
  const auto wave = studio.Opened();
  wave->SetPosition(INT64_MAX);
  char byte = 0;
  EXPECT_EQ(wave->Read(&byte, 1), 0U);
  EXPECT_EQ(ErrorOf([&] { wave->Write("x", 1); }), 61);
  wave->Close();
  EXPECT_EQ(Get(studio.File), Wave("abcd"));
  EXPECT_EQ(ErrorOf([] { MakeWaveHeader(0xFFFFFFFF); }), 61);
  EXPECT_EQ(ErrorOf([] { MakeWaveHeader(-1); }), 5);
}

}  // namespace vantora::test
