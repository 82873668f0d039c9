// Reads discs in the emulated drive with libcdio, its paranoia reader and the back end above them.
#include "backends/cdio/drive_disc.h"
#include "tests/backends/cdio/tray.h"
#include "tests/emulators/drive/drive_home.h"

namespace vantora::test {

namespace {

class InTheEmulatedDrive : public Tray {
 protected:
  InTheEmulatedDrive() {
    Machine[0].Device = "/dev/sr0";
    Machine[0].Product = L"CD-RW 48X16X48";
  }

  static std::string Sound(int sectors) {
    return Noise(static_cast<std::size_t>(sectors) * kSector);
  }

  DriveHome drive;
};

}  // namespace

TEST_F(InTheEmulatedDrive, ADiscLaidInByHandIsReadWithItsDataTrack) {
  const std::string image = Sound(900);
  Put(drive.Folder() / "disc/image.bin", image);
  Put(drive.Folder() / "disc/toc", "state closed track 0 audio track 400 data leadout 900\n");
  const auto disc = drives.Open(Machine[0]);
  ASSERT_TRUE(disc);
  EXPECT_TRUE(disc->Toc().Track(1).Audio);
  EXPECT_FALSE(disc->Toc().Track(2).Audio);
  EXPECT_EQ(disc->Toc().LeadOut, 900);
  for (const bool carefully : {false, true}) {
    EXPECT_TRUE(Read(*disc, 40, 400, carefully) == Part(image, 40, 400)) << carefully;
  }
  EXPECT_EQ(Read(*disc, 395, 405).size(), 10 * kSector);
  EXPECT_EQ(Read(*disc, 400, 401), "") << "no sound";
}

TEST_F(InTheEmulatedDrive, ATrackIsGrabbedAtTheDrivesOffsetAndWithoutPreemphasis) {
  const std::string image = Sound(900);
  Put(drive.Folder() / "disc/image.bin", image);
  Put(drive.Folder() / "disc/toc",
      "state closed track 0 audio track 300 audio track 600 raised leadout 900\n");
  DiscReader reader(disk, loop, background, drives);
  const auto grab = [&](int track, int offset) {
    reader.SelectDevice(1);
    reader.ReadOffset(offset);
    EXPECT_EQ(reader.ReadTrack(track, L"C:\\a.wav"), 0);
    loop.Pass(60'000);
    return SoundOf(File("a.wav"));
  };
  EXPECT_TRUE(grab(1, -667) ==
              std::string(4 * 667, '\0') + image.substr(0, 300 * kSector - 4 * 667));
  EXPECT_TRUE(grab(2, 667) == image.substr(300 * kSector + 4 * 667, 300 * kSector));
  EXPECT_FALSE(reader.TrackPreemphasis(2));
  EXPECT_TRUE(reader.TrackPreemphasis(3));
  EXPECT_FALSE(grab(3, 0) == Part(image, 600, 900)) << "its preemphasis is taken off";
}

TEST_F(InTheEmulatedDrive, AnotherDiscIsNoticedAndReadAfterItsDriveIsReady) {
  drive.Say("disc comprado sold\n");
  const auto disc = drives.Open(Machine[0]);
  ASSERT_TRUE(disc);
  EXPECT_TRUE(disc->StillThere());
  EXPECT_TRUE(disc->StillThere());
  drive.Say("disc none\n");
  EXPECT_FALSE(disc->StillThere());
  EXPECT_FALSE(drives.Open(Machine[0]));
  drive.Say("disc segundo sold\ngetting-ready 4\n");
  const auto second = drives.Open(Machine[0]);
  ASSERT_TRUE(second);
  EXPECT_TRUE(second->StillThere());
  drive.Say("disconnected\n");
  EXPECT_FALSE(second->StillThere());
  EXPECT_EQ(Read(*second, 0, 5), "");
}

}  // namespace vantora::test
