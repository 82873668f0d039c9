// Tests the program's writer with the emulated drive. The disc is compared to the waves byte by
// byte, and read again by the reading back end.
#include "backends/burn/cd_text.h"
#include "backends/burn/drive_wait.h"
#include "backends/burn/drive_writer.h"
#include "backends/cdio/drive_disc.h"
#include "backends/linux/device_registry.h"
#include "main/machine.h"
#include "tests/backends/burning.h"
#include "tests/emulators/drive/drive_home.h"

#include <cdio/cdtext.h>

#include <fcntl.h>

namespace vantora::test {

namespace {

using namespace std::chrono_literals;
using Time = std::chrono::steady_clock;

constexpr std::size_t kSector = 2352;

std::string Padded(std::string sound, std::size_t sectors) {
  sound.resize(sectors * kSector, '\0');
  return sound;
}

class DriveBurn : public Burning {
 protected:
  DriveBurn() { Listen(writer); }

  static LinuxPlaces WithDrives(LinuxPlaces places) {
    places.Optical = OpticalDrives("/sys");
    return places;
  }

  std::string Add(int sectors, int rest = 0, std::uint32_t seed = 1) {
    std::string sound =
        Noise(static_cast<std::size_t>(sectors) * kSector + static_cast<std::size_t>(rest), seed);
    Burning::Add(writer, Wave(sound));
    return sound;
  }
  void Find() {
    ASSERT_EQ(writer.Init_Prog(), 0);
    ASSERT_EQ(writer.BurnerCount(), 1);
    writer.SelectBurner(0);
  }
  // Waits for an event that begins with `last`, and returns all events.
  std::string Until(const std::string& last) {
    Bench::Until(
        [&] {
          return std::any_of(Log.begin(), Log.end(),
                             [&](const std::string& what) { return what.starts_with(last); });
        },
        20);
    return Story();
  }

  DriveHome drive;
  DriveTable table{WithDrives(home.Places)};
  DriveWriter writer{disk, loop, background, [this] { return DrivesForWriting(table); },
                     OpenWritten};
};

}  // namespace

TEST_F(DriveBurn, TheDriveIsDescribedAsTheRegistryKnowsItAndByWhatItCan) {
  Find();
  EXPECT_EQ(writer.GetDescription(0), L"EMULATED\tCD-RW 48X16X48\t1.04\t0");
  EXPECT_EQ(writer.GetDescription(1), L"");
  DeviceRegistry registry(table);
  const Text key = L"CDROM CD-RW 48X16X48";
  EXPECT_EQ(registry.Value(L"ENUM\\SCSI\\" + key + L"\\SR0", L"SCSITargetID"), L"0");
  EXPECT_EQ(writer.DetermineDrive(), 10);
  EXPECT_TRUE(writer.CanDAO());
  const std::pair<int, int> speeds[] = {{1, 4}, {6, 4}, {8, 8}, {48, 48}};
  for (const auto& [asked, made] : speeds) {
    writer.Speed(asked);
    EXPECT_EQ(writer.Speed(), made) << asked;
  }
  drive.Say("no-sao\n");
  Find();
  EXPECT_EQ(writer.DetermineDrive(), 1);
  EXPECT_EQ(writer.WriteDAO(), -1);
  // A drive that was seen stays in the list while another program uses it, and after it was
  // unplugged.
  for (const char* script : {"busy\n", "disconnected\n", "busy\n"}) {
    drive.Say(script);
    const auto start = Time::now();
    Find();
    EXPECT_FALSE(writer.CheckIfBurnerOK());
    EXPECT_LT(Time::now() - start, 3s) << script;
    loop.DoEvents();
  }
  const std::pair<const char*, int> ofOthers[] = {{"busy\n", 0}, {"no-writer\n", 0}, {"", 1}};
  for (const auto& [script, count] : ofOthers) {
    drive.Say(script);
    DriveWriter late{disk, loop, background, [this] { return DrivesForWriting(table); }};
    EXPECT_EQ(late.Init_Prog(), 0);
    EXPECT_EQ(late.BurnerCount(), count) << script;
  }
}

TEST_F(DriveBurn, ADriveThatTakesItsDiscInForAgesHoldsUpNobody) {
  auto start = Time::now();
  const auto took = [&start] { return Time::now() - std::exchange(start, Time::now()); };
  Find();
  drive.Say("getting-ready 100000\n");
  Add(320);
  auto other = std::make_unique<DriveWriter>(disk, loop, background,
                                             [this] { return DrivesForWriting(table); });
  took();
  other->Init_Prog();
  EXPECT_LT(took(), 1s);
  EXPECT_FALSE(other->CheckIfBurnerOK());
  EXPECT_LT(took(), 4s);
  ASSERT_EQ(other->AddTrack(L"C:\\1.wav", 0), 0);
  ASSERT_EQ(other->WriteTAO(), 0);
  std::this_thread::sleep_for(300ms);  // lets the write begin to wait
  took();
  other.reset();
  EXPECT_LT(took(), 1s);
  ASSERT_EQ(writer.WriteTAO(), 0);
  std::this_thread::sleep_for(300ms);
  writer.StopBurn();
  drive.Say("getting-ready 5\n");
  took();
  EXPECT_TRUE(writer.CheckIfBurnerOK()) << "ready after a while";
  EXPECT_LT(took(), 4s);
}

TEST_F(DriveBurn, AHoldOfAMomentIsSatOut) {
  Find();
  drive.Say("busy\n");
  std::thread system([] {
    std::this_thread::sleep_for(500ms);
    DriveHome::Say("");
  });
  EXPECT_TRUE(writer.CheckIfBurnerOK());
  system.join();
}

TEST_F(DriveBurn, TracksOneByOneHoldTheWavesAndAreReadBack) {
  Find();
  writer.Speed(8);
  const std::string first = Add(400, 1236), second = Add(310, 0, 2), brief = Add(10, 4, 3);
  ASSERT_EQ(writer.WriteTAO(), 0);
  EXPECT_EQ(writer.WriteTAO(), 1) << "one at a time";
  EXPECT_EQ(Until("complete"),
            "lead-in, track 1, open, close, track 2, open, close, track 3, open, close, lead-out, "
            "fixating, complete 1");
  EXPECT_EQ(std::count(Percents.begin(), Percents.end(), 100), 3);
  EXPECT_EQ(drive.Told("SET CD SPEED: bb 00 21 13 05 83"), 1);
  const std::string image = drive.Image();
  EXPECT_TRUE(image.starts_with(Padded(first, 401)));
  EXPECT_TRUE(image.substr(553 * kSector).starts_with(second));
  EXPECT_TRUE(image.substr(1015 * kSector).starts_with(Padded(brief, 300)));
  EXPECT_NE(drive.Toc().find("closed\ntrack 0 audio\ntrack 553 audio\ntrack 1015 audio\n"),
            std::string::npos);
  const auto disc = DriveDisc::Open("/dev/sr0");
  ASSERT_TRUE(disc);
  std::string read(310 * kSector, '?');
  EXPECT_TRUE(disc->Read(553, 310, read.data()));
  EXPECT_TRUE(read == second);
}

TEST_F(DriveBurn, ADiscAtOnceIsOneStreamAndHasItsTextInLatin1) {
  Find();
  const std::string first = Add(400, 4), second = Add(310, 2348, 2), brief = Add(10, 8, 3);
  writer.CdText(0, L"Verano", L"");
  writer.CdText(1, L"Canci\u00F3n\t\u20AC \u2019\u4E00", L"Las olas");
  ASSERT_EQ(writer.WriteDAO(), 0);
  EXPECT_EQ(Until("complete"),
            "lead-in, track 1, open, close, track 2, open, close, track 3, open, close, lead-out, "
            "fixating, complete 1");
  EXPECT_TRUE(std::is_sorted(Percents.begin(), Percents.end())) << "of the disc";
  EXPECT_EQ(Percents.back(), 100);
  // The last track is filled up to four seconds, the minimum on a disc.
  EXPECT_TRUE(drive.Image() == Padded(first + second + brief, 1011));
  EXPECT_NE(drive.Toc().find("track 0 audio\ntrack 400 audio\ntrack 711 audio\nleadout 1011\n"),
            std::string::npos)
      << drive.Toc();
  const std::string packs = Get(drive.Folder() / "disc/cdtext.bin");
  std::string titles, performers;
  for (std::size_t at = 0; at + 18 <= packs.size(); at += 18) {
    if (packs[at] == '\x80') titles += packs.substr(at + 4, 12);
    if (packs[at] == '\x81') performers += packs.substr(at + 4, 12);
  }
  using namespace std::string_literals;
  EXPECT_TRUE(titles.starts_with("Verano\0Canci\xF3n EUR '?\0\0"s)) << titles;
  EXPECT_TRUE(performers.starts_with("\0Las olas\0\0"s)) << performers;
}

TEST_F(DriveBurn, ADiscIsReadAgainWhenAskedAndAnHonestDriveIsNotBlamed) {
  Find();
  Add(400);
  Add(310, 2348, 2);
  Add(400, 0, 3);
  const struct {
    bool Dao, Verify;
    const char *Script, *Result;
  } cases[] = {
      {false, false, "wrong-sample 100\n", ""},
      {true, true, "late 1206\n", "1 same, 2 same, 3 same"},
      {false, true, "late -667\n", "1 same, 2 same, 3 same"},
      {true, true, "late 30\nwrong-sample 700\n", "1 same, 2 differs, 3 same"},
      {true, true, "wrong-sample 0\nread-error 1000\n", "1 differs, 2 same, 3 failed"},
  };
  int number = 0;
  for (const auto& each : cases) {
    SCOPED_TRACE(++number);
    drive.Say("disc " + std::to_string(number) + "\n" + each.Script);
    Log.clear();
    Verified.clear();
    writer.VerifyDiscs(each.Verify);
    const int read = drive.Told("READ CD:");
    ASSERT_EQ(each.Dao ? writer.WriteDAO() : writer.WriteTAO(), 0);
    EXPECT_TRUE(Until("complete").ends_with("fixating, complete 1")) << Story();
    EXPECT_EQ(Verified, each.Result);
    EXPECT_EQ(drive.Told("READ CD:") > read, each.Verify);
  }
  drive.Say("disc largo\npace 400\n");
  Log.clear();
  Verified.clear();
  int compared = 0;
  writer.Events.MCD_Verify = [&](int, int state) {
    compared += state != kMcdVerifyBegins;
    writer.StopVerify();
  };
  ASSERT_EQ(writer.WriteDAO(), 0);
  EXPECT_TRUE(Until("complete").ends_with("fixating, complete 1")) << "only the comparison ends";
  EXPECT_EQ(compared, 0);
}

TEST_F(DriveBurn, AStopIsAnsweredAtOnceAndTheDriveComesToRestBehindIt) {
  for (const bool dao : {false, true}) {
    SCOPED_TRACE(dao);
    drive.Say(std::string("pace 1500\ndisc ") + (dao ? "dao\n" : "tao\n"));
    writer.ResetBurner();
    Find();
    Add(8000);
    Log.clear();
    ASSERT_EQ(dao ? writer.WriteDAO() : writer.WriteTAO(), 0);
    Until("open");
    const auto start = Time::now();
    writer.StopBurn();
    loop.DoEvents();
    EXPECT_LT(Time::now() - start, 500ms);
    EXPECT_EQ(Log.back(), "stopped");
    EXPECT_EQ(writer.Init_Prog(), 0);
    EXPECT_EQ(writer.BurnerCount(), 1) << "what was seen before holds";
    writer.ResetBurner();
    // A drive keeps its disc until it is at rest. From here on it writes without a pace.
    drive.Say(std::string("disc ") + (dao ? "dao\n" : "tao\n"));
    EXPECT_TRUE(Bench::Until([] { return HoldOf("/dev/sr0") == DriveHold::Free; }));
    drive.Say("disc nuevo\n");
    bool ready = false;
    for (int i = 0; i < 5 && !ready; ++i) ready = writer.CheckIfBurnerOK();
    EXPECT_TRUE(ready);
    const int device = ::open("/dev/sr0", O_RDONLY | O_NONBLOCK | O_EXCL);
    EXPECT_GE(device, 0) << "the drive is in use";
    ::close(device);
    EXPECT_LT(drive.Image(dao ? "dao" : "tao").size(), 8000 * kSector);
    Log.clear();
    loop.Pass(1000);
    EXPECT_EQ(Story().find_first_not_of("status 456,"), std::string::npos)
        << "of the write that was stopped: " << Story();
  }
}

TEST_F(DriveBurn, AWaveThatEndsEarlyOrASmallDiscIsNoGoodDisc) {
  Find();
  Add(2000);
  Add(2000);
  disk.Readable = 1'500'000;
  ASSERT_EQ(writer.WriteTAO(), 0);
  std::string story = Until("complete");
  EXPECT_TRUE(story.ends_with("failure 57, complete 0")) << story;
  disk.Readable = INT64_MAX;
  Put(drive.Folder() / "corto/toc", "capacity 3000\nstate blank\n");
  drive.Say("disc corto\n");
  Log.clear();
  ASSERT_EQ(writer.WriteTAO(), 0);
  EXPECT_EQ(Until("complete"), "failure 813, complete 0");
  EXPECT_EQ(drive.Image("corto"), "");
}

TEST(DriveText, MoreTextThanADiscHoldsIsCutAndStaysComplete) {
  const BurnLibrary library;
  burn_session* session = burn_session_create();
  std::vector<burn_track*> tracks;
  CdTexts texts;
  for (int i = 1; i <= 99; ++i) {
    tracks.push_back(burn_track_create());
    burn_track_define_data(tracks.back(), 0, 0, 1, BURN_AUDIO);
    burn_session_add_track(session, tracks.back(), BURN_POS_END);
    texts[i] = {std::to_wstring(i) + Text(60, L'a'), std::to_wstring(i) + Text(90, L'b')};
  }
  EXPECT_TRUE(AttachCdText(session, tracks, texts));
  const int packs = burn_cdtext_from_session(session, nullptr, nullptr, 1);
  EXPECT_GT(packs, 150);
  EXPECT_LE(packs, 255);
  EXPECT_FALSE(AttachCdText(session, tracks, {{1, {L"", L""}}}));
  for (burn_track* track : tracks) burn_track_free(track);
  burn_session_free(session);
}

}  // namespace vantora::test
