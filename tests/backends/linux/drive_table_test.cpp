#include "backends/linux/device_registry.h"
#include "backends/linux/linux_drives.h"
#include "backends/linux/utf8.h"
#include "tests/backends/linux/home.h"

#include "platform/drives.h"

#include <random>
namespace vantora::test {

namespace {

const std::vector<OpticalDrive> kTwoDrives{{"/dev/sr0", L"ACME", L"DVD-ram x1", L"1.0", 0},
                                           {"/dev/sr1", L"ACME", L"CD-RW y2", L"2.0", 1}};

std::string MountLine(const std::string& point, const std::string& type, const std::string& source,
                      const std::string& numbers = "8:1") {
  return "36 35 " + numbers + " / " + point + " rw,noatime shared:1 master:2 - " + type + " " +
         source + " rw\n";
}

Text Letters(const DriveTable& table) {
  Text letters;
  for (const DriveEntry& entry : table.Entries()) letters += entry.Letter;
  return letters;
}

}  // namespace

TEST(DriveTable, OpticalDrivesComeBeforeTheImageDriveAndMountsBehindIt) {
  TempFolder home;
  LinuxPlaces places = PlacesBelow(home());
  places.Optical = kTwoDrives;
  places.MountTable = [] {
    return MountLine("/", "ext4", "/dev/sda1") + MountLine("/media/disc", "iso9660", "/dev/sr1") +
           MountLine("/media/stick", "vfat", "/dev/sdb1");
  };
  const DriveTable table(places);
  LinuxDrives drives(table);
  EXPECT_EQ(drives.GetLogicalDrives(), L"CDEFGZ");
  EXPECT_EQ(table.ImageLetter(), L'F');
  const std::vector<std::pair<Text, int>> types{
      {L"C:\\", 3}, {L"d:\\", 5}, {L"F:\\", 5}, {L"G:\\", 3}, {L"Z:\\", 3}, {L"H:\\", 1}, {L"", 1}};
  for (const auto& [root, type] : types) EXPECT_EQ(drives.GetDriveType(root), type);
  EXPECT_EQ(table.SystemPath(L"E:\\Track1"), "/media/disc/Track1");
  EXPECT_EQ(table.SystemPath(L"F:\\a.cue"), home() / "Vantora/Bandeja/a.cue");
  EXPECT_EQ(ErrorOf([&] { table.SystemPath(L"D:\\"); }), 76);  // there is no disc in it
  EXPECT_EQ(ErrorOf([&] { table.SystemPath(L"H:\\a.wav"); }), 76);
}

TEST(DriveTable, MountsThatAUserWouldNotCallADiskGetNoLetter) {
  TempFolder sys;
  Put(sys() / "devices/usb/sdb/removable", "1\n");
  fs::create_directories(sys() / "devices/usb/sdb/sdb1");
  fs::create_directories(sys() / "dev/block");
  fs::create_directory_symlink(sys() / "devices/usb/sdb/sdb1", sys() / "dev/block/8:17");
  LinuxPlaces places = PlacesBelow("/home/ana");
  places.Sys = sys();
  const struct {
    std::string Line;
    int Type;  // 0: it gets no letter
    Text Network;
  } cases[] = {
      {MountLine("/", "ext4", "/dev/sda1"), 0, L""},
      {MountLine("/home/ana", "ext4", "/dev/sda3"), 0, L""},
      {MountLine("/boot/efi", "vfat", "/dev/sda4"), 0, L""},
      {MountLine("/proc", "proc", "proc"), 0, L""},
      {MountLine("/media/ram", "tmpfs", "tmpfs"), 0, L""},
      {MountLine("/run/credentials", "ext4", "/dev/sda9"), 0, L""},
      {MountLine("/run/media/ana/MUSIC", "vfat", "/dev/sdb1", "8:17"), kDriveRemovable, L""},
      {MountLine("/mnt/nas", "nfs4", "nas:/export/music"), kDriveNetwork,
       L"\\\\nas\\export\\music"},
      {MountLine("/mnt/win", "cifs", "//box/share/"), kDriveNetwork, L"\\\\box\\share"},
      {MountLine("/home/ana/far", "fuse.sshfs", "ana@far:/srv/a"), kDriveNetwork,
       L"\\\\far\\srv\\a"},
      {"no mount table at all - \n", 0, L""},
      {"36 35 8:1 / /mnt/cut rw", 0, L""},
  };
  for (const auto& each : cases) {
    places.MountTable = [&] { return each.Line; };
    const DriveTable table(places);
    const std::optional<DriveEntry> entry = table.Entry(L'E');
    EXPECT_EQ(entry ? entry->Type : 0, each.Type) << each.Line;
    EXPECT_EQ(LinuxDrives(table).NetworkPath(L'e'),
              each.Network.empty() ? L"Drive Letter Not Found" : each.Network);
  }
}

TEST(DriveTable, ALetterOnceGivenStaysWhenDisksComeAndGo) {
  TempFolder home;
  std::string mounts = MountLine("/media/one\\040stick", "vfat", "/dev/sdb1");
  LinuxPlaces places = PlacesBelow(home());
  places.MountTable = [&] { return mounts; };
  const DriveTable table(places);
  EXPECT_EQ(table.SystemPath(L"E:\\a"), "/media/one stick/a");
  mounts = MountLine("/media/two", "vfat", "/dev/sdc1") + MountLine("/mnt/n", "nfs", "nas:/m");
  EXPECT_EQ(Letters(table), L"CDFGZ");
  EXPECT_EQ(ErrorOf([&] { table.SystemPath(L"E:\\a"); }), 76);
  EXPECT_EQ(table.SystemPath(L"\\\\NAS\\M\\x.wav"), "/mnt/n/x.wav");
  EXPECT_EQ(ErrorOf([&] { table.SystemPath(L"\\\\nas\\music\\x.wav"); }), 76);
  mounts += MountLine("/media/again", "vfat", "/dev/sdb1");
  EXPECT_EQ(table.SystemPath(L"E:\\a"), "/media/again/a");
}

TEST(DriveTable, NamesMatchExactlyFirstThenWithoutCase) {
  Home home;
  Put(home / "Música/ÁRBOL.wav", "1");
  Put(home / "Música/b.wav", "2");
  Put(home / "Música/B.WAV", "3");
  const auto path = [&](const Text& text) { return home.Table.SystemPath(text); };
  EXPECT_EQ(path(L"C:\\Música\\b.wav"), home / "Música/b.wav");
  EXPECT_EQ(path(L"c:\\MÚSICA\\B.WAV"), home / "Música/B.WAV");
  EXPECT_EQ(path(L"C:\\música\\B.wav"), home / "Música/B.WAV");  // first in byte order
  EXPECT_EQ(path(L"C:\\música\\árbol.WAV"), home / "Música/ÁRBOL.wav");
  EXPECT_EQ(path(L"C:\\MÚSICA\\New Folder\\N.wav"), home / "Música/New Folder/N.wav");
  EXPECT_EQ(path(L"C:/música/b.wav/"), home / "Música/b.wav");
}

TEST(DriveTable, TheProgramsFoldersHaveTheirOwnNames) {
  Home home;
  const std::vector<std::pair<Text, fs::path>> cases{
      {L"C:\\WINDOWS\\qmaudio.ini", home / ".local/share/vantora/qmaudio.ini"},
      {L"c:\\windows\\temp\\Undo2.dat", home / ".cache/vantora/Undo2.dat"},
      {L"C:\\Windows", home / ".local/share/vantora"},
      {L"C:\\Windows2\\a", home / "Windows2/a"},
      {L"C:", home.Folder()},
      {L"C:\\Vantora\\Wavs", home / "Vantora/Wavs"},
      {L"protocol.log", home / "Vantora/protocol.log"},
      {L"\\music", home / "music"},
      {L"C:\\..\\..\\etc\\.\\passwd", home / "etc/passwd"},  // paths cannot leave a drive
      {Text(L"C:\\a\0b.wav", 11), home / "a"},
      {L"Z:\\usr\\include", "/usr/include"}};
  for (const auto& [text, path] : cases) EXPECT_EQ(home.Table.SystemPath(text), path);
  EXPECT_EQ(home.Files.Folders(L"c:\\"), (std::vector<Text>{L"Vantora", L"WINDOWS"}));
  EXPECT_EQ(home.Files.Folders(L"C:\\Windows\\"), (std::vector<Text>{L"TEMP"}));
}

TEST(DriveTable, EveryFileIsFoundAgainUnderItsProductPath) {
  Home home;
  std::mt19937 random(7);
  const std::string letters = "aAbB. ~%ñ\xFF\xC3";
  std::vector<fs::path> files;
  for (int i = 0; i < 300; ++i) {
    fs::path path = random() % 8 == 0 ? home / ".cache/vantora" : home.Folder();
    for (auto depth = random() % 3; depth > 0; --depth) {
      path /= "d" + std::to_string(random() % 4) + (random() % 2 == 0 ? "X" : "x");
    }
    std::string name = "f";
    for (auto n = random() % 6; n > 0; --n) name += letters[random() % letters.size()];
    Put(path / name, "x");
    files.push_back(path / name);
  }
  for (const fs::path& file : files) {
    const Text product = home.Table.ProductPath(file);
    EXPECT_TRUE(product.starts_with(L"C:\\"));
    EXPECT_EQ(home.Table.SystemPath(product), file);
  }
  EXPECT_EQ(home.Table.ProductPath("/usr/include/stdio.h"), L"Z:\\usr\\include\\stdio.h");
  EXPECT_EQ(home.Table.ProductPath(home.Folder().string() + "/"), L"C:\\");
  EXPECT_EQ(home.Table.ProductPath(home / "Vantora/Bandeja/a.cue"), L"D:\\a.cue");
  EXPECT_EQ(home.Table.ProductPath("a.cue"), L"");
}

TEST(DeviceRegistry, AProductAndItsTargetLeadToTheLetter) {
  LinuxPlaces places = PlacesBelow("/home/ana");
  places.Optical = kTwoDrives;
  places.Optical.push_back({"/dev/sr2", L"OTHER", L"CD-RW y2", L"2.0", 2});  // another maker
  places.Optical.push_back({"/dev/sr3", L"ACME", L"CD-RW", L"2.0", 3});      // part of a name above
  const DriveTable table(places);
  DeviceRegistry registry(table);
  const auto search = [&](const Text& product, const Text& target) {
    for (const Text& device : registry.SubKeys(L"ENUM\\SCSI")) {
      if (device.find(product) == Text::npos) continue;
      for (const Text& drive : registry.SubKeys(L"ENUM\\SCSI\\" + device)) {
        const Text key = L"Enum\\Scsi\\" + device + L"\\" + drive;
        if (registry.Value(key, L"SCSITargetID") == target &&
            registry.Value(key, L"SCSILUN") == L"0") {
          return registry.Value(key, L"CurrentDriveLetterAssignment");
        }
      }
      break;  // the program uses the first name that matches
    }
    return Text();
  };
  EXPECT_EQ(search(L"DVD-RAM X1", L"0"), L"D");
  EXPECT_EQ(search(L"CD-RW Y2", L"1"), L"E");
  EXPECT_EQ(search(L"CD-RW Y2", L"2"), L"F");
  EXPECT_EQ(search(L"CD-RW", L"3"), L"G");
  EXPECT_EQ(search(L"VANTORA IMAGE", L"7"), L"H");
  EXPECT_EQ(search(L"VANTORA IMAGE", L"6"), L"");
}

TEST(LinuxPlaces, TheKernelsOpticalDrivesAreReadWithTheirNames) {
  TempFolder sys;
  for (const char* name : {"sr1", "sr0", "sda", "srx", "loop0"}) {
    Put(sys() / "class/block" / name / "device/vendor", "HL-DT-ST\n");
    Put(sys() / "class/block" / name / "device/model", std::string(name) + " DVDRAM  \n");
  }
  const std::vector<OpticalDrive> drives = OpticalDrives(sys());
  ASSERT_EQ(drives.size(), 2U);
  EXPECT_EQ(drives[0].Device, "/dev/sr0");
  EXPECT_EQ(drives[1].Product, L"sr1 DVDRAM");
  EXPECT_EQ(drives[1].Target, 1);
  EXPECT_EQ(drives[1].Revision, L"");
}

TEST(Utf8, BrokenBytesSurviveTheWayThroughText) {
  std::mt19937 random(3);
  for (int i = 0; i < 2000; ++i) {
    std::string bytes;
    for (auto n = random() % 12; n > 0; --n) {
      bytes +=
          static_cast<char>(random() % 2 == 0 ? random() : "\xC3\xB1\xE2\x82\xF0"[random() % 5]);
    }
    EXPECT_EQ(ToUtf8(FromUtf8(bytes)), bytes);
  }
  EXPECT_EQ(FromUtf8("ñ€\U0001F4BF"), L"ñ€\U0001F4BF");
  EXPECT_EQ(FromUtf8("\xED\xA0\x80").size(), 3U);  // a surrogate is not a valid character
  EXPECT_EQ(LowerCase(L"ÁÑÜ ŽΩ"), L"áñü žω");
}

}  // namespace vantora::test
