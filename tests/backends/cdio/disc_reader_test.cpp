#include "backends/discimage/image_writer.h"
#include "backends/linux/thread_background.h"
#include "tests/backends/cdio/tray.h"
#include "tests/backends/mpg123/tones.h"

namespace vantora::test {

namespace {

constexpr const wchar_t* kTarget = L"C:\\pista.wav";

class Reader : public Tray {
 protected:
  Reader() { Listen(reader); }

  void Listen(DiscReader& to) {
    to.Events.ACD_ActPosition = [this](int position) { Positions.push_back(position); };
    to.Events.ACD_ReadComplete = [this] { ++Complete; };
    to.Events.ACD_Failure = [this](int, const Text& text) {
      EXPECT_EQ(text, L"ASPI Error");
      ++Failures;
    };
  }
  // Reads a track of the disc in the tray to its end and returns the sound of its wave.
  std::string Grab(int track) {
    reader.SelectDevice(1);
    reader.ReadOffset(Offset);
    Complete = 0;
    EXPECT_EQ(reader.ReadTrack(track, kTarget), 0);
    loop.Pass(60'000);
    EXPECT_EQ(Complete, 1) << "track " << track;
    return SoundOfTarget();
  }
  // Returns the sound of the target file and checks its header.
  std::string SoundOfTarget() {
    const std::string file = File("pista.wav"), sound = SoundOf(file);
    EXPECT_EQ(file.size(), 44 + sound.size()) << "the header is that of another length";
    return sound;
  }

  DiscReader reader{disk, loop, background, drives};
  std::vector<int> Positions;
  int Complete = 0, Failures = 0, Offset = 0;
};

}  // namespace

TEST_F(Reader, EveryTrackComesOutOfAnImageSampleForSample) {
  const std::vector<int> starts = {0, 1, 300, 1203, 1500};
  const std::string image = Lay({0, 1, 300, 1203}, 1500);
  for (int track = 1; track <= 4; ++track) {
    const auto place = static_cast<std::size_t>(track);
    EXPECT_TRUE(Grab(track) == Part(image, starts[place - 1], starts[place])) << track;
  }
  EXPECT_EQ(reader.TrackLaengeSektoren(3), 903);
  EXPECT_EQ(reader.TrackLaengeMs(3), 12'040);
  EXPECT_EQ(reader.TrackLaengeSektoren(0) + reader.TrackLaengeMs(5), 0);
  EXPECT_EQ(Positions.front(), 0) << "before a slow drive has told anything";
  EXPECT_EQ(Positions.back(), 1000);
  EXPECT_EQ(Failures, 0);
}

TEST_F(Reader, PreemphasisIsTakenOffByItsCurveAndJointsStayWhole) {
  constexpr std::size_t kSectors = 80;
  const auto tones = [&](double left, double right) {
    return ToneBytes({left, right}, 0.5, 44100, kSectors * 588);
  };
  for (const auto& [left, right] :
       {std::pair{100., 1000.}, {3183., 5000.}, {8000., 10610.}, {15000., 20000.}}) {
    Put(Folder() / "d.bin", tones(left, right));
    Put(Folder() / "d.cue",
        "FILE d.bin BINARY\nTRACK 01 AUDIO\nFLAGS DCP PRE\nINDEX 01 00:00:00\n"
        "TRACK 02 AUDIO\nFLAGS PRE\nINDEX 01 00:00:40\n");
    const std::string sound = Grab(1) + Grab(2);
    EXPECT_TRUE(reader.TrackPreemphasis(2));
    const std::vector<std::int16_t> samples = SamplesOf(sound);
    for (std::size_t channel = 0; channel < 2; ++channel) {
      const double hertz = channel == 0 ? left : right, turn = 2 * std::numbers::pi * hertz;
      const double curve = std::hypot(1, turn * 15e-6) / std::hypot(1, turn * 50e-6);
      const double level =
          std::abs(ToneIn(ChannelOf(samples, channel), hertz, 44100, 2000, kSectors * 588));
      EXPECT_NEAR(Decibels(level / 0.5 / curve), 0, 0.03) << hertz;
    }
    Put(Folder() / "d.cue", "FILE d.bin BINARY\nTRACK 01 AUDIO\nFLAGS PRE\nINDEX 01 00:00:00\n");
    EXPECT_TRUE(Grab(1) == sound) << "the same in one piece";
  }
  fs::remove(Folder() / "d.cue");
  const std::string image = Get(Folder() / "d.bin");
  Put(Folder() / "d.toc",
      "TRACK AUDIO\nNO PRE_EMPHASIS\nFILE \"d.bin\" SWAP 0 0:0:40\n"
      "TRACK AUDIO\nPRE_EMPHASIS\nFILE \"d.bin\" SWAP 0:0:40\n");
  EXPECT_TRUE(Grab(1) == Part(image, 0, 40)) << "nothing else is touched";
  EXPECT_FALSE(reader.TrackPreemphasis(1));
  EXPECT_TRUE(reader.TrackPreemphasis(2));
}

TEST_F(Reader, AReadOffsetMovesTheSoundToTheSampleAndLeavesSilenceAtTheEnds) {
  const std::string image = Lay({10, 80, 200}, 300, true);
  const std::string around =
      std::string(40 * kSector, '\0') + Part(image, 0, 200) + std::string(40 * kSector, '\0');
  for (const int offset : {0, 6, -6, 588, -588, 667, -1164, 12'000, -12'000}) {
    const auto moved = [&](int from, int to) {
      const std::int64_t at = std::int64_t{40 + from} * 2352 + std::int64_t{offset} * 4;
      return around.substr(static_cast<std::size_t>(at),
                           static_cast<std::size_t>(to - from) * kSector);
    };
    Offset = offset;
    EXPECT_TRUE(Grab(1) == moved(10, 80)) << offset;
    EXPECT_TRUE(Grab(2) == moved(80, 200)) << offset << ": a data track is no sound";
  }
  EXPECT_FALSE(reader.TrackIstAudio(3));
  EXPECT_EQ(reader.TrackLaengeSektoren(3), 100);
  EXPECT_NE(reader.ReadTrack(3, L"C:\\datos.wav"), 0);
  EXPECT_FALSE(fs::exists(home / "datos.wav"));
}

TEST_F(Reader, AnImageThatWasCutOffFailsWhereItEndsAndGoesOnThereWhenItIsWhole) {
  const std::string image = Lay({0, 500}, 900);
  fs::resize_file(Folder() / "disco.bin", 300 * kSector + 100);
  reader.SelectDevice(1);
  reader.ReadOffset(-100);
  ASSERT_EQ(reader.ReadTrack(1, kTarget), 0);
  loop.Pass(10'000);
  EXPECT_EQ(Failures, 1);
  for (int retry = 0; retry < 3; ++retry) {
    reader.RetryRead();
    loop.Pass(10'000);
  }
  EXPECT_EQ(Failures, 4) << "a failure for every try, and none without one";
  Put(Folder() / "disco.bin", image);
  reader.RetryRead();
  loop.Pass(10'000);
  EXPECT_EQ(Complete, 1);
  EXPECT_TRUE(SoundOfTarget() == std::string(400, '\0') + image.substr(0, 500 * kSector - 400));
  reader.RetryRead();  // without effect: no read has failed
  loop.Pass(10'000);
  EXPECT_EQ(Complete, 1);
}

TEST_F(Reader, ACancelIsAnsweredWhileTheDriveStrugglesAndTheNextReadIsWhole) {
  const std::string image = Lay({0}, 4500);
  ThreadBackground threads;
  DiscReader real(disk, loop, threads, drives);
  Listen(real);
  const auto start = [&](int pace, int readMs) {
    real.Pace = pace;
    real.SelectDevice(1);
    ASSERT_TRUE(real.TrackIstAudio(1));
    disk.ReadMs = readMs;
    EXPECT_EQ(real.ReadTrack(1, kTarget), 0);
  };
  const auto cancel = [&] {
    const auto before = std::chrono::steady_clock::now();
    EXPECT_NE(real.ReadTrack(0, L"c:\\0.wav"), 0);
    real.CloseDevice();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500));
  };
  start(8, 0);
  ASSERT_TRUE(Until([this] { return Positions.size() >= 3; }));
  cancel();
  const std::size_t told = Positions.size();
  const std::string sound = SoundOfTarget();
  EXPECT_TRUE(image.starts_with(sound)) << "the partial file stays, and is true";
  EXPECT_GT(sound.size(), 0U);
  EXPECT_LT(sound.size(), image.size());
  start(0, 1500);
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  cancel();
  loop.Pass(1000);
  EXPECT_EQ(Positions.size(), told);
  EXPECT_EQ(Complete + Failures, 0);
  EXPECT_FALSE(fs::exists(home / "0.wav"));
  fs::remove(home / "pista.wav");
  start(0, 0);
  EXPECT_TRUE(Until([this] { return Complete == 1; }));
  EXPECT_EQ(Failures, 0);
  EXPECT_TRUE(SoundOfTarget() == image);
  fs::create_directories(home / "pista.wav.d");
  EXPECT_NE(reader.ReadTrack(1, L"C:\\pista.wav.d"), 0) << "a target that cannot be made";
}

TEST_F(Reader, DrivesAreDescribedAtTheirPlaces) {
  Machine.insert(Machine.begin(), {L'D', "/nowhere/sr0", L"", L"CD-RW CRX140E LONG NAME", 12, 3});
  EXPECT_EQ(reader.DriveDescription(1), L"CD-RW CRX140E LO    12  3");
  EXPECT_EQ(reader.DriveDescription(2), L"VANTORA IMAGE        7  0");
  EXPECT_EQ(reader.DriveDescription(3), L"");
  reader.SelectDevice(1);  // a drive that does not exist any more
  EXPECT_NE(reader.ReadTrack(1, kTarget), 0);
}

TEST_F(Reader, ADiscThatIsChangedIsNoticedAndHalfAnImageIsNone) {
  reader.SelectDevice(1);
  const auto first = [this] { return reader.TrackLaengeSektoren(1); };
  EXPECT_EQ(first(), 0) << "no tray";
  Lay({0}, 100);
  EXPECT_EQ(first(), 100);
  Eject();
  EXPECT_EQ(first(), 0);
  Lay({0, 50}, 80);
  EXPECT_EQ(first(), 50);
  fs::remove(Folder() / "disco.bin");
  reader.SelectDevice(1);
  EXPECT_EQ(first(), 0) << "the image is missing";
}

}  // namespace vantora::test
