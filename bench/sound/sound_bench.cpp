// Makes the material of `bench/sound/run`, renders it as the wave editor does, and measures what
// came out. Waves are 16 bit, stereo, 44.1 kHz; the two channels hold different music and damage.

#include "backends/sound/audio_library.h"
#include "backends/sound/restoration/ar_model.h"
#include "bench/sound/figures.h"
#include "bench/sound/material.h"
#include "waveeditor/restauration.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>

namespace vantora::bench {

namespace {

using Words = std::vector<std::string>;
constexpr std::size_t kHeader = 44, kBuffer = 1024;

void Put(std::string& text, std::size_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
}

void Write(const std::string& file, const std::vector<std::int16_t>& samples) {
  std::string header = "RIFF";
  Put(header, 36 + samples.size() * 2, 4);
  header += "WAVEfmt ";
  Put(header, 16, 4);
  Put(header, 1, 2), Put(header, 2, 2);
  Put(header, kRate, 4), Put(header, kRate * 4, 4);
  Put(header, 4, 2), Put(header, 16, 2);
  header += "data";
  Put(header, samples.size() * 2, 4);
  std::ofstream out(file, std::ios::binary);
  out << header;
  out.write(reinterpret_cast<const char*>(samples.data()),
            static_cast<std::streamsize>(samples.size() * 2));
  if (!out.flush()) throw std::runtime_error("cannot write " + file);
}

std::vector<std::int16_t> Read(const std::string& file) {
  std::ifstream in(file, std::ios::binary | std::ios::ate);
  const auto size = static_cast<std::size_t>(std::max<std::streamoff>(in.tellg(), kHeader));
  std::vector<std::int16_t> samples((size - kHeader) / 2);
  in.seekg(kHeader);  // those that ffmpeg and sox write are as long when told to write no more
  in.read(reinterpret_cast<char*>(samples.data()),
          static_cast<std::streamsize>(samples.size() * 2));
  if (!in) throw std::runtime_error("cannot read " + file);
  return samples;
}

using Stereo = std::array<Sound, 2>;

void Write(const std::string& file, const Stereo& sound) {
  std::vector<std::int16_t> samples;
  for (std::size_t i = 0; i < sound[0].size(); ++i) {
    for (const Sound& channel : sound) samples.push_back(static_cast<std::int16_t>(channel[i]));
  }
  Write(file, samples);
}

Stereo Channels(const std::string& file) {
  const std::vector<std::int16_t> samples = Read(file);
  Stereo sound;
  for (std::size_t i = 0; i < samples.size(); ++i) sound[i % 2].push_back(double{1} * samples[i]);
  return sound;
}

// ---- material ----

const std::map<std::string, Damage> kDamages = {{"short", Damage::kShort},
                                                {"long", Damage::kLong},
                                                {"crackle", Damage::kCrackle},
                                                {"seams", Damage::kSeams}};

// NAME.clean.wav, and for each damage NAME.DAMAGE.DB.wav with its places beside it.
void MakeDamaged(const std::string& name, const std::string& folder, std::size_t length,
                 unsigned seed) {
  const Stereo clean = {Music(name, length, 2 * seed - 1), Music(name, length, 2 * seed)};
  Write(folder + "/" + name + ".clean.wav", clean);
  for (const auto& [word, damage] : kDamages) {
    for (const int db : {0, 6, 12}) {
      if (damage == Damage::kSeams && db != 6) continue;
      Stereo sound = clean;
      const std::string file = folder + "/" + name + "." + word + "." + std::to_string(db);
      std::ofstream places(file + ".txt");
      for (unsigned channel = 0; channel < 2; ++channel) {
        for (const Place& place : AddDamage(sound[channel], damage, db, 2 * seed + 5 + channel)) {
          places << channel << ' ' << place.First << ' ' << place.Count << '\n';
        }
      }
      Write(file + ".wav", sound);
    }
  }
}

unsigned Seed(const std::string& word) {  // from 1 on
  return static_cast<unsigned>(std::max(std::strtoul(word.c_str(), nullptr, 10), 1UL));
}

void Make(const Words& words) {
  const unsigned seed = Seed(words[2]);
  const std::size_t length = std::strtoul(words[1].c_str(), nullptr, 10) * kRate;
  if (length < 4 * kRate) throw std::runtime_error("the material needs 4 seconds or more");
  for (const std::string& name : kMaterials) MakeDamaged(name, words[0], length, seed);
  for (const auto& [name, noisy] : HissSounds(length, seed)) {
    Write(words[0] + "/" + name + ".wav", {noisy, noisy});
  }
}

// ---- rendering ----

void Render(const Words& words) {
  const std::string& filters = words[0];  // of the letters c, r and h
  const std::vector<std::int16_t> source = Read(words[2]);
  std::vector<std::int16_t> target(source.size());
  // "start": where the sliders of the wave editor start
  const auto levelOf = [&](Restauration::Filter filter) {
    return words[1] == "start" ? static_cast<float>(Restauration::kAnfang[filter]) / 100
                               : std::strtof(words[1].c_str(), nullptr);
  };
  const float clicks = levelOf(Restauration::kDeclick), crackle = levelOf(Restauration::kDecrackle),
              hiss = levelOf(Restauration::kDenoiser);
  const std::int16_t channels = 2;
  AudioLibrary library;
  library.func_01(8192);
  const auto has = [&](char letter) { return filters.find(letter) != std::string::npos; };
  if (has('c')) library.func_05(clicks);
  if (has('r')) library.func_03(crackle);
  if (has('h')) library.func_04(hiss);
  std::array<std::int16_t, 2 * kBuffer> a{}, b{};
  for (std::size_t at = 0; at < source.size(); at += a.size()) {
    const std::size_t count = std::min(a.size(), source.size() - at);
    const std::size_t behind = std::min(a.size(), source.size() - at - count);
    const int frames = static_cast<int>(count / 2);
    std::copy_n(source.begin() + static_cast<std::ptrdiff_t>(at), count, b.begin());
    library.Follows(source.data() + at + count, channels, static_cast<int>(behind / 2));
    a = b;
    if (has('c')) library.func_08(clicks, channels, b.data(), a.data(), frames), b = a;
    if (has('r')) library.func_06(crackle, channels, b.data(), a.data(), frames), b = a;
    if (has('h')) library.func_07(hiss, channels, b.data(), a.data(), frames);
    std::copy_n(a.begin(), count, target.begin() + static_cast<std::ptrdiff_t>(at));
  }
  Write(words[3], target);
}

std::array<std::vector<Place>, 2> Places(const std::string& file) {
  std::array<std::vector<Place>, 2> places;
  std::ifstream in(file);
  for (std::size_t channel = 0, first = 0, count = 0; in >> channel >> first >> count;) {
    places.at(channel).push_back({first, count});
  }
  return places;
}

// What an interpolation can do that knows the places.
void Known(const Words& words) {
  Stereo sound = Channels(words[0]);
  const auto places = Places(words[1]);
  for (std::size_t channel = 0; channel < 2; ++channel) {
    FillKnown(sound[channel], places[channel]);
  }
  Write(words[2], sound);
}

// The best that can be made of the places that a filter found: those in which it changed anything,
// filled as FillKnown does.
void Found(const Words& words) {
  Stereo sound = Channels(words[0]);
  const Stereo out = Channels(words[2]), known = Channels(words[3]);
  const auto places = Places(words[1]);
  for (std::size_t channel = 0; channel < 2; ++channel) {
    for (const Place& place : places[channel]) {
      const auto from = static_cast<std::ptrdiff_t>(place.First);
      const auto to = from + static_cast<std::ptrdiff_t>(place.Count);
      const auto start = sound[channel].begin();
      if (std::equal(start + from, start + to, out[channel].begin() + from)) continue;
      std::copy(known[channel].begin() + from, known[channel].begin() + to, start + from);
    }
  }
  Write(words[4], sound);
}

// ---- figures ----

// Share of the places reduced by 10 dB, gain of the ratio of sound to damage in dB.
void Score(const Words& words) {
  const Stereo clean = Channels(words[0]), damaged = Channels(words[1]), out = Channels(words[3]);
  const auto places = Places(words[2]);
  double gone = 0, count = 0, before = 0, after = 0;
  for (std::size_t channel = 0; channel < 2; ++channel) {
    const Sound damage = Difference(damaged[channel], clean[channel]);
    const Sound left = Difference(out[channel], clean[channel]);
    for (const Place& place : places[channel]) {
      const std::size_t end = place.First + place.Count;
      gone += Power(left, place.First, end) < 0.1 * Power(damage, place.First, end);
      ++count;
    }
    before += Power(damage), after += Power(left);
  }
  std::printf("%.1f %.2f\n", 100 * gone / std::max(count, 1.0), Db(before / std::max(after, 1e-9)));
}

// The ratio of clean sound to what was changed of it, in dB.
void Clean(const Words& words) {
  const Stereo clean = Channels(words[0]), out = Channels(words[1]);
  double sound = 0, changed = 1e-9;
  for (std::size_t channel = 0; channel < 2; ++channel) {
    sound += Power(clean[channel]);
    changed += Power(Difference(out[channel], clean[channel]));
  }
  std::printf("%.1f\n", std::min(Db(sound / changed), 99.9));
}

// Some programs give out their sound later: it is moved to where it fits what went in.
Sound InPlace(const Sound& in, const Sound& out) {
  constexpr std::size_t kMostDelay = 3000, kFrom = kRate, kLength = kRate;
  std::size_t best = 0;
  double most = 0;
  for (std::size_t delay = 0; delay < kMostDelay; ++delay) {
    double sum = 0;
    for (std::size_t i = kFrom; i < kFrom + kLength; ++i) sum += in[i] * out[i + delay];
    if (sum > most) most = sum, best = delay;
  }
  Sound moved(out.begin() + static_cast<std::ptrdiff_t>(best), out.end());
  moved.resize(out.size());
  return moved;
}

// The figure of one sound of HissSounds, and of what was made of it.
void Hiss(const Words& words) {
  const Sound out = InPlace(Channels(words[2])[0], Channels(words[3])[0]);
  std::printf("%.2f\n", HissFigure(words[0], out, Seed(words[1])));
}

struct Work {
  std::size_t Count;
  std::function<void(const Words&)> Do;
};

const std::map<std::string, Work> kWorks = {
    {"make", {3, Make}},   {"render", {4, Render}}, {"known", {3, Known}}, {"found", {5, Found}},
    {"score", {4, Score}}, {"clean", {2, Clean}},   {"hiss", {4, Hiss}}};

}  // namespace

}  // namespace vantora::bench

int main(int argc, char** argv) {
  using namespace vantora::bench;
  const auto work = kWorks.find(argc > 1 ? argv[1] : "");
  if (work == kWorks.end() || static_cast<std::size_t>(argc) != 2 + work->second.Count) {
    std::fputs(
        "sound-bench make FOLDER SECONDS SEED | render FILTERS LEVEL|start IN OUT |\n"
        "            known IN PLACES OUT | found IN PLACES RENDERED KNOWN OUT |\n"
        "            score CLEAN DAMAGED PLACES OUT | clean CLEAN OUT | hiss NAME SEED IN OUT\n",
        stderr);
    return 2;
  }
  try {
    work->second.Do({argv + 2, argv + argc});
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sound-bench: %s\n", error.what());
    return 1;
  }
}
