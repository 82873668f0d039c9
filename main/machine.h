// The services that the program needs with a screen and without: files, drives, settings,
// resources, codecs and disc writers, in the folders of one user.
#pragma once

#include "backends/burn/drive_writer.h"
#include "backends/cdio/disc_drives.h"
#include "backends/cdio/disc_player.h"
#include "backends/cdio/disc_reader.h"
#include "backends/discimage/image_writer.h"
#include "backends/linux/device_registry.h"
#include "backends/linux/drive_table.h"
#include "backends/linux/file_resources.h"
#include "backends/linux/linux_drives.h"
#include "backends/linux/linux_files.h"
#include "backends/linux/linux_sockets.h"
#include "backends/linux/profile_file.h"
#include "backends/linux/settings_file.h"
#include "backends/mpg123/mp3_decoder.h"
#include "backends/sound/audio_library.h"
#include "backends/sound/edits/cutter.h"
#include "backends/sound/edits/wave_edits.h"
#include "backends/sound/sound_tools.h"
#include "klang/rampe.h"
#include "main/disc_identity.h"
#include "main/disc_writers.h"

#include "platform/plattform.h"
#include "platform/sound_output.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantora {

// The optical drives by their letters, then the embedded drive, with the names that the device
// registry has for them.
std::vector<DiscDrive> DrivesForDiscs(const DriveTable& table, Registry& registry);

// The optical drives as writers; the embedded drive has its own writer.
std::vector<BurnDevice> DrivesForWriting(const DriveTable& table);

// Opens a disc that was just written, so that its tracks can be compared. Returns nothing when the
// drive has no such disc.
std::optional<BurntDisc> OpenWritten(const std::string& device);

struct Machine {
  Machine(const LinuxPlaces& places, const std::filesystem::path& resourceFolder, EventLoop& loop,
          Background& background, SoundOutput& sound)
      : drives(places),
        files(drives),
        letters(drives),
        settings(places.Config / "settings.conf"),
        profiles(drives),
        registry(drives),
        resources(resourceFolder),
        edits(files, Rampe),
        cutter(files, edits),
        mp3(files, loop, background),
        burner(
            files, loop, background, [this] { return DrivesForWriting(drives); }, OpenWritten),
        writer(files, loop, background),
        writers({&burner, &writer}),
        discDrives(files, [this] { return DrivesForDiscs(drives, registry); }),
        acd(files, loop, background, discDrives),
        cd(loop, discDrives, sound),
        mci(files, writer, discDrives, cd) {}

  DriveTable drives;
  LinuxFiles files;
  LinuxDrives letters;
  SettingsFile settings;
  ProfileFiles profiles;
  DeviceRegistry registry;
  FileResources resources;
  LinuxSockets sockets;
  WaveEdits edits;
  Cutter cutter;
  AudioLibrary audiolib;
  Mp3Decoder mp3;
  DriveWriter burner;
  ImageWriter writer;
  DiscWriters writers;  // both writers as one
  DiscDrives discDrives;
  DiscReader acd;
  DiscPlayer cd;
  DiscIdentity mci;
};

// File in the cache folder with the pictures that earlier runs have drawn.
inline constexpr const char* kDrawnPictures = "pictures.cache";

// The folder with strings.tsv, layouts and pictures: beside a program in its build folder, under
// share/ of an installed one. Blank when the folder does not exist.
std::filesystem::path ResourceFolder();

// The version of the project, such as "1.0.0".
Text ProgramVersion();

// The versions of the parts that access discs, under the names of the drivers that they stand for:
// the library that writes discs, the library that reads them, and the embedded writer, which has
// the version of the program.
std::map<Text, Text> ComponentVersions();

}  // namespace vantora
