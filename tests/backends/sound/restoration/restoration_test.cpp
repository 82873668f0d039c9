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

constexpr std::size_t kRate = 44100;
using Sound = std::vector<double>;  // one channel, in 16-bit units
enum Filter { kDeclick, kDecrackle, kDenoise };

double Power(const Sound& sound, std::size_t from, std::size_t to) {
  double sum = 0;
  for (std::size_t i = from; i < to; ++i) sum += sound[i] * sound[i];
  return sum / static_cast<double>(to - from);
}

double Db(double ratio) {
  return 10 * std::log10(ratio);
}

Sound operator+(Sound a, const Sound& b) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] += b[i];
  return a;
}

Sound operator-(const Sound& a, Sound b) {
  for (std::size_t i = 0; i < a.size(); ++i) b[i] = a[i] - b[i];
  return b;
}

Sound Noise(std::size_t length, double power, unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> value(0, std::sqrt(power));
  Sound sound(length);
  for (double& sample : sound) sample = value(random);
  return sound;
}

// Chords of slightly inharmonic tones, struck every `every` seconds and decaying by e^(-decay t).
Sound Chords(std::size_t length, double every, double decay) {
  std::mt19937 random(3);
  Sound sound(length);
  const auto step = static_cast<std::size_t>(every * double{kRate});
  for (std::size_t at = 0; at < length; at += step) {
    const double root = 110 * std::exp2(static_cast<double>(random() % 24) / 12);
    for (const int note : {0, 4, 7}) {
      for (int h = 1; h <= 8; ++h) {
        const double pitch = root * std::exp2(note / 12.0) * h * std::sqrt(1 + 0.0002 * h * h);
        const double phase = static_cast<double>(random() % 628) / 100;
        for (std::size_t i = at; i < std::min(length, at + 3 * step); ++i) {
          const double t = static_cast<double>(i - at) / kRate;
          sound[i] += 1000 / std::pow(h, 1.2) * (1 - std::exp(-t / 0.004)) *
                      std::exp(-decay * (1 + 0.4 * h) * t) *
                      std::sin(2 * std::numbers::pi * pitch * t + phase);
        }
      }
    }
  }
  return sound;
}

std::int16_t Sample(double value) {
  return static_cast<std::int16_t>(std::lround(std::clamp(value, -32767.0, 32767.0)));
}

void Rounded(Sound& sound) {
  for (double& sample : sound) sample = static_cast<double>(Sample(sample));
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
  Sound sound = Noise(20000, 1e9, 1);  // clipped, with crackle everywhere
  Rounded(sound);
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

TEST(Restoration, NineOfTenDamagesSixDecibelsOverTheMusicAreGoneAndTheMusicBesidesThemIsNot) {
  Sound music = Chords(8 * kRate, 0.8, 1.5);
  music = music + Noise(music.size(), Power(music, 0, music.size()) * 1e-5, 2);
  Rounded(music);
  std::mt19937 random(6);
  std::normal_distribution<double> normal;
  const struct {
    const char* What;
    Filter With;
    int Buffer;
    std::size_t PerSecond, Length;
    std::function<double(std::size_t)> Shape;
  } cases[] = {
      {"pops", kDeclick, 1024, 8, 1, [](std::size_t) { return 1; }},
      {"pops in short buffers", kDeclick, 441, 8, 1, [](std::size_t) { return -1; }},
      {"scratches", kDeclick, 1024, 8, 3, [&](std::size_t) { return normal(random); }},
      {"bursts", kDeclick, 1024, 8, 12,
       [&](std::size_t i) { return normal(random) * std::exp(-0.16 * double(i)); }},
      {"crackle", kDecrackle, 1024, 150, 1, [](std::size_t) { return 1; }},
      {"coarse crackle", kDecrackle, 1000, 100, 3, [&](std::size_t) { return normal(random); }},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.What);
    Sound damage(music.size());
    std::vector<std::size_t> places;
    const std::size_t apart = kRate / each.PerSecond;
    for (std::size_t place = 3000; place < music.size() - 3000;
         place += apart * (40 + random() % 121) / 100) {
      const double height = 2 * std::sqrt(Power(music, place - 500, place + 500));
      for (std::size_t i = 0; i < each.Length; ++i) damage[place + i] = height * each.Shape(i);
      places.push_back(place);
    }
    Sound damaged = music + damage;
    Rounded(damaged);
    const Sound repaired = Through(each.With, damaged, At(0.5F), Of(each.Buffer));
    const Sound left = repaired - music;
    damage = damaged - music;
    std::size_t gone = 0, touched = 0;
    for (const std::size_t place : places) {
      gone +=
          Power(left, place, place + each.Length) < 0.1 * Power(damage, place, place + each.Length);
    }
    for (std::size_t i = 0; i < music.size(); ++i) touched += damage[i] == 0 && left[i] != 0;
    EXPECT_GE(gone * 10, places.size() * 9) << places.size();
    EXPECT_LT(touched * 500, music.size());
    EXPECT_GT(Db(Power(damage, 0, music.size()) / Power(left, 0, music.size())), 8);
  }
}

// A short form of the table that `bench/sound/run` makes. The limits lie a little below what is
// measured there.
TEST(Restoration, AtTheStartValuesMaterialIsRestoredAsTheTableSays) {
  constexpr std::size_t kLength = 5 * kRate;
  const struct {
    const char* Material;
    bench::Damage Damage;
    double Share, Gain;  // of places reduced by 10 dB; dB
  } cases[] = {{"piano", bench::Damage::kShort, 0.95, 14},
               {"drums", bench::Damage::kLong, 0.35, 3},
               {"saw", bench::Damage::kCrackle, 0.9, 8}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Material);
    const bool crackle = each.Damage == bench::Damage::kCrackle;
    const Sound clean = bench::Music(each.Material, kLength, 1);
    const auto restored = [&](const Sound& sound) {
      return Through(crackle ? kDecrackle : kDeclick, sound, At(crackle ? 0.3F : 0.1F));
    };
    Sound damaged = clean;
    const auto places = bench::AddDamage(damaged, each.Damage, 6, 7);
    const Sound damage = damaged - clean, left = restored(damaged) - clean;
    double gone = 0;
    for (const bench::Place& place : places) {
      const std::size_t end = place.First + place.Count;
      gone += Power(left, place.First, end) < 0.1 * Power(damage, place.First, end);
    }
    EXPECT_GE(gone / static_cast<double>(places.size()), each.Share);
    EXPECT_GE(Db(Power(damage, 0, kLength) / Power(left, 0, kLength)), each.Gain);
    const double changed = Power(restored(clean) - clean, 0, kLength);
    EXPECT_GT(Db(Power(clean, 0, kLength) / std::max(changed, 1e-9)), 45);
  }
}

TEST(Restoration, HissGoesDownByTenDecibelsAndMusicByLessThanOneFromTheFirstSecondOn) {
  const std::size_t length = 10 * kRate;
  const struct {
    const char* What;
    Sound Music;
  } cases[] = {{"struck", Chords(length, 0.8, 1.5)},
               {"held for longer than the noise is watched", Chords(14 * kRate, 20, 0)}};
  for (const auto& each : cases) {
    for (const double hissDb : {-20, -40}) {
      SCOPED_TRACE(each.What + std::to_string(hissDb));
      const Sound& music = each.Music;
      const Sound hiss =
          Noise(music.size(), Power(music, 0, music.size()) * std::pow(10, hissDb / 10), 9);
      const Sound out = Through(kDenoise, music + hiss), left = out - music;
      for (const std::size_t until : {std::size_t{kRate}, music.size()}) {
        EXPECT_GT(Db(Power(hiss, 0, until) / Power(left, 0, until)), 4);
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
      EXPECT_GT(Db(free / freed), 10);
    }
  }
}

TEST(Restoration, WhereBuffersMeetIsNotHeardEvenWhenTheLevelMoves) {
  const Sound music = Chords(5 * kRate, 1, 1);
  const Sound noisy = music + Noise(music.size(), Power(music, 0, music.size()) * 1e-3, 10);
  const double hiss = Power(noisy - music, 0, music.size());
  for (const int buffer : {1024, 700}) {
    for (const float least : {0.2F, 0.5F}) {
      bool odd = false;
      const Sound left =
          Through(
              kDenoise, noisy, [&] { return (odd = !odd) ? 0.5F : least; }, Of(buffer)) -
          music;
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
  const Sound concert = Chords(2 * kRate, 0.4, 3) + Noise(2 * kRate, 100, 13);
  const Sound whole = Through(kDenoise, concert, At(0.2F));
  for (const std::size_t end : {20'000U, 44'100U, 51'713U, 65'536U, 80'001U}) {
    const auto cut = [end](const Sound& sound) {
      return Sound(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(end));
    };
    const Sound track = cut(concert), bent = Through(kDenoise, track, At(0.2F)) - cut(whole);
    EXPECT_LT(Db(Power(bent, end - 64, end) / Power(track, end - 64, end)), -38) << end;
  }
}

// For any sound, buffer size and level, the number of frames stays the same and the sound gets no
// louder.
TEST(Restoration, HostileSoundNeverExplodes) {
  std::mt19937 random(11);
  const std::size_t length = 60000;
  Sound square(length), wild = Noise(length, 1e9, 12), silence(length), single(length),
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
      EXPECT_LE(Power(out, 0, length), 1.05 * Power(sound, 0, length)) << filter;
      const double distance = Power(out - sound, 0, length);
      if (filter == kDenoise) continue;  // the denoiser takes such noise for hiss
      EXPECT_LE(distance, 0.2 * Power(sound, 0, length) + 32768.0 * 32768 / length) << filter;
    }
  }
}

}  // namespace vantora::test
