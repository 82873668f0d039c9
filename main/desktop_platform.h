// The program's platform on the desktop: real windows, the sound card, and the user's home folder.
#pragma once

#include "backends/alsa/alsa_devices.h"
#include "backends/alsa/alsa_input.h"
#include "backends/alsa/alsa_mixer.h"
#include "backends/alsa/alsa_player.h"
#include "backends/alsa/alsa_stream.h"
#include "backends/linux/linux_clock.h"
#include "backends/linux/linux_system.h"
#include "backends/linux/processor_load.h"
#include "backends/linux/thread_background.h"
#include "backends/qt/desktop/qt_display.h"
#include "backends/qt/desktop/qt_inhibitor.h"
#include "backends/qt/help/help_viewer.h"
#include "backends/qt/loop/qt_event_loop.h"
#include "backends/qt/print/qt_print_shop.h"
#include "backends/samplerate/pitcher.h"
#include "main/bundle.h"
#include "main/help_words.h"
#include "main/kept_volume.h"
#include "main/machine.h"

namespace vantora {

struct DesktopPlatform {
  explicit DesktopPlatform(const std::filesystem::path& resourceFolder)
      : places(PlacesOfUser()),
        loop(resourceFolder / "pictures", places.Cache / kDrawnPictures),
        system(places,
               {ProgramVersion(), resourceFolder / "help", "xdg-open", ComponentVersions()}),
        machine(places, resourceFolder, loop, background, sound),
        mmtools(loop, machine.files, machine.edits, machine.profiles,
                {[this] { return std::make_unique<AlsaPlayer>(machine.files, loop, volume); },
                 AlsaPlaybackDevices, sound, input},
                [] { return std::make_unique<Pitcher>(); }) {
    SilenceAlsaMessages();
    system.ShowHelpWith(background, loop,
                        [this](const std::filesystem::path& page) { help.Show(page); });
  }

  LinuxPlaces places;
  QtEventLoop loop;
  LinuxClock clock;
  QtDisplay display;
  ThreadBackground background;
  LinuxSystem system;
  OutputVolume volume;
  AlsaSoundOutput sound{loop, volume};
  AlsaSoundInput input{loop, clock};
  Machine machine;
  SoundTools mmtools;
  ProcessorLoad load;
  QtInhibitor inhibitor;
  AlsaMixer mixerCard;
  MixerLines eqpro{mixerCard, volume};
  QtPrintShop<SystemQueues> shop{machine.files};
  KeptVolume keptVolume{volume, machine.settings, loop};
  HelpViewer help{machine.resources.Folder() / "help",
                  [this] { return WordsOfHelp(machine.resources); },
                  [this](const Text& address) { system.OpenLink(address); }};
  ToolkitWords menus{[this] { return WordsOfMenus(machine.resources); }};

  Plattform bundle = BundleOf(*this);
};

}  // namespace vantora
