#include "backends/sound/effects/reverb.h"

#include <gtest/gtest.h>

#include "backends/linux/profile_file.h"
#include "backends/linux/utf8.h"
#include "backends/linux/windows1252.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/chain_sounds.h"

#include <array>
#include <cstdio>
#include <deque>

namespace vantora::test {

namespace {

const Text kFile = L"C:\\Reverb.ini";

struct Rooms : Home {
  ProfileFiles Profiles{Table};
  explicit Rooms(const std::string& content) { Put(*this / "Reverb.ini", content); }
};

// A reference implementation of the eight echoes, frame by frame and without blocks or vectors.
struct Model {
  std::array<TMMEcho, 8> Echoes;
  double Diffusion = 0, Feedback = 0, Level = 0;

  Sound operator()(const Sound& sound) const {
    std::array<std::deque<double>, 8> lines;  // newest frame first
    std::array<double, 2> lastIn{}, lastOut{};
    const double c = std::cos(Diffusion * std::numbers::pi / 400);
    const double s = std::sin(Diffusion * std::numbers::pi / 400);
    for (std::size_t i = 0; i < 8; ++i) {
      lines[i].resize(static_cast<std::size_t>(std::lrint(Echoes[i].Delay * 44.1)) + 1);
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
        const std::size_t late = line.size() - 2;
        const double dull = Echoes[i].Damping / 400;
        const double heard = (1 - 2 * dull) * line[late] + dull * (line[late - 1] + line[late + 1]);
        const double place = (Echoes[i].Pan + 100) * std::numbers::pi / 400;
        wet[0] += Echoes[i].Gain / 100 * std::cos(place) * heard;
        wet[1] += Echoes[i].Gain / 100 * std::sin(place) * heard;
        again[i] = Echoes[i].Feedback / 100 * Feedback * heard;
      }
      for (std::size_t apart = 1; apart < 8; apart *= 2) {
        for (std::size_t i = 0; i < 8; ++i) {
          if ((i & apart) != 0) continue;
          const double a = again[i], b = again[i + apart];
          again[i] = c * a + s * b;
          again[i + apart] = c * b - s * a;
        }
      }
      for (std::size_t i = 0; i < 8; ++i) {
        const double place = (Echoes[i].Pan + 100) * std::numbers::pi / 400;
        lines[i].push_front(std::cos(place) * lastOut[0] + std::sin(place) * lastOut[1] + again[i]);
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

TEST(Reverb, EveryRoomOfTheProgramDiesAwayAfterTheLoudestSoundAtFullFeedback) {
  const std::string file = Get(fs::path(VANTORA_SOURCE_DIR) / "resources/Reverb.ini");
  Rooms rooms(ToWindows1252(FromUtf8(file)));
  const auto names = rooms.Profiles.GetPrivateProfileSectionNames(kFile, 32'000);
  EXPECT_GE(names.size(), 10U);
  for (const Text& name : names) {
    SCOPED_TRACE(ToWindows1252(name));
    EXPECT_EQ(name.find(L'.'), 2U);
    for (const int feedback : {-99, 99}) {
      Reverb reverb(rooms.Profiles);
      reverb.LoadFromIni(kFile, name.substr(3));
      reverb.SetFeedback(feedback);
      reverb.SetOutputGain(99);
      reverb.Enable();
      Sound sound = Hiss(8000, 132'300);
      for (std::int16_t& sample : sound) sample = Sample(sample + 12'000.0);  // large offset
      const std::size_t end = sound.size() / 2;
      sound.resize(sound.size() + std::size_t{2} * 20 * 44'100);
      const Sound out = Through(reverb, sound);
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
