#include <gtest/gtest.h>

#include "backends/sound/audio_library.h"
#include "backends/sound/spectrum/fft.h"
#include "bench/sound/material.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <random>
#include <string>

namespace vantora::test {

namespace {

using bench::Damage, bench::Db, bench::Difference, bench::kRate, bench::Music, bench::Noise,
    bench::Power, bench::Sound;  // one channel, in 16-bit units
enum Filter { kDeclick, kDecrackle, kDenoise };

Sound operator+(Sound a, const Sound& b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
  return a;
}

std::int16_t Sample(double value) {
  return static_cast<std::int16_t>(std::lround(std::clamp(value, -32767.0, 32767.0)));
}

struct Studio {
  AudioLibrary Library;
  const std::int16_t Channels = 2;
  explicit Studio(Filter filter) {
    Library.func_01(8192);
    const float level = 0.5F;
    if (filter == kDeclick) Library.func_05(level);
    if (filter == kDecrackle) Library.func_03(level);
    if (filter == kDenoise) Library.func_04(level);
  }
  void Run(Filter filter, float level, const std::int16_t* source, std::int16_t* target,
           int frames) {
    if (filter == kDeclick) Library.func_08(level, Channels, source, target, frames);
    if (filter == kDecrackle) Library.func_06(level, Channels, source, target, frames);
    if (filter == kDenoise) Library.func_07(level, Channels, source, target, frames);
  }
};

using Buffers = std::function<int()>;  // returns the number of frames of the next buffer
using Levels = std::function<float()>;
Buffers Of(int frames) {
  return [frames] { return frames; };
}
Levels At(float level) {
  return [level] { return level; };
}

// The output of the left channel. The right channel gets the inverted sound, and its output must be
// inverted too.
Sound Through(Filter filter, const Sound& sound, const Levels& level = At(0.5F),
              const Buffers& buffer = Of(1024)) {
  Studio studio(filter);
  std::vector<std::int16_t> source(2 * sound.size()), target(2 * sound.size() + 2, 77);
  for (std::size_t i = 0; i < sound.size(); ++i) {
    source[2 * i] = Sample(sound[i]);
    source[2 * i + 1] = Sample(-sound[i]);
  }
  for (std::size_t at = 0; at < sound.size();) {
    const std::size_t frames = std::min(static_cast<std::size_t>(buffer()), sound.size() - at);
    const std::size_t behind = std::min<std::size_t>(1024, sound.size() - at - frames);
    studio.Library.Follows(source.data() + 2 * (at + frames), studio.Channels,
                           static_cast<int>(behind));
    studio.Run(filter, level(), &source[2 * at], &target[2 * at], static_cast<int>(frames));
    at += frames;
    EXPECT_EQ(target[2 * at], 77) << "more frames than went in";
  }
  Sound out(sound.size());
  for (std::size_t i = 0; i < out.size(); ++i) {
    out[i] = target[2 * i];
    EXPECT_LE(std::abs(out[i] + target[2 * i + 1]), 1) << i;
  }
  return out;
}

// Energies in bands of about 100 Hz.
Sound Bands(const Sound& sound) {
  constexpr std::size_t kSize = 4096, kWidth = 9;
  RealFft fft(kSize);
  std::vector<float> samples(kSize), real(fft.Bins()), imaginary(fft.Bins());
  Sound bands(fft.Bins() / kWidth);
  for (std::size_t at = 0; at + kSize <= sound.size(); at += kSize / 2) {
    for (std::size_t i = 0; i < kSize; ++i) {
      const double x = static_cast<double>(i) / kSize;
      samples[i] = static_cast<float>(sound[at + i] * (1 - std::cos(2 * std::numbers::pi * x)));
    }
    fft.Forward(samples.data(), real.data(), imaginary.data());
    for (std::size_t k = 0; k < bands.size() * kWidth; ++k) {
      bands[k / kWidth] += double{real[k] * real[k] + imaginary[k] * imaginary[k]};
    }
  }
  return bands;
}

}  // namespace

TEST(Restoration, OffOrAtLevelZeroOrNotStartedAFilterLeavesEverySample) {
  // Clipped, with crackle everywhere.
  Sound sound = Noise(20000, 30'000, 1);
  for (double& sample : sound) sample = Sample(sample);
  for (const Filter filter : {kDeclick, kDecrackle, kDenoise}) {
    EXPECT_TRUE(Through(filter, sound, At(0)) == sound) << filter;
    std::vector<std::int16_t> in(4000), out(4000);
    for (std::size_t i = 0; i < in.size(); ++i) in[i] = Sample(sound[i]);
    Studio studio(filter);
    studio.Library.func_11();
    studio.Library.func_09();
    studio.Library.func_10();
    studio.Run(filter, 0.9F, in.data(), out.data(), 2000);
    EXPECT_TRUE(in == out) << filter;
    studio.Library.func_02();
    studio.Library.func_02();
    studio.Library.func_04(0.9F);
    studio.Run(kDenoise, 0.9F, out.data(), in.data(), 2000);
    EXPECT_TRUE(in == out);
  }
}

// A short form of the table that `bench/sound/run` makes. The limits lie a little below what is
// measured there.
TEST(Restoration, AtTheStartValuesMaterialIsRestoredAsTheTableSaysAndTheMusicBesidesIsNotTouched) {
  const struct {
    const char* Material;
    Damage Kind;
    int Buffer;
    double Share, Gain;  // of places reduced by 10 dB; dB
  } cases[] = {
      {"piano", Damage::kShort, 1024, 0.97, 24},     {"piano", Damage::kShort, 441, 0.96, 16},
      {"piano", Damage::kSeams, 1024, 0.97, 20},     {"mix", Damage::kShort, 1024, 0.86, 12},
      {"drums", Damage::kLong, 1024, 0.38, 8},       {"saw", Damage::kCrackle, 1024, 0.95, 15},
      {"trumpet", Damage::kCrackle, 1024, 0.96, 17}, {"strings", Damage::kCrackle, 1024, 0.94, 15}};
  for (const auto& each : cases) {
    SCOPED_TRACE(testing::Message() << each.Material << " in buffers of " << each.Buffer);
    const bool crackle = each.Kind == Damage::kCrackle;
    const Sound clean = Music(each.Material, 5 * kRate, 1);
    const auto restored = [&](const Sound& sound) {
      return Through(crackle ? kDecrackle : kDeclick, sound, At(crackle ? 0.3F : 0.1F),
                     Of(each.Buffer));
    };
    Sound damaged = clean;
    const auto places = bench::AddDamage(damaged, each.Kind, 6, 7);
    const Sound damage = Difference(damaged, clean), left = Difference(restored(damaged), clean);
    double gone = 0;
    for (const bench::Place& place : places) {
      const std::size_t end = place.First + place.Count;
      gone += Power(left, place.First, end) < 0.1 * Power(damage, place.First, end);
    }
    std::size_t touched = 0;
    for (std::size_t i = 0; i < left.size(); ++i) touched += damage[i] == 0 && left[i] != 0;
    EXPECT_GE(gone / static_cast<double>(places.size()), each.Share);
    EXPECT_LT(touched, left.size() / 100);
    EXPECT_GE(Db(Power(damage) / Power(left)), each.Gain);
    EXPECT_GT(Db(Power(clean) / std::max(Power(Difference(restored(clean), clean)), 1e-9)), 45);
  }
}

TEST(Restoration, HissGoesDownByTenDecibelsAndMusicByLessThanOneFromTheFirstSecondOn) {
  const struct {
    const char* Material;
    double HissDb, Gain;
  } cases[] = {{"piano", -20, 4}, {"strings", -20, 4}, {"piano", -40, 3}, {"strings", -40, 1.5}};
  for (const auto& [material, hissDb, gain] : cases) {
    SCOPED_TRACE(material + std::to_string(hissDb));
    const Sound music = Music(material, 10 * kRate, 1);
    const Sound hiss = Noise(music.size(), std::sqrt(Power(music) * std::pow(10, hissDb / 10)), 9);
    const Sound out = Through(kDenoise, music + hiss), left = Difference(out, music);
    for (const std::size_t until : {std::size_t{kRate}, music.size()}) {
      EXPECT_GT(Db(Power(hiss, 0, until) / Power(left, 0, until)), gain);
    }
    const Sound before = Bands(music), noise = Bands(hiss), after = Bands(out);
    double free = 0, freed = 0;
    for (std::size_t band = 0; band < before.size(); ++band) {
      if (before[band] > 100 * noise[band]) {
        EXPECT_LT(Db(before[band] / after[band]), 1) << band;
      }
      if (before[band] > 0.01 * noise[band]) continue;
      free += noise[band];
      freed += after[band];
    }
    if (free > 0) {
      EXPECT_GT(Db(free / freed), 10);
    }
  }
}

TEST(Restoration, WhereBuffersMeetIsNotHeardEvenWhenTheLevelMoves) {
  const Sound music = Music("piano", 5 * kRate, 1);
  const Sound noisy = music + Noise(music.size(), std::sqrt(Power(music) * 1e-3), 10);
  const double hiss = Power(Difference(noisy, music));
  for (const int buffer : {1024, 700}) {
    for (const float least : {0.2F, 0.5F}) {
      bool odd = false;
      const Sound out = Through(
          kDenoise, noisy, [&] { return (odd = !odd) ? 0.5F : least; }, Of(buffer));
      const Sound left = Difference(out, music);
      double edges = 0, all = 0, edgeCount = 0;
      for (std::size_t i = kRate; i < left.size(); ++i) {
        const double jump = std::pow(left[i] - left[i - 1], 2);
        all += jump;
        if (i % static_cast<std::size_t>(buffer) == 0) edges += jump, ++edgeCount;
      }
      all /= static_cast<double>(left.size() - kRate);
      EXPECT_LT(edges / edgeCount, hiss) << buffer;
      EXPECT_LT(all, 0.5 * hiss) << buffer;
    }
  }
}

TEST(Restoration, HissOfRadioAndRecordsGoesDownAsWhiteNoiseDoes) {
  const Sound white = Noise(3 * kRate, 1e5, 14);
  Sound record = white, radio = white;  // falling by 6 dB an octave; without its treble
  for (std::size_t i = 1; i < white.size(); ++i) {
    record[i] = record[i - 1] + 0.07 * (white[i] - record[i - 1]);
  }
  for (int pass = 0; pass < 24; ++pass) {
    for (std::size_t i = radio.size(); --i > 0;) radio[i] = 0.5 * (radio[i] + radio[i - 1]);
  }
  for (const Sound& hiss : {white, record, radio}) {
    const Sound left = Through(kDenoise, hiss, At(0.2F));
    EXPECT_LT(Db(Power(left, kRate, hiss.size()) / Power(hiss, kRate, hiss.size())), -12);
  }
}

// A track that was cut out of a concert joins the next one.
TEST(Restoration, TheLastSamplesOfACutTrackAreThoseOfTheWholeConcert) {
  const Sound concert = Music("piano", 2 * kRate, 3) + Noise(2 * kRate, 100, 13);
  const Sound whole = Through(kDenoise, concert, At(0.2F));
  for (const std::size_t end : {20'000U, 44'100U, 51'713U, 65'536U, 80'001U}) {
    const auto cut = [end](const Sound& sound) {
      return Sound(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(end));
    };
    const Sound track = cut(concert),
                bent = Difference(Through(kDenoise, track, At(0.2F)), cut(whole));
    EXPECT_LT(Db(Power(bent, end - 64, end) / Power(track, end - 64, end)), -30) << end;
  }
}

TEST(Restoration, TheFirstSamplesOfACutTrackStayAndSoDoThoseAfterWinding) {
  constexpr std::size_t kStarts = 40, kFrames = 1024;
  std::vector<std::int16_t> concert(2 * kRate);
  const Sound piano = Music("piano", kRate, 3) + Noise(kRate, 30, 13);
  for (std::size_t i = 0; i < concert.size(); ++i) concert[i] = Sample(piano[i / 2]);
  for (const Filter filter : {kDeclick, kDecrackle}) {
    Studio wound(filter);
    int bentStarts = 0, bentPlaces = 0;
    for (std::size_t start = 0; start < kStarts; ++start) {
      const std::int16_t* const from = &concert[2 * 997 * start];
      const auto bent = [&](Studio& studio) {
        std::vector<std::int16_t> out(2 * kFrames);
        studio.Library.Follows(from + 2 * kFrames, studio.Channels, kFrames);
        studio.Run(filter, 0.5F, from, out.data(), kFrames);
        return std::equal(out.begin(), out.begin() + 60, from) ? 0 : 1;
      };
      Studio fresh(filter);
      bentStarts += bent(fresh);
      bentPlaces += bent(wound);
    }
    EXPECT_EQ(bentStarts, 0) << filter;
    EXPECT_EQ(bentPlaces, 0) << filter;
  }
}

TEST(Restoration, ASoundAsShortAsDamageStaysWhole) {
  const Sound brief(100, 10'000);
  for (const Filter filter : {kDeclick, kDecrackle}) EXPECT_EQ(Through(filter, brief), brief);
}

// For any sound, buffer size and level, the number of frames stays the same and the sound gets no
// louder.
TEST(Restoration, HostileSoundNeverExplodes) {
  std::mt19937 random(11);
  const std::size_t length = 60000;
  Sound square(length), wild = Noise(length, 30'000, 12), silence(length), single(length),
                        edge(length);
  for (std::size_t i = 0; i < length; ++i) {
    square[i] = i / 100 % 2 ? 32767 : -32767;
    edge[i] = i % 2 ? 32767 : -32767;
    if (i > length / 2) wild[i] = 0;  // silence in the second half
  }
  single[30000] = 32767;
  for (const Sound& sound : {square, wild, silence, single, edge, Sound(length, 32767)}) {
    for (const Filter filter : {kDeclick, kDecrackle, kDenoise}) {
      const auto buffer = [&] { return 1 + static_cast<int>(random() % 2500); };
      const auto level = [&] { return static_cast<float>(random() % 100) / 100; };
      const Sound out = Through(filter, sound, level, buffer);
      EXPECT_LE(Power(out), 1.05 * Power(sound)) << filter;
      if (filter == kDenoise) continue;  // the denoiser takes such noise for hiss
      EXPECT_LE(Power(Difference(out, sound)), 0.2 * Power(sound) + 32768.0 * 32768 / length);
    }
  }
}

}  // namespace vantora::test
