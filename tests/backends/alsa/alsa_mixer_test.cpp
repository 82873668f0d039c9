// Tests the mixer with a sound server whose volumes are also changed by other programs. The
// server's control has the elements Master and Capture, and none for the sound of this program.
#include "backends/alsa/alsa_mixer.h"

#include "backends/alsa/alsa_stream.h"
#include "mixer/frmMixer.h"
#include "tests/backends/alsa/listener.h"
#include "tests/support/buehne.h"

#include <array>
#include <cstdio>

namespace vantora::test {

namespace {

// The output of a command.
std::string Says(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string all;
  std::array<char, 256> part{};
  while (fgets(part.data(), part.size(), pipe.get()) != nullptr) all += part.data();
  return all;
}

class Server : public testing::Test {
 protected:
  Server() {
    Says("pactl set-sink-volume test 65536; pactl set-sink-mute test 0");
    Says("pactl set-source-volume test.monitor 65536; pactl set-source-mute test.monitor 0");
  }
  template <typename Look>
  static bool Soon(Look look) {
    for (const double end = Now() + 0.5; Now() < end;) {
      if (look()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return look();
  }
  static bool Heard(const char* what, const std::string& value) {
    return Soon([&] { return Says("pactl get-" + std::string(what)).find(value) != value.npos; });
  }

  AlsaMixer card{"default"};
  OutputVolume own;
  MixerLines lines{card, own};
};

}  // namespace

TEST_F(Server, WhatOthersTurnShowsInTheWindowAndTheWindowTurnsTheServer) {
  Buehne b([&](HeadlessPlatform& p) { return With(p.bundle, lines); });
  frmMixer& mixer = b.prog.frmMixer();
  const auto shows = [&](Fader& fader, int value, int mute) {
    return Soon([&] {
      mixer.Form_Activate();
      return fader.Value() == value && fader.Mute() == mute;
    });
  };
  EXPECT_TRUE(shows(mixer.faderMasterOut, 100, 0));
  EXPECT_TRUE(shows(mixer.Fader(5), 100, 1)) << "an input that is on is selected";
  Says("pactl set-sink-volume test 19661; pactl set-sink-mute test 1");
  Says("pactl set-source-volume test.monitor 6554; pactl set-source-mute test.monitor 1");
  EXPECT_TRUE(shows(mixer.faderMasterOut, 30, 1));
  EXPECT_TRUE(shows(mixer.Fader(5), 10, 0));

  mixer.faderMasterOut.Mute = 0;
  mixer.faderMasterOut.Value = 80;
  EXPECT_TRUE(Heard("sink-volume test", " 52429 "));
  EXPECT_TRUE(Heard("sink-mute test", ": no"));
  mixer.Fader(5).Mute = 1;
  mixer.Fader(5).Value = 25;
  EXPECT_TRUE(Heard("source-volume test.monitor", " 16384 "));
  EXPECT_TRUE(Heard("source-mute test.monitor", ": no"));
}

namespace {

// The loudest sample that the default input records within `ms` milliseconds.
int Loudest(int ms) {
  snd_pcm_t* pcm = nullptr;
  if (snd_pcm_open(&pcm, "default", SND_PCM_STREAM_CAPTURE, 0) < 0) return -1;
  snd_pcm_set_params(pcm, SND_PCM_FORMAT_S16_LE, SND_PCM_ACCESS_RW_INTERLEAVED, 2, 44100, 1, 50000);
  std::vector<std::int16_t> sound(static_cast<std::size_t>(ms) * 44100 / 1000 * 2);
  const auto frames = snd_pcm_readi(pcm, sound.data(), sound.size() / 2);
  snd_pcm_close(pcm);
  int loudest = 0;
  for (std::size_t i = 0; frames > 0 && i < static_cast<std::size_t>(frames) * 2; ++i) {
    loudest = std::max(loudest, std::abs(static_cast<int>(sound[i])));
  }
  return loudest;
}

}  // namespace

TEST_F(Server, TheProgramsOwnVolumeIsOnEveryWayToTheCard) {
  HeadlessClock clock;
  HeadlessLoop loop{clock};
  Home home;
  AlsaSoundOutput output{loop, own};
  AlsaPlayer player{home.Files, loop, own};
  const auto m = lines.NewMixer();
  m->Init();
  m->SetLineID(m->LineOutID(1));
  Put(home / "a.wav", Wave(Steps(std::vector<int>(60, 16000))));
  player.SetFileName(L"C:\\a.wav");
  for (const bool byPlayer : {true, false}) {
    m->SetVolume(kFullVolume);
    m->SetMute(false);
    std::unique_ptr<SoundStream> stream;
    if (byPlayer) {
      player.Start();
    } else {
      stream = output.Play(
          [](std::int16_t* target, std::size_t frames) {
            std::fill_n(target, frames * 2, std::int16_t{16000});
            return frames;
          },
          {}, kSoundAheadMs);
    }
    EXPECT_EQ(Loudest(400), 16000) << byPlayer;
    m->SetVolume(kFullVolume / 2);
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    EXPECT_EQ(Loudest(200), 2000) << byPlayer;
    m->SetMute(true);
    std::this_thread::sleep_for(std::chrono::milliseconds(600));
    EXPECT_EQ(Loudest(200), 0) << byPlayer;
    player.Stop();
  }
}

// This test ends the server, so it must run alone.
namespace {

class GoneServer : public Server {};

}  // namespace

TEST_F(GoneServer, AServerThatGoesLeavesAWindowThatWorks) {
  Buehne b([&](HeadlessPlatform& p) { return With(p.bundle, lines); });
  frmMixer& mixer = b.prog.frmMixer();
  EXPECT_EQ(mixer.faderMasterOut.Value(), 100);
  Says("pactl exit");
  EXPECT_TRUE(Soon([&] {
    mixer.Form_Activate();
    return mixer.faderMasterOut.Value() == 0;
  }));
  mixer.faderMasterOut.Value = 50;
  mixer.Fader(5).Value = 50;
  mixer.Fader(1).Value = 50;
  EXPECT_EQ(own.Volume(), 32768);
  EXPECT_FALSE(mixer.MixerLiest);
}

}  // namespace vantora::test
