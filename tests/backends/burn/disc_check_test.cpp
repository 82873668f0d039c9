// Compares waves with a disc in memory, which is read early or late and may have damage.
#include "backends/burn/disc_check.h"

#include "tests/backends/bench.h"

#include "platform/cd_sound.h"
#include "platform/mcd.h"

namespace vantora::test {

namespace {

constexpr std::size_t kFrame = kFrameBytes, kSector = kSectorBytes;

std::string Constant(std::size_t frames, char byte) {
  return std::string(frames * kFrame, byte);
}

// A wave of a hundred frames, over and over.
std::string Tone(std::size_t frames) {
  std::string tone;
  for (std::size_t i = 0; i < frames * kFrame; ++i) tone += static_cast<char>(i % 400 / 2);
  return tone;
}

class Checking : public Bench {
 protected:
  // Plans and writes a disc with the sounds as its tracks.
  void Write(const std::vector<std::string>& sounds, const DiscRules& rules) {
    std::vector<DiscPart> waves;
    for (const std::string& sound : sounds) {
      const std::string name = std::to_string(waves.size()) + ".wav";
      Put(home / name.c_str(), Wave(sound));
      waves.push_back(SoundForDisc(disk, Text(L"C:\\") + Text(name.begin(), name.end())));
    }
    tracks = PlanDisc(waves, rules);
    image.assign(static_cast<std::size_t>(tracks.back().Start + tracks.back().Sectors) * kSector,
                 '\0');
    starts.clear();
    for (const PlannedTrack& track : tracks) {
      PartReader reader(disk, track.Parts);
      reader.Read(&image[static_cast<std::size_t>(track.Start) * kSector], reader.Left());
      starts.push_back(static_cast<int>(track.Start));
    }
  }
  bool Read(int sector, int count, void* target, int shift) {
    sectorsRead += count;
    const auto end = static_cast<int>(image.size() / kSector);
    outside = outside || sector < 0 || sector + count > end;
    if (outside || refused || (broken >= sector && broken < sector + count)) return false;
    const std::ptrdiff_t from = (std::ptrdiff_t{sector} * kSectorFrames - shift) * kFrameBytes;
    const std::ptrdiff_t bytes = std::ptrdiff_t{count} * kSectorBytes;
    for (std::ptrdiff_t i = 0; i < bytes; ++i) {
      const auto at = static_cast<std::size_t>(from + i);
      static_cast<char*>(target)[i] = from + i < 0 || at >= image.size() ? '\0' : image[at];
    }
    return true;
  }
  std::string Check() {
    std::string result;
    sectorsRead = 0;
    const auto quickly = [this](int sector, int count, void* target) {
      return Read(sector, count, target, late + sectorsRead % 5 * jitter);
    };
    const auto carefully = [this](int sector, int count, void* target) {
      return Read(sector, count, target, late);
    };
    const BurntDisc disc{starts, static_cast<int>(image.size() / kSector), quickly, carefully};
    const auto note = [&](int, int state) {
      if (state != kMcdVerifyBegins) result += "?=xf"[state];
    };
    DiscCheck(disk, disc, [] { return false; }).Run(tracks, note, [this](int now) {
      percent = now;
    });
    EXPECT_FALSE(outside) << "behind the end of the disc";
    return result;
  }

  std::vector<PlannedTrack> tracks;
  std::string image;
  std::vector<int> starts;
  int late = 0, jitter = 0;  // frames
  int broken = -1, sectorsRead = 0, percent = 0;
  bool refused = false, outside = false;
};

}  // namespace

TEST_F(Checking, AnHonestDriveIsNotBlamedWhateverTheTracksBeginWith) {
  const std::size_t second = 44'100;
  const std::vector<std::pair<const char*, std::string>> firsts = {
      {"noise", Noise(5 * second * kFrame)},
      {"an offset for two seconds", Constant(2 * second, '\xFF') + Noise(3 * second * kFrame)},
      {"a tone", Tone(5 * second) + Noise(second * kFrame)},
      {"a tone alone", Tone(5 * second)},
      {"silence", Constant(5 * second, '\0')},
      {"sound at the end alone", Constant(5 * second, '\0') + Noise(4000)},
      {"sound at the start alone", Noise(4000) + Constant(5 * second, '\0')},
      {"a short sound", Noise(4000)},
  };
  for (const auto& [what, first] : firsts) {
    for (const DiscRules& rules : {DiscRules{true, 0, 300}, DiscRules{false, 152, 300}}) {
      Write({first, Noise(5 * second * kFrame, 2)}, rules);
      for (const int frames : {0, 6, 30, 667, -1164, 2940, -2940}) {
        late = frames;
        EXPECT_EQ(Check(), "==") << what << ", " << frames << " frames late";
        EXPECT_LE(sectorsRead, image.size() / kSector * 2 + 200) << what;
      }
    }
  }
  EXPECT_EQ(percent, 100);
  jitter = 7;
  EXPECT_EQ(Check(), "==") << "when the drive begins elsewhere with every reading";
}

TEST_F(Checking, DamageIsFoundAtAnyShift) {
  const std::size_t frames = 220'500;
  for (const std::string& first : {Noise(frames * kFrame), Tone(frames), Constant(frames, '\0')}) {
    for (const int shift : {0, 30, -1164}) {
      Write({first, Noise(frames * kFrame, 2), Noise(frames * kFrame, 3)}, {true, 0, 300});
      late = shift;
      image[frames * 2] ^= 1;
      EXPECT_EQ(Check(), "x==") << shift;
      EXPECT_LE(sectorsRead, image.size() / kSector * 3);
      broken = static_cast<int>(frames * 3 / kSectorFrames) - 100;
      EXPECT_EQ(Check(), "x=f") << shift;
      broken = -1;
    }
  }
  refused = true;
  EXPECT_EQ(Check(), "fff");
}

}  // namespace vantora::test
