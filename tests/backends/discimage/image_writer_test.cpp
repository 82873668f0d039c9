#include "backends/discimage/image_writer.h"

#include "backends/linux/thread_background.h"
#include "tests/backends/burning.h"

#include <array>
#include <cstdio>
#include <fstream>

namespace vantora::test {

namespace {

constexpr std::size_t kFrame = 4, kSector = 2352;

class Burner : public Burning {
 protected:
  Burner() { Listen(writer); }

  // Adds a wave with this data to the next write.
  std::string Add(const std::string& data, const std::string& front = "") {
    Burning::Add(writer, Riff(front + Chunk("fmt ", Format{}.Bytes()) + Chunk("data", data)));
    return data;
  }
  std::string AddFrames(std::size_t frames) {
    return Add(Noise(frames * kFrame, static_cast<std::uint32_t>(frames)));
  }
  void Play(int ms = 100'000) { loop.Pass(ms); }
  std::size_t FilesLeft() const { return fs::exists(Discs()) ? NamesIn(Discs()) : 0; }
  fs::path Discs() const { return home / "Vantora/Discos"; }
  std::string Bytes(const std::string& name) const { return Get(Discs() / name); }

  ImageWriter writer{disk, loop, background};
};

// Sound with silence up to the end of the sector.
std::string Whole(std::string sound) {
  sound.resize((sound.size() + kSector - 1) / kSector * kSector, '\0');
  return sound;
}

}  // namespace

TEST_F(Burner, EverySampleOfTheWavesLiesWhereTheSheetSays) {
  for (const bool dao : {false, true}) {
    SCOPED_TRACE(dao ? "disc at once" : "track at once");
    writer.ResetBurner();
    std::vector<std::string> waves;
    for (const std::size_t frames : {1U, 587U, 588U, 589U, 700'001U, 44'100U}) {
      waves.push_back(AddFrames(frames));
    }
    waves.push_back(Add(Noise(4003, 4)));  // ends within a frame
    waves.push_back(Add(Noise(8000, 5), Chunk("LIST", Noise(1001, 6))));
    waves.push_back(AddFrames(1));
    waves.push_back(AddFrames(600));
    ASSERT_EQ(dao ? writer.WriteDAO() : writer.WriteTAO(), 0);
    Play();
    const std::string name = dao ? "Disco 002" : "Disco 001";
    std::string sheet = "FILE \"" + name + ".bin\" BINARY\r\n", image;
    const auto index = [&](int number) {
      std::array<char, 40> line{};
      const std::size_t at = image.size() / kSector;
      std::snprintf(line.data(), line.size(), "    INDEX %02d %02zu:%02zu:%02zu\r\n", number,
                    at / 75 / 60, at / 75 % 60, at % 75);
      sheet += line.data();
    };
    for (std::size_t i = 0; i < waves.size(); ++i) {
      sheet += (i < 9 ? "  TRACK 0" : "  TRACK ") + std::to_string(i + 1) + " AUDIO\r\n";
      if (!dao) image = Whole(image);
      if (!dao && i > 0) {
        index(0);
        image.append(150 * kSector, '\0');
      }
      index(1);
      // Every track has a sector of its own, even a very short one.
      const std::size_t least = (image.size() / kSector + 1) * kSector;
      image += waves[i].substr(0, waves[i].size() / kFrame * kFrame);
      image.resize(std::max(image.size(), least), '\0');
    }
    EXPECT_EQ(Bytes(name + ".cue"), sheet);
    EXPECT_TRUE(Bytes(name + ".bin") == Whole(image));
    EXPECT_TRUE(writer.LastImage().ends_with(dao ? L"Disco 002.cue" : L"Disco 001.cue"));
  }
}

TEST_F(Burner, CdTextStandsInTheSheetOfADiscAtOnceOnly) {
  for (int i = 0; i < 3; ++i) AddFrames(588);
  writer.CdText(0, L"Éxitos \"del\" \u201Caño\u201D\u2026", L"Voz € \u2013 \u4E2D");
  writer.CdText(1, L"Uno\r\nINDEX 07 00:00:00", L"A  ");
  writer.CdText(3, L"Tres", L"\u0192\u02C6\u02DC\u2020\u2021\u2030\u2039\u203A");
  writer.CdText(9, L"no track", L"of this disc");
  writer.WriteDAO();
  Play();
  EXPECT_EQ(Bytes("Disco 001.cue"),
            "TITLE \"\xC9xitos 'del' 'a\xF1o'...\"\r\nPERFORMER \"Voz EUR - ?\"\r\n"
            "FILE \"Disco 001.bin\" BINARY\r\n"
            "  TRACK 01 AUDIO\r\n    TITLE \"Uno  INDEX 07 00:00:00\"\r\n    PERFORMER \"A\"\r\n"
            "    INDEX 01 00:00:00\r\n  TRACK 02 AUDIO\r\n    INDEX 01 00:00:01\r\n"
            "  TRACK 03 AUDIO\r\n    TITLE \"Tres\"\r\n    PERFORMER \"f^~+++o/oo<>\"\r\n"
            "    INDEX 01 00:00:02\r\n");
  writer.WriteTAO();
  Play();
  EXPECT_TRUE(Bytes("Disco 002.cue").starts_with("FILE"));
  writer.ResetBurner();
  AddFrames(588);
  writer.WriteDAO();
  Play();
  EXPECT_TRUE(Bytes("Disco 003.cue").starts_with("FILE")) << "a reset forgets it";
}

TEST_F(Burner, TheEventsComeInADrivesOrderAndEndWithComplete) {
  AddFrames(100'000);
  AddFrames(800'000);
  const std::string tracks = "lead-in, track 1, open, close, track 2, open, close, lead-out, ";
  for (const bool dao : {false, true}) {
    for (const bool simulation : {false, true}) {
      SCOPED_TRACE(std::to_string(dao) + std::to_string(simulation));
      Log.clear();
      Percents.clear();
      writer.TestMode(simulation);
      writer.Fixate(!simulation);
      ASSERT_EQ(dao ? writer.WriteDAO() : writer.WriteTAO(), 0);
      EXPECT_TRUE(Log.empty()) << "nothing is told before the call has returned";
      Play();
      EXPECT_EQ(Story(), tracks + (simulation ? "" : "fixating, ") + "complete 1");
      EXPECT_EQ(std::count(Percents.begin(), Percents.end(), 100), dao ? 1 : 2);
      EXPECT_EQ(Percents.front(), 0);
      EXPECT_EQ(Percents.back(), 100);
      EXPECT_TRUE(!dao || std::is_sorted(Percents.begin(), Percents.end()));
    }
  }
  EXPECT_EQ(FilesLeft(), 4U) << "two discs; a simulation leaves nothing";
}

TEST_F(Burner, ADifferenceOnTheDiskIsToldWithItsTrackAndTheImageStays) {
  AddFrames(300'000);  // 511 sectors each
  AddFrames(300'000);
  const fs::path image = Discs() / "Disco 001.bin";
  const auto flip = [image](std::size_t byte) {
    return [image, byte] {
      std::fstream file(image, std::ios::in | std::ios::out | std::ios::binary);
      file.seekp(static_cast<std::streamoff>(byte)).put('!');
    };
  };
  const struct {
    std::function<void()> Fault;
    const char* Result;
  } cases[] = {
      {[] {}, "1 same, 2 same"},
      {flip(0), "1 differs, 2 same"},
      {flip(511 * kSector - 1), "1 differs, 2 same"},
      {flip(511 * kSector), "1 same, 2 differs"},  // in the gap
      {flip((511 + 150 + 300) * kSector), "1 same, 2 differs"},
      {[image] { fs::resize_file(image, 800 * kSector); }, "1 same, 2 differs"},
      {[this] { Put(Discs() / "Disco 001.cue", "FILE"); }, "0 failed"},
      {[this] { writer.StopVerify(); }, ""},
      {[this] { fs::rename(home / "1.wav", home / "x"); }, "1 failed, 2 same"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Result);
    Log.clear();
    Verified.clear();
    writer.Events.MCD_Fixating = each.Fault;
    ASSERT_EQ(writer.WriteTAO(), 0);
    Play();
    EXPECT_EQ(Verified, each.Result);
    EXPECT_TRUE(Story().ends_with("complete 1")) << Story();
    EXPECT_EQ(FilesLeft(), 2U);
    fs::remove_all(Discs());
  }
  fs::rename(home / "x", home / "1.wav");
  Verified.clear();
  writer.TestMode(true);
  ASSERT_EQ(writer.WriteTAO(), 0);
  Play();
  EXPECT_EQ(Verified, "") << "a simulation has nothing to read";
}

TEST_F(Burner, AWaveThatChangesUnderItIsAFailureAndLeavesNothing) {
  const struct {
    const char* Wave;
    std::string Becomes;  // blank: it is deleted
    bool Running;         // true: during the first track; false: before the write
    int Code;
  } cases[] = {{"2.wav", "", false, 53},
               {"2.wav", "text", false, 57},
               {"2.wav", Wave("abcd", "", {1, 1}), false, 57},
               {"2.wav", Wave("ab"), false, 57},
               {"2.wav", "", true, 53},
               {"2.wav", Wave(Noise(2'400'000)).substr(0, 1000), true, 62},
               {"1.wav", Wave(Noise(2'400'000)).substr(0, 1000), true, 62}};
  writer.Faults.Pace = 8;
  AddFrames(600'000);
  AddFrames(600'000);
  const std::string first = Get(home / "1.wav"), second = Get(home / "2.wav");
  for (const auto& each : cases) {
    SCOPED_TRACE(&each - cases);
    Put(home / "1.wav", first);
    Put(home / "2.wav", second);
    Log.clear();
    const auto change = [&] {
      const fs::path wave = home / each.Wave;
      each.Becomes.empty() ? static_cast<void>(fs::remove(wave)) : Put(wave, each.Becomes);
    };
    if (!each.Running) change();
    ASSERT_EQ(writer.WriteTAO(), 0);
    Play(600);
    if (each.Running) change();
    Play();
    EXPECT_TRUE(Story().ends_with("failure " + std::to_string(each.Code) + ", complete 0"));
    EXPECT_EQ(Story().starts_with("lead-in, track 1, open"), each.Running);
    EXPECT_EQ(FilesLeft(), 0U);
  }
}

TEST_F(Burner, StoppingTellsOnlyThatAndLeavesNothing) {
  writer.StopBurn();
  Play(10);
  EXPECT_TRUE(Log.empty()) << "there was nothing to stop";
  writer.Faults.Pace = 4;
  AddFrames(2'000'000);
  ASSERT_EQ(writer.WriteDAO(), 0);
  EXPECT_NE(writer.WriteDAO(), 0) << "one write at a time";
  Play(3000);
  EXPECT_GT(FilesLeft(), 0U);
  Log.clear();
  writer.StopBurn();
  EXPECT_EQ(FilesLeft(), 0U);
  EXPECT_TRUE(Log.empty()) << "events come through the loop";
  Play();
  EXPECT_EQ(Story(), "stopped");

  ASSERT_EQ(writer.WriteDAO(), 0);
  Play(1000);
  writer.ResetBurner();
  Log.clear();
  Play();
  EXPECT_TRUE(Log.empty());
  EXPECT_NE(writer.WriteDAO(), 0) << "a reset empties the list";
  EXPECT_EQ(FilesLeft(), 0U);
}

TEST_F(Burner, AWriterThatGoesAwayLeavesNoEventAndOnlyAnImageThatIsComplete) {
  AddFrames(400'000);
  for (const bool complete : {false, true}) {
    SCOPED_TRACE(complete);
    {
      ImageWriter other(disk, loop, background);
      Listen(other);
      other.Faults.Pace = complete ? 0 : 1;
      ASSERT_EQ(other.AddTrack(L"C:\\1.wav", 0), 0);
      ASSERT_EQ(other.WriteTAO(), 0);
      do Play(1);
      while (complete && Story().find("fixating") == std::string::npos);
      Log.clear();
    }
    Play();
    EXPECT_TRUE(Log.empty());
    EXPECT_EQ(FilesLeft(), complete ? 2U : 0U);
    EXPECT_EQ(fs::exists(Discs() / "Disco 001.cue"), complete);
  }
}

TEST_F(Burner, ADiscHolds99TracksAndOnlySoundOfACd) {
  const std::pair<const char*, std::string> refused[] = {
      {"text", "text"},
      {"mono", Wave(Noise(400), "", {1, 1})},
      {"48 kHz", Wave(Noise(400), "", {1, 2, 48000})},
      {"8 bit", Wave(Noise(400), "", {1, 2, 44100, 8})},
      {"no whole frame", Wave("abc")}};
  for (const auto& [what, bytes] : refused) {
    Put(home / "bad.wav", bytes);
    EXPECT_NE(writer.AddTrack(L"C:\\bad.wav", 0), 0) << what;
  }
  EXPECT_NE(writer.AddTrack(L"C:\\none.wav", 0), 0);
  EXPECT_NE(writer.WriteTAO(), 0) << "there is nothing to write";
  for (std::size_t i = 1; i <= 99; ++i) AddFrames(100 * i);
  EXPECT_NE(writer.AddTrack(L"C:\\1.wav", 0), 0);
  ASSERT_EQ(writer.WriteTAO(), 0);
  Play();
  EXPECT_NE(Bytes("Disco 001.cue").find("TRACK 99 AUDIO"), std::string::npos);
  EXPECT_EQ(Bytes("Disco 001.cue").find("TRACK 100"), std::string::npos);
}

TEST_F(Burner, ADiscIsWrittenOverNoOtherAndBehindWhatAKilledRunLeft) {
  AddFrames(100);
  Put(Discs() / "Disco 009.bin.tmp", "half an image");
  Put(Discs() / "Disco 008.cue.tmp", "sheet of an image that has no name yet");
  Put(Discs() / "Disco mio.bin.tmp", "not the writer's own");
  Put(Discs() / "Disco 003.bin", "whole, but for the name of its sheet");
  Put(Discs() / "Disco 003.cue.tmp", "its sheet");
  writer.WriteTAO();
  Play();
  EXPECT_EQ(Get(Discs() / "Disco 003.cue"), "its sheet");
  EXPECT_TRUE(fs::exists(Discs() / "Disco 004.cue"));
  EXPECT_TRUE(fs::exists(Discs() / "Disco mio.bin.tmp"));
  EXPECT_EQ(FilesLeft(), 5U);
  Put(Discs() / "Disco 9.bin", "of somebody else");
  Put(Discs() / "Disco uno.bin", "");
  writer.WriteTAO();
  Play();
  EXPECT_TRUE(fs::exists(Discs() / "Disco 010.cue"));
  EXPECT_EQ(FilesLeft(), 9U);
}

TEST_F(Burner, BesideTheInterfaceThreadItBurnsTheSameDiscAndTellsItThere) {
  ThreadBackground thread;
  ImageWriter other(disk, loop, thread);
  Listen(other);
  AddFrames(5000);
  ASSERT_EQ(other.AddTrack(L"C:\\1.wav", 0), 0);
  const std::string wave = Noise(8'000'000, 8);
  Put(home / "1.wav", Wave(wave));  // a wave is burnt as it is when the write begins
  ASSERT_EQ(other.WriteTAO(), 0);
  EXPECT_TRUE(Until([this] { return Story().ends_with("complete 1"); }));
  EXPECT_FALSE(Elsewhere);
  EXPECT_EQ(Story(), "lead-in, track 1, open, close, lead-out, fixating, complete 1");
  EXPECT_TRUE(Bytes("Disco 001.bin") == Whole(wave));
}

}  // namespace vantora::test
