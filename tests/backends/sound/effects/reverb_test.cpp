#include "backends/sound/effects/reverb.h"

#include "backends/linux/profile_file.h"
#include "backends/linux/utf8.h"
#include "backends/linux/windows1252.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/chain_sounds.h"

#include <array>
#include <cstdio>
#include <deque>
#include <utility>

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

// A reference implementation of the eight echoes, frame by frame and without blocks or vectors.
struct Model {
  std::array<TMMEcho, 8> Echoes;
  double Diffusion = 0, Feedback = 0, Level = 0;

  Sound operator()(const Sound& sound) const {
    constexpr std::array<double, 8> kBetweenEars{9.1, 11.9, 7.3, 13.7, 10.3, 15.1, 8.5, 12.7};
    std::array<std::deque<double>, 8> lines;  // newest frame first
    std::array<double, 8> repeats;
    std::array<std::size_t, 8> apart, delays;
    std::array<double, 2> lastIn{}, lastOut{};
    const double c = std::cos(Diffusion * std::numbers::pi / 400);
    const double s = std::sin(Diffusion * std::numbers::pi / 400);
    double kept = 0;
    for (std::size_t i = 0; i < 8; ++i) {
      const double late = static_cast<double>(std::lrint(Echoes[i].Delay * 44.1));
      const long between = std::lrint(std::min(kBetweenEars[i] * 44.1, late * 0.7));
      delays[i] = static_cast<std::size_t>(late);
      apart[i] = static_cast<std::size_t>(between);
      lines[i].resize(delays[i] + apart[i] + 1);
      const double share = Echoes[i].Feedback / 100;
      repeats[i] = std::copysign(std::pow(std::abs(share), 0.4 / std::abs(Feedback)), share);
      if (Feedback < 0) repeats[i] = -repeats[i];
      kept += repeats[i] * repeats[i] / 8;
    }
    Sound out = sound;
    for (std::size_t n = 0; n < sound.size(); n += 2) {
      std::array<double, 8> again;
      std::array<double, 2> wet{};
      for (std::size_t ear = 0; ear < 2; ++ear) {
        lastOut[ear] = sound[n + ear] - lastIn[ear] + 0.9972 * lastOut[ear];
        lastIn[ear] = sound[n + ear];
      }
      for (std::size_t i = 0; i < 8; ++i) {
        const auto& line = lines[i];
        const std::size_t late = delays[i] - 1;
        const double dull = Echoes[i].Damping / 400;
        const double heard = (1 - 2 * dull) * line[late] + dull * (line[late - 1] + line[late + 1]);
        const double place = (Echoes[i].Pan + 100) * std::numbers::pi / 400;
        const double left = Echoes[i].Gain / 100 * std::cos(place);
        const double right = Echoes[i].Gain / 100 * std::sin(place);
        const double later = line[late + apart[i]];
        wet[0] += left * (Echoes[i].Pan <= 0 ? heard : later);
        wet[1] += right * (Echoes[i].Pan <= 0 ? later : heard);
        again[i] = repeats[i] * heard;
      }
      for (std::size_t step = 1; step < 8; step *= 2) {
        for (std::size_t i = 0; i < 8; ++i) {
          if ((i & step) != 0) continue;
          const double a = again[i], b = again[i + step];
          again[i] = c * a + s * b;
          again[i + step] = c * b - s * a;
        }
      }
      for (std::size_t i = 0; i < 8; ++i) {
        const double place = (Echoes[i].Pan + 100) * std::numbers::pi / 400;
        const double in = std::cos(place) * lastOut[0] + std::sin(place) * lastOut[1];
        lines[i].push_front(std::sqrt(1 - kept) * in + again[i]);
        lines[i].pop_back();
      }
      for (std::size_t ear = 0; ear < 2; ++ear) {
        out[n + ear] = Sample(sound[n + ear] + Level * wet[ear]);
      }
    }
    return out;
  }
};

}  // namespace

TEST(Reverb, ItSoundsAsEightEchoesThatFeedEachOther) {
  std::mt19937 random(4);
  const auto number = [&](int least, int most) {
    return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
  };
  for (int round = 0; round < 6; ++round) {
    SCOPED_TRACE(round);
    Model model;
    model.Diffusion = number(0, 3) * 33;
    std::string content = "[07.La sala]\nDifusion=" + std::to_string(int(model.Diffusion)) + "\n";
    for (std::size_t i = 0; i < 8; ++i) {
      TMMEcho& echo = model.Echoes[i];
      echo = {number(20, round < 3 ? 300 : 3000) / 10.0, double(number(-60, 60)),
              double(number(-99, 99)), double(number(0, 100)), double(number(-100, 100))};
      std::array<char, 80> line;
      std::snprintf(line.data(), line.size(), "Eco%zu = %.1f, %.0f,%.0f ,%.0f,%.0f\n", i + 1,
                    echo.Delay, echo.Gain, echo.Feedback, echo.Damping, echo.Pan);
      content += line.data();
    }
    const int feedback = number(-99, 99), level = number(1, 99);
    model.Feedback = feedback / 100.0;
    model.Level = level / 100.0;
    Rooms rooms(content);
    Reverb reverb(rooms.Profiles);
    reverb.LoadFromIni(kFile, round % 2 == 0 ? L"La sala" : L"07.La sala");
    reverb.LoadFromIni(kFile, L"Otra");
    reverb.SetFeedback(feedback);
    reverb.SetOutputGain(level);
    reverb.Enable();
    const Sound hiss = Hiss(3000, 20'011), expected = model(hiss), out = Through(reverb, hiss);
    int worst = 0;
    for (std::size_t i = 0; i < out.size(); ++i) {
      worst = std::max(worst, std::abs(out[i] - expected[i]));
    }
    EXPECT_LE(worst, 1);
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
    Mono = Decibel(std::sqrt((one + other + 2 * both) / (one + other)));
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
  constexpr std::size_t kFrames = 90'112;
  int clicks = 0;
  const Sound out = Through(reverb, Sine(150, 4000, kFrames), [&](std::size_t frame) {
    if (frame % 10'240 != 0 || frame == 0) return;
    reverb.LoadFromIni(kFile, ++clicks % 2 == 0 ? L"A" : L"B");
    if (clicks % 3 == 0) reverb.Disable();
    reverb.Enable();
    reverb.SetFeedback(clicks * 10);
    reverb.SetOutputGain(99 - clicks * 9);
  });
  ASSERT_GT(clicks, 5);
  for (const double far : {4000.0, 7001.0, 11'003.0}) {
    EXPECT_LT(Decibel(Amplitude(out, far, 0, kFrames) / 4000), -85) << far;
  }
}

}  // namespace vantora::test
