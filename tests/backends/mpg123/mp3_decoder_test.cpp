#include "backends/mpg123/mp3_decoder.h"

#include "backends/linux/thread_background.h"
#include "backends/mpg123/mpeg_stream.h"
#include "backends/sound/files/wave_file.h"
#include "tests/backends/bench.h"
#include "tests/backends/mpg123/mp3_files.h"

namespace vantora::test {

namespace {

using Clock = std::chrono::steady_clock;

const Text kMp3 = L"C:\\a.mp3", kOut = L"C:\\out\\a.wav";

int Loudest(const std::vector<std::int16_t>& sound) {
  int most = 0;
  for (const std::int16_t sample : sound) most = std::max(most, std::abs(int{sample}));
  return most;
}

class Mp3 : public Bench {
 protected:
  Mp3() {
    fs::create_directories(home / "out");
    decoder.Mp3Play1_ActFrame = [this](int frame) {
      Note();
      Frames.push_back(frame);
      Events += "f";
    };
    decoder.Mp3Play1_Failure = [this](int code, const Text& text) {
      Note();
      EXPECT_FALSE(text.empty());
      Failure = code;
      Events += "F";
    };
    decoder.Mp3Play1_ThreadEnded = [this] {
      Note();
      EXPECT_FALSE(decoder.Busy());
      Events += "E";
    };
  }
  void SetUp() override { ASSERT_TRUE(EncoderIsThere()) << "lame is not installed"; }

  int Open(const std::string& bytes) {
    Put(home / "a.mp3", bytes);
    return decoder.Open(kMp3, kOut);
  }
  void UntilEnd() {
    Until([this] { return Events.find('E') != std::string::npos; });
    loop.Pass(3);
  }
  // Opens and decodes a file. Returns the samples of the resulting wave.
  std::vector<std::int16_t> Decoded(const std::string& bytes) {
    Events.clear();
    Frames.clear();
    EXPECT_EQ(Open(bytes), 0);
    EXPECT_EQ(decoder.State(), kMp3Open);
    decoder.Decode();
    EXPECT_TRUE(decoder.Busy());
    UntilEnd();
    EXPECT_FALSE(decoder.Busy());
    return Out();
  }
  std::vector<std::int16_t> Out() {
    const std::string bytes = Get(home / "out/a.wav"), sound = SoundOf(bytes);
    EXPECT_EQ(bytes.size(), 44 + sound.size()) << "44.1 kHz, 16 bit, stereo, and a true header";
    return SamplesOf(sound);
  }
  // Decodes a damaged file: the sound is no louder than the whole one, and has the promised length.
  std::vector<std::int16_t> Hears(const std::string& bytes, const std::vector<std::int16_t>& whole,
                                  std::size_t least, std::size_t most) {
    const auto out = Decoded(bytes);
    EXPECT_EQ(static_cast<std::int64_t>(out.size() / 2), Promised());
    EXPECT_LE(Loudest(out), Loudest(whole) * 1.01);
    EXPECT_TRUE(out.size() >= least && out.size() <= most) << out.size();
    return out;
  }
  // The length of the open source in CD frames, from LengthMs.
  std::int64_t Promised() const {
    return std::llround(std::ceil(decoder.LengthMs() * 44.1 - 1e-6));
  }

  ThreadBackground threads;
  Mp3Decoder decoder{disk, loop, threads};
  std::string Events;  // f: a frame, F: a failure, E: the end
  std::vector<int> Frames;
  int Failure = 0;
};

std::vector<std::int16_t> Doubled(const std::vector<std::int16_t>& mono) {
  std::vector<std::int16_t> stereo;
  for (const std::int16_t sample : mono) stereo.insert(stereo.end(), 2, sample);
  return stereo;
}

int LargestDifference(const std::vector<std::int16_t>& a, const std::vector<std::int16_t>& b) {
  if (a.size() != b.size()) return 65536;
  int largest = 0;
  for (std::size_t i = 0; i < a.size(); ++i) largest = std::max(largest, std::abs(a[i] - b[i]));
  return largest;
}

std::string Song(double seconds, std::uint32_t rate = 44100,
                 const std::string& options = "-b 128") {
  const auto frames = static_cast<std::size_t>(seconds * rate);
  return Encoded(ToneBytes({440, 1000}, 0.5, rate, frames), {1, 2, rate, 16}, options);
}

}  // namespace

TEST_F(Mp3, AToneOfAnyRateKeepsItsPitchLevelPlaceAndLength) {
  constexpr std::uint32_t kRates[] = {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000};
  for (const std::uint32_t rate : kRates) {
    for (const int kind : {0, 1, 2, 3}) {
      const bool stereo = kind % 2 == 1, vbr = kind > 1;
      SCOPED_TRACE(std::to_string(rate) + (stereo ? " stereo" : " mono") + (vbr ? " VBR" : ""));
      const std::vector<double> tones = stereo ? std::vector{1000., 1700.} : std::vector{1000.};
      const std::size_t frames = rate + 1234;
      const std::string bits = rate < 16000 ? "64" : rate < 32000 ? "128" : "192";
      const std::string mp3 = Encoded(ToneBytes(tones, 0.5, rate, frames),
                                      {1, stereo ? 2 : 1, rate, 16}, vbr ? "-V 2" : "-b " + bits);
      const auto out = Decoded(mp3);
      auto others = DecodedByOthers(mp3);
      if (!stereo) others = Doubled(others);

      EXPECT_NEAR(decoder.LengthMs(), static_cast<double>(frames) * 1000 / rate, 1e-6);
      EXPECT_EQ(out.size() / 2, (frames * 44100 + rate - 1) / rate);
      ASSERT_GT(out.size(), 80000U);
      for (std::size_t channel = 0; channel < 2; ++channel) {
        const double hertz = channel == 0 ? tones.front() : tones.back();
        const auto tone = ToneIn(ChannelOf(out, channel), hertz, 44100, 4000, 40000);
        const double expected =
            std::abs(ToneIn(ChannelOf(others, channel), hertz, rate, rate / 10, rate * 9 / 10));
        EXPECT_NEAR(Decibels(std::abs(tone) / expected), 0, 0.02);
        EXPECT_NEAR(std::arg(tone) / (2 * std::numbers::pi * hertz / 44100), 0, 0.5)
            << "frames that the sound has moved by";
      }
      if (rate == 44100) {
        EXPECT_LE(LargestDifference(out, others), 1) << "decoded, and touched by nothing else";
      }
    }
  }
  EXPECT_FALSE(Elsewhere);
}

TEST_F(Mp3, WhatLiesAroundTheSoundChangesNothing) {
  for (const std::uint32_t rate : {44100U, 32000U}) {
    const std::string song = Song(1.5, rate);
    const auto plain = Decoded(song);
    const double length = decoder.LengthMs();
    const std::pair<const char*, std::string> cases[] = {
        {"tag behind", song + Id3v1()},
        {"picture in front", Id3Picture(700'000) + song},
        {"two tags in front", Id3Picture(3000) + Id3Picture(90'000) + song + Id3v1()},
        {"zeros in front", std::string(60'000, '\0') + song},
        {"garbage in front", Noise(5000, 3) + song},
        {"garbage behind", song + Noise(300, 5)},
    };
    for (const auto& [what, bytes] : cases) {
      SCOPED_TRACE(std::to_string(rate) + " " + what);
      EXPECT_TRUE(Decoded(bytes) == plain);
      EXPECT_EQ(decoder.LengthMs(), length);
    }
  }
}

TEST_F(Mp3, ACutFileGivesTheSoundThatIsThereAndItsLengthIsKnownBefore) {
  for (const std::string options : {"-b 128", "-V 2", "-b 128 -t"}) {
    for (const std::uint32_t rate : {44100U, 48000U}) {
      const std::string song = Song(3, rate, options);
      const auto whole = Decoded(song);
      for (const double part : {0.999, 0.9, 0.5, 0.1}) {
        SCOPED_TRACE(options + " " + std::to_string(rate) + " " + std::to_string(part));
        const auto size = static_cast<std::size_t>(static_cast<double>(song.size()) * part);
        const auto out = Decoded(song.substr(0, size));
        EXPECT_EQ(static_cast<std::int64_t>(out.size() / 2), Promised());
        EXPECT_NEAR(decoder.LengthMs(), 3000 * part, options == "-V 2" ? 300 : 110);
        EXPECT_EQ(Events.find('F'), std::string::npos);
        // The last frames of the resampler depend on sound that only the whole file has.
        ASSERT_GT(out.size(), 2000U);
        EXPECT_TRUE(std::equal(out.begin(), out.end() - 2000, whole.begin()));
      }
    }
  }
}

TEST_F(Mp3, WhatIsNoMusicIsNeverHeardAndMakesTheSongNoLonger) {
  const struct {
    std::uint32_t Rate;
    const char* Options;
  } cases[] = {{8000, "-b 64"},      {11025, "-b 64"},     {16000, "-b 128"}, {22050, "-b 128"},
               {24000, "-b 128"},    {32000, "-b 128"},    {48000, "-b 128"}, {44100, "-V 2"},
               {44100, "-b 320 -t"}, {44100, "-b 96 -m m"}};
  for (const auto& [rate, options] : cases) {
    for (const std::vector<double>& tones : {std::vector{440.}, std::vector{100., 440.}}) {
      const std::string song = Encoded(ToneBytes(tones, 0.58, rate, std::size_t{4} * rate),
                                       {1, static_cast<int>(tones.size()), rate, 16}, options);
      const auto whole = Decoded(song);
      const std::size_t frame = std::size_t{rate < 32000 ? 576U : 1152U} * 44100 / rate + 1;
      const auto hears = [&](const std::string& what, const std::string& bytes, std::size_t lost) {
        SCOPED_TRACE(std::to_string(rate) + options + " " + what);
        const bool vbr = std::string(options).starts_with("-V");
        const std::size_t least = whole.size() - whole.size() * (vbr ? 2 : 1) * lost / song.size();
        const auto out = Hears(bytes, whole, least - 4 * frame, whole.size() + 2 * frame);
        const auto tone = [&](const std::vector<std::int16_t>& sound) {
          const std::size_t end = sound.size() / 2 - 6000;
          return std::abs(ToneIn(ChannelOf(sound, 0), tones[0], 44100, end - 30000, end));
        };
        EXPECT_NEAR(Decibels(tone(out) / tone(whole)), 0, 0.05) << "behind the gap";
      };
      const std::size_t half = song.size() / 2;
      for (const std::size_t place : {half / 2, half, half + 777}) {
        const std::string noise = Noise(20'000, static_cast<std::uint32_t>(place));
        hears("noise", std::string(song).insert(place, noise), 0);
        hears("noise over", std::string(song).replace(place, 3000, noise, 0, 3000), 3000);
        hears("missing", std::string(song).erase(place, 5000), 5000);
      }
      hears("a picture with a tag in the middle",
            std::string(song).insert(half, Id3Picture(90'000)), 0);
      hears("a picture without a head in front", Noise(1'000'000, 4) + song, 0);
      hears("noise at the end", song + Noise(20'000, 2), 0);
      hears("a hole", std::string(song).replace(half, 4096, 4096, '\0'), 4096);
    }
  }
}

TEST_F(Mp3, FramesWithDamagedSideInformationAreSilentInTheirPlace) {
  constexpr std::size_t kFrame = 384, kHole = 4 * 1152;  // in bytes; in frames of sound
  for (const std::uint32_t rate : {48000U, 24000U}) {
    for (const bool checksum : {true, false}) {
      const std::string song = Song(3, rate, checksum ? "-b 128 -p" : "-b 128");
      const auto whole = Decoded(song);
      const std::size_t side = rate == 48000 ? 32 : 17;
      for (std::size_t each = 0; each < side; ++each) {
        std::string bytes = song;
        const std::size_t frame = kFrame * (30 + each);
        if (checksum) {
          bytes[frame + 6 + each] = static_cast<char>(bytes[frame + 6 + each] ^ (1 << each % 8));
        } else {
          bytes.replace(frame + 4, side, side, '\xFF');
        }
        SCOPED_TRACE(std::to_string(rate) + " byte " + std::to_string(each));
        const auto out = Decoded(bytes);
        EXPECT_LE(Loudest(out), Loudest(whole) * 1.01);
        ASSERT_EQ(out.size(), whole.size());
        // A filter with a different past may round the last bit differently for any time.
        const auto same = [](int a, int b) { return std::abs(a - b) <= 1; };
        const auto first = std::mismatch(out.begin(), out.end(), whole.begin(), same).first;
        const auto last =
            std::mismatch(out.rbegin(), out.rend(), whole.rbegin(), same).first.base();
        EXPECT_GT(last - first, 1152) << "nothing was silenced";
        EXPECT_LE(static_cast<std::size_t>(last - first) / 2, kHole * 44100 / rate);
      }
    }
  }
}

TEST_F(Mp3, BehindAGapBurstsInSilenceAreWholeOrSilent) {
  constexpr std::uint32_t kRate = 16000;
  std::string data(std::size_t{4} * kRate * 4, '\0');
  for (std::size_t place = 4000; place < data.size(); place += std::size_t{4} * kRate / 4) {
    const auto burst = ToneBytes({900, 1300}, 0.3, kRate, 300);
    data.replace(place, burst.size(), burst);
  }
  const std::string song = Encoded(data, {1, 2, kRate, 16}, "-V 5 -p");
  const int level = Loudest(Decoded(song));
  for (std::size_t place = song.size() / 4; place < song.size() * 3 / 4; place += 61) {
    SCOPED_TRACE(place);
    EXPECT_LE(Loudest(Decoded(std::string(song).erase(place, 450))), level * 1.05);
  }
}

TEST_F(Mp3, FalseFramesAtABrokenEndAreLeftOut) {
  constexpr std::size_t kFrame = 384;
  const std::string song = Song(3, 48000);
  const auto whole = Decoded(song);
  std::string noise = Noise(20'000, 5);
  for (std::size_t i = 0; i < 6; ++i) noise.replace(i * kFrame, 4, song, 60 * kFrame, 4);
  Hears(std::string(song).insert(60 * kFrame, noise), whole, 0,
        whole.size() + std::size_t{2} * 1152);
}

TEST_F(Mp3, FilesThatAreNoMp3AreRefusedAndLeaveNothing) {
  std::string page;
  for (int i = 0; i < 3000; ++i) page += "<p>T\xEDtulo \xFF\xFB\x90 &amp; m\xE1s</p>\r\n";
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"text", std::string(20'000, 'a')},
      {"page", "<html>" + page},
      {"wave", Wave(ToneBytes({440, 440}, 0.5, 44100, 44100))},
      {"noise", Noise(2'000'000, 9)},
      {"only a tag", Id3Picture(5000)},
      {"tag that promises more", Id3Picture(5000).substr(0, 2000)},
      {"all bits set", std::string(100'000, '\xFF')},
      {"one frame's head", "\xFF\xFB\x90\x64"},
  };
  for (const auto& [what, bytes] : cases) {
    SCOPED_TRACE(what);
    EXPECT_EQ(Open(bytes), kFehlerKeinMpeg);
    EXPECT_EQ(decoder.State(), kMp3Unusable);
    EXPECT_EQ(decoder.LengthMs(), 0);
    EXPECT_EQ(ErrorOf([&] { decoder.Decode(); }), kFehlerUngueltigerAufruf);
    EXPECT_FALSE(fs::exists(home / "out/a.wav"));
  }
  EXPECT_EQ(decoder.Open(L"C:\\none.mp3", kOut), kFehlerDateiFehlt);
  EXPECT_EQ(decoder.State(), kMp3Unusable);
}

TEST_F(Mp3, AFailureIsToldOnceThenTheEndAndNoTargetStays) {
  const std::string song = Song(8);
  for (const bool reading : {false, true}) {
    Events.clear();
    ASSERT_EQ(Open(song), 0);
    (reading ? disk.Readable : disk.Room) = 70'000;
    decoder.Decode();
    UntilEnd();
    EXPECT_EQ(Failure, reading ? 57 : 61);
    EXPECT_EQ(Events.substr(Events.find_first_not_of('f')), "FE");
    EXPECT_FALSE(fs::exists(home / "out/a.wav"));
    EXPECT_EQ(decoder.State(), kMp3Stopped);
    disk.Room = disk.Readable = INT64_MAX;
  }
  EXPECT_EQ(Decoded(song).size(), 16 * 44100U) << "the next file is decoded as if nothing had been";
}

TEST_F(Mp3, FramesAreToldRisingAndNotTooOftenUpToTheLast) {
  const std::string song = Song(5, 44100, "-b 128 -t");
  std::string longSong;
  for (int i = 0; i < 60; ++i) longSong += song;
  const auto start = Clock::now();
  const auto out = Decoded(longSong);
  const double ms = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
  EXPECT_GT(out.size(), 2 * 299 * 44100U);
  ASSERT_FALSE(Frames.empty());
  EXPECT_TRUE(std::is_sorted(Frames.begin(), Frames.end()));
  EXPECT_EQ(Frames.back(), decoder.FrameCount());
  EXPECT_LE(static_cast<double>(Frames.size()), ms / 50 + 2);
  EXPECT_EQ(Events, std::string(Frames.size(), 'f') + "E");
  EXPECT_FALSE(Elsewhere);
}

TEST_F(Mp3, StopAnswersAtOnceAndLeavesAWaveOfWhatWasDecoded) {
  const std::string song = Song(5, 48000, "-b 128 -t");
  std::string longSong;
  for (int i = 0; i < 120; ++i) longSong += song;
  ASSERT_EQ(Open(longSong), 0);
  for (const int waitMs : {0, 60}) {
    SCOPED_TRACE(waitMs);
    Events.clear();
    decoder.Decode();
    std::this_thread::sleep_for(std::chrono::milliseconds(waitMs));
    decoder.Stop();
    EXPECT_EQ(decoder.State(), kMp3Stopped);
    const auto out = Out();
    EXPECT_LT(static_cast<std::int64_t>(out.size() / 2), Promised());
    if (waitMs > 0) {
      EXPECT_GT(out.size(), 44100U);
    }
    UntilEnd();
    EXPECT_EQ(Events.back(), 'E');
    EXPECT_EQ(std::count(Events.begin(), Events.end(), 'E'), 1);
    EXPECT_EQ(Events.find('F'), std::string::npos);
  }
}

TEST_F(Mp3, ADecoderThatGoesAwayWhileItWorksSaysNothingMore) {
  const std::string song = Song(5);
  Put(home / "a.mp3", song + song + song);
  {
    Mp3Decoder other(disk, loop, threads);
    other.Mp3Play1_ActFrame = [](int) { ADD_FAILURE() << "a frame of nobody"; };
    other.Mp3Play1_ThreadEnded = [] { ADD_FAILURE() << "an end of nobody"; };
    ASSERT_EQ(other.Open(kMp3, kOut), 0);
    other.Decode();
  }
  for (int i = 0; i < 10; ++i) loop.DoEvents();
}

}  // namespace vantora::test
