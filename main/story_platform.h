// The program's platform for tests and stories: its own home folder, a screen of any size, and a
// sound card that only counts. `World` provides time, windows and input as `clock`, `loop`,
// `background` and `hands`; its constructor gets the resource folder and the cache folder.
// `World::PrintShop` provides `printers`, `images` and `fonts`; its constructor gets the files.
#pragma once

#include "backends/headless/headless_display.h"
#include "backends/headless/headless_inhibitor.h"
#include "backends/headless/headless_input.h"
#include "backends/headless/headless_load.h"
#include "backends/headless/headless_mixer.h"
#include "backends/headless/headless_output.h"
#include "backends/headless/headless_player.h"
#include "backends/headless/headless_system.h"
#include "backends/linux/utf8.h"
#include "backends/samplerate/pitcher.h"
#include "backends/sound/files/wave_file.h"
#include "main/bundle.h"
#include "main/kept_volume.h"
#include "main/machine.h"

#include <cstdlib>
#include <filesystem>

namespace vantora {

// The environment variable with the folder of an emulated drive.
inline constexpr const char* kEmulatedDrive = "VANTORA_EMULATED_DRIVE";
// The environment variable with the folder that stands for the whole machine, for users who could do
// damage there.
inline constexpr const char* kSmallMachine = "VANTORA_SMALL_MACHINE";

// The folders of a story. A story never uses real drives: it has no drives, or an emulated one.
inline LinuxPlaces PlacesOfStory(const std::filesystem::path& home) {
  LinuxPlaces places = PlacesBelow(home);
  if (std::getenv(kEmulatedDrive) != nullptr) places.Optical = OpticalDrives(places.Sys);
  if (const char* whole = std::getenv(kSmallMachine)) places.Whole = whole;
  return places;
}

template <typename World>
struct StoryPlatform : World {
  explicit StoryPlatform(const std::filesystem::path& home,
                         const std::filesystem::path& resourceFolder = ResourceFolder())
      : World(resourceFolder, PlacesOfStory(home).Cache),
        machine(PlacesOfStory(home), resourceFolder, World::loop, World::background, sound),
        mmtools(World::loop, machine.files, machine.edits, machine.profiles,
                {HeadlessPlayers(World::loop, World::clock, card,
                                 [this] { return std::make_unique<WaveFile>(machine.files); }),
                 [this] {
                   return card.Present ? std::vector<Text>{L"Altavoces"} : std::vector<Text>{};
                 },
                 sound, input},
                [] { return std::make_unique<Pitcher>(); }) {
    system.FileVersions = ComponentVersions();
    shop.printers.Setup.Paper = L"A4";
    if constexpr (requires { World::loop.Stage; }) World::loop.Stage = &display;
    if constexpr (requires { World::help; }) {
      system.ShowHelp = [this](const Text& topic) { World::help.Show(ToUtf8(topic)); };
    }
  }

  HeadlessDisplay display;
  HeadlessSystem system;
  HeadlessSoundCard card;
  HeadlessOutput sound{World::loop, World::clock, card};
  HeadlessInput input{World::loop, World::clock,
                      [this] { return std::make_unique<WaveFile>(machine.files); }};
  Machine machine;
  SoundTools mmtools;
  HeadlessLoad load;
  HeadlessInhibitor inhibitor;
  HeadlessMixer mixer;
  HeadlessMixerCard mixerCard{mixer, card};
  OutputVolume volume;
  MixerLines eqpro{mixerCard, volume};
  typename World::PrintShop shop{machine.files};
  KeptVolume keptVolume{volume, machine.settings, World::loop};

  Plattform bundle = BundleOf(*this);
};

}  // namespace vantora
