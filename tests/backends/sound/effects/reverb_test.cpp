#include "backends/sound/effects/reverb.h"

#include "backends/linux/profile_file.h"
#include "backends/linux/utf8.h"
#include "backends/linux/windows1252.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/chain_sounds.h"

#include <array>
#include <cstdio>

namespace vantora::test {

namespace {

const Text kFile = L"C:\\Reverb.ini";

struct Rooms : Home {
  ProfileFiles Profiles{Table};
  explicit Rooms(const std::string& content) { Put(*this / "Reverb.ini", content); }
  // The sound in a room, as loud as it gets.
  Sound In(const Text& room, int feedback, const Sound& sound) {
    Reverb reverb(Profiles);
    reverb.LoadFromIni(kFile, room);
    reverb.SetFeedback(feedback);
    reverb.SetOutputGain(99);
    reverb.Enable();
    return Through(reverb, sound);
  }
};

}  // namespace

// At the feedback 40 an echo is repeated by its own share.
TEST(Reverb, AnEchoComesAtItsDelayAsLoudAsItsGainWhereItsPanSaysAndRepeatsByItsShare) {
  constexpr std::size_t kDelay = 1380, kBetweenEars = 322;  // frames, of 31.3 ms and 7.3 ms
  constexpr double kLoud = 20'000;
  const struct {
    int Gain, Share, Damping, Pan;
  } cases[] = {{50, 0, 0, -100}, {-80, 60, 0, 100},  {60, -70, 0, 0},
               {90, 0, 50, 100}, {99, 0, 100, -100}, {40, -99, 0, 100}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Gain);
    std::array<char, 80> line;
    std::snprintf(line.data(), line.size(), "[07.La sala]\nEco3 = 31.3, %d,%d ,%d,%d\n", each.Gain,
                  each.Share, each.Damping, each.Pan);
    Rooms rooms(line.data());
    Sound click(2 * 6000);
    click[0] = click[1] = Sample(kLoud);
    const Sound out = rooms.In(L"La sala", 40, click);
    const auto at = [&](std::size_t frame, bool right) { return out[2 * frame + (right ? 1 : 0)]; };
    const double share = each.Share / 100.0, dull = each.Damping / 400.0;
    const double first = kLoud * 0.99 * each.Gain / 100 * std::sqrt(1 - share * share / 8);
    const bool right = each.Pan > 0;
    EXPECT_NEAR(at(kDelay, right), first * (1 - 2 * dull), 90);
    EXPECT_NEAR(at(kDelay - 1, right), first * dull, 90);
    EXPECT_NEAR(at(2 * kDelay, right), first * share, 90);
    EXPECT_NEAR(at(kDelay + kBetweenEars, !right), each.Pan == 0 ? first : 0, 90);
  }
  for (const bool diffuse : {false, true}) {
    Rooms rooms("[1.A]\nDifusion=" + std::string(diffuse ? "99" : "0") +
                "\nEco1=30,50,60\nEco2=47,10,60\n");
    Sound click(2 * 6000);
    click[0] = click[1] = Sample(kLoud);
    const Sound out = rooms.In(L"1.A", 40, click);
    EXPECT_EQ(std::abs(out[2 * (1323 + 2073)]) > 300, diffuse) << "one echo feeds the other";
  }
}

// The sound after its end: decay time of both ears from -5 to -25 dB, and what they have in common.
struct Tail {
  double Seconds = 0, Correlation = 0,
         Mono = 0;  // Mono: level of the sum of uncorrelated ears is 0
  Tail(const Sound& out, std::size_t end) {
    std::vector<double> left(out.size() / 2 + 1, 0.0);  // energy from a frame on
    double one = 0, other = 0, both = 0;
    for (std::size_t n = out.size() / 2; n-- > end;) {
      const double l = out[2 * n], r = out[2 * n + 1];
      left[n] = left[n + 1] + l * l + r * r;
      if (n < end + 2205) continue;
      one += l * l, other += r * r, both += l * r;
    }
    const auto down = [&](double decibel) {
      const double energy = left[end] * std::pow(10, -decibel / 10);
      const auto at = std::find_if(left.begin() + static_cast<std::ptrdiff_t>(end), left.end(),
                                   [&](double e) { return e < energy; });
      return static_cast<double>(at - left.begin()) / 44'100;
    };
    Seconds = 3 * (down(25) - down(5));
    Correlation = both / std::sqrt(one * other);
    Mono = Decibels(std::sqrt((one + other + 2 * both) / (one + other)));
  }
};

TEST(Reverb, RoomsLastAsTheirNamesPromiseAndHaveTwoEars) {
  Rooms rooms(ToWindows1252(FromUtf8(Get(fs::path(VANTORA_SOURCE_DIR) / "resources/Reverb.ini"))));
  Sound mono = Hiss(6000, 22'050);
  for (std::size_t n = 0; n < mono.size(); n += 2) mono[n + 1] = mono[n];
  mono.resize(mono.size() + std::size_t{2} * 8 * 44'100);
  const auto tail = [&](const Text& room, int feedback) {
    return Tail(rooms.In(room, feedback, mono), 22'050);
  };
  const std::vector<std::pair<Text, double>> lengths{{L"01.Habitaci\u00f3n peque\u00f1a", 0.45},
                                                     {L"Sal\u00f3n", 0.7},
                                                     {L"Estudio", 0.55},
                                                     {L"Club de jazz", 0.9},
                                                     {L"Teatro", 1.25},
                                                     {L"Sala de conciertos", 1.8},
                                                     {L"Iglesia", 2.9},
                                                     {L"Catedral", 5},
                                                     {L"Placa", 2},
                                                     {L"Cueva", 3.5},
                                                     {L"T\u00fanel", 2.6},
                                                     {L"Estadio", 2.6}};
  for (const auto& [room, seconds] : lengths) {
    SCOPED_TRACE(ToWindows1252(room));
    const Tail start = tail(room, 40);
    EXPECT_NEAR(start.Seconds / seconds, 1, 0.1);
    EXPECT_LT(std::abs(start.Correlation), 0.15);
    EXPECT_NEAR(start.Mono, 0, 0.6);
    EXPECT_NEAR(tail(room, -20).Seconds / seconds, 0.5, 0.1);
  }
}

TEST(Reverb, EveryRoomOfTheProgramDiesAwayAfterTheLoudestSoundAtFullFeedback) {
  const std::string file = Get(fs::path(VANTORA_SOURCE_DIR) / "resources/Reverb.ini");
  Rooms rooms(ToWindows1252(FromUtf8(file)));
  const auto names = rooms.Profiles.GetPrivateProfileSectionNames(kFile, 32'000);
  EXPECT_GE(names.size(), 10U);
  for (const Text& name : names) {
    SCOPED_TRACE(ToWindows1252(name));
    EXPECT_EQ(name.find(L'.'), 2U);
    for (const int feedback : {-99, 99}) {
      Sound sound = Hiss(8000, 132'300);
      for (std::int16_t& sample : sound) sample = Sample(sample + 12'000.0);  // large offset
      const std::size_t end = sound.size() / 2;
      sound.resize(sound.size() + std::size_t{2} * 30 * 44'100);
      const Sound out = rooms.In(name.substr(3), feedback, sound);
      EXPECT_GT(Loudness(out, end + 500, end + 1500), 300);
      EXPECT_LT(Loudness(out, end - 44'100, end), 20'000);
      EXPECT_LT(Loudness(out, out.size() / 2 - 44'100, out.size() / 2), 1);
    }
  }
}

TEST(Reverb, ANewRoomAndTheSwitchDoNotClick) {
  Rooms rooms("[1.A]\nEco1=31,80,80\nEco2=47,-70,60\n[2.B]\nDifusion=50\nEco1=300,90\nEco2=3,99\n");
  Reverb reverb(rooms.Profiles);
  reverb.LoadFromIni(kFile, L"A");
  reverb.SetFeedback(90);
  reverb.SetOutputGain(99);
  reverb.Enable();
  int clicks = 0;
  const double rattle = Rattle(reverb, 150, [&](std::size_t frame) {
    if (frame % 10'240 != 0 || frame == 0) return;
    reverb.LoadFromIni(kFile, ++clicks % 2 == 0 ? L"A" : L"B");
    if (clicks % 3 == 0) reverb.Disable();
    reverb.Enable();
    reverb.SetFeedback(clicks * 10);
    reverb.SetOutputGain(99 - clicks * 9);
  });
  ASSERT_GT(clicks, 5);
  EXPECT_LT(rattle, -85);
}

}  // namespace vantora::test
