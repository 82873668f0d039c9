#include "backends/cdio/drive_disc.h"

#include "tests/backends/cdio/tray.h"

namespace vantora::test {

namespace {

// The library's own image reader stands in for a drive. Everything above it works as with a real
// drive.
class Drive : public Tray {
 protected:
  Drive() {
    Machine[0].Device = (Folder() / "disco.cue").string();
    Machine[0].Product = L"CD-RW";
  }
  static std::string Read(Disc& disc, int from, int to, bool carefully) {
    std::string bytes(static_cast<std::size_t>(to - from) * kSector, '?');
    const bool read = carefully ? disc.ReadCarefully(from, to - from, bytes.data())
                                : disc.Read(from, to - from, bytes.data());
    return read ? bytes : "";
  }
};

}  // namespace

TEST_F(Drive, TheTableOfContentsIsTheOneOnTheDisc) {
  EXPECT_FALSE(drives.Open(Machine[0])) << "no disc";
  Lay({0, 300, 900}, 1200, true);
  const auto disc = drives.Open(Machine[0]);
  ASSERT_TRUE(disc);
  const CdToc& toc = disc->Toc();
  ASSERT_EQ(toc.Count(), 3);
  EXPECT_EQ(toc.Track(1).Start, 0);
  EXPECT_EQ(toc.Track(2).Start, 300);
  EXPECT_EQ(toc.Track(2).Sectors, 600);
  EXPECT_EQ(toc.LeadOut, 1200);
  EXPECT_TRUE(toc.Track(2).Audio);
  EXPECT_FALSE(toc.Track(3).Audio);
}

TEST_F(Drive, CarefulAndPlainReadingGiveTheSameSamplesInAnyOrder) {
  const std::string image = Lay({0, 300, 900}, 1200);
  const auto disc = drives.Open(Machine[0]);
  ASSERT_TRUE(disc);
  for (const bool carefully : {false, true, false, true}) {
    for (const auto& [from, to] :
         std::vector<std::pair<int, int>>{{900, 920}, {0, 5}, {5, 40}, {299, 301}, {1195, 1200}}) {
      EXPECT_TRUE(Read(*disc, from, to, carefully) == Part(image, from, to))
          << from << (carefully ? " carefully" : "");
    }
  }
}

TEST_F(Drive, ATrackIsGrabbedSampleForSampleAndAFaultIsToldAndTriedAgain) {
  const std::string image = Lay({0, 300, 900}, 1200);
  DiscReader reader(disk, loop, background, drives);
  int complete = 0, failures = 0;
  reader.Events.ACD_ReadComplete = [&] { ++complete; };
  reader.Events.ACD_Failure = [&](int, const Text&) { ++failures; };
  reader.SelectDevice(1);
  ASSERT_EQ(reader.ReadTrack(2, L"C:\\a.wav"), 0);
  loop.Pass(60'000);
  EXPECT_EQ(complete, 1);
  EXPECT_TRUE(File("a.wav") == Wave(Part(image, 300, 900)));

  fs::resize_file(Folder() / "disco.bin", 700 * kSector);
  ASSERT_EQ(reader.ReadTrack(2, L"C:\\a.wav"), 0);
  loop.Pass(60'000);
  EXPECT_EQ(failures, 1);
  Put(Folder() / "disco.bin", image);
  reader.RetryRead();
  loop.Pass(60'000);
  EXPECT_EQ(failures, 1);
  EXPECT_EQ(complete, 2);
  EXPECT_TRUE(File("a.wav") == Wave(Part(image, 300, 900)));
}

}  // namespace vantora::test
