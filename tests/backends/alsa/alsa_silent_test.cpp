#include "backends/alsa/alsa_devices.h"
#include "backends/alsa/alsa_input.h"
#include "backends/alsa/alsa_mixer.h"
#include "backends/alsa/alsa_stream.h"
#include "backends/linux/profile_file.h"
#include "backends/sound/edits/wave_edits.h"
#include "backends/sound/sound_tools.h"
#include "tests/backends/alsa/listener.h"

namespace vantora::test {

namespace {

class NoCard : public Listener {
 protected:
  // Sets a configuration without card and server. The library reads it at its first use.
  NoCard() {
    static const TempFolder folder;
    Put(folder() / "alsa.conf", "pcm.nothing { type null }\n");
    ::setenv("ALSA_CONFIG_PATH", (folder() / "alsa.conf").c_str(), 1);
  }
};

}  // namespace

TEST_F(NoCard, ThereIsNoOutputAndStartingIsRefusedWithoutAnEvent) {
  AlsaSoundOutput sound(loop, volume);
  ProfileFiles profiles(home.Table);
  AlsaSoundInput input(loop, clock);
  WaveEdits edits(home.Files, {});
  SoundTools tools(loop, home.Files, edits, profiles,
                   {[] { return nullptr; }, [] { return AlsaPlaybackDevices(); }, sound, input},
                   [] { return nullptr; });
  EXPECT_EQ(ErrorOf([&] { tools.NewWaveIn()->Open(); }), kFehlerEinAusgabe);
  EXPECT_EQ(tools.waveOutGetNumDevs(), 0);
  EXPECT_EQ(tools.waveOutGetDevCaps(0), L"");
  Wave(Steps({1000}));
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(ErrorOf([&] { player.Start(); }), kFehlerEinAusgabe);
    EXPECT_FALSE(player.Playing());
    EXPECT_EQ(player.Position(), 0);
    player.Stop();
  }
  Run(0.1);
  EXPECT_EQ(Log, "");
}

TEST_F(NoCard, TheMixerHasNoLinesAndTakesWhatIsSetWithoutAWord) {
  AlsaMixer card;
  OutputVolume own;
  MixerLines lines(card, own);
  const auto m = lines.NewMixer();
  m->Init();
  EXPECT_EQ(m->MixerCount() + m->LineOutCount() + m->LineInCount(), 0);
  m->SetLineID(kMasterLine);
  m->SetVolume(1000);
  EXPECT_EQ(m->Volume(), 0);
}

}  // namespace vantora::test
