// Written with libburn, read with libcdio, its paranoia reader and the back end over them; the disc
// in between is looked at byte by byte.
#include "tests/bottle/bottle.h"

#include "backends/cdio/drive_disc.h"
#include "backends/linux/linux_places.h"
#include "tests/backends/cdio/tray.h"

#include <cdio/cdtext.h>
#include <cdio/mmc_hl_cmds.h>
#include <cdio/mmc_ll_cmds.h>
#include <libburn/libburn.h>

#include <array>
#include <fcntl.h>
#include <optional>
#include <thread>

namespace vantora::test {

namespace {

using namespace burn;

struct Job {
  burn_write_types Way = BURN_WRITE_TAO;
  bool Pretend = false;
  std::optional<int> CancelAt{};  // sectors of the first track
};

// The drive as a program that writes has it in its hands. After a burn that failed libburn gives a
// drive to nobody until it has looked for drives again, so that each attempt has a Burner of its
// own.
class Burner {
 public:
  Burner() {
    burn_initialize();
    char never[] = "NEVER", blank[] = "";
    burn_msgs_set_severities(never, never, blank);
    while (burn_drive_scan(&drives_, &count_) == 0) std::this_thread::yield();
  }
  ~Burner() {
    Release();
    if (drives_ != nullptr) burn_drive_info_free(drives_);
    burn_finish();
  }
  Burner(const Burner&) = delete;
  Burner& operator=(const Burner&) = delete;

  int Count() const { return static_cast<int>(count_); }
  const burn_drive_info& Info() const { return drives_[0]; }
  burn_drive* Drive() const { return drives_[0].drive; }

  burn_disc_status Status() {
    Release();
    if (burn_drive_grab(Drive(), 0) != 1) return BURN_DISC_UNGRABBED;
    grabbed_ = true;
    return burn_disc_get_status(Drive());
  }

  void Release() {
    if (grabbed_) burn_drive_release(Drive(), 0);
    grabbed_ = false;
  }

  // True when all of it is written well.
  bool Burn(const std::vector<std::string>& sounds, const Job& job) {
    if (Status() != BURN_DISC_BLANK) return false;
    burn_disc* disc = burn_disc_create();
    burn_session* session = burn_session_create();
    burn_disc_add_session(disc, session, BURN_POS_END);
    int code[8] = {}, copy[8] = {}, language[8] = {9};
    burn_session_set_cdtext_par(session, code, copy, language, 0);
    int number = 0;
    for (const std::string& sound : sounds) Add(session, ++number, sound, job);
    if (job.Way == BURN_WRITE_SAO) Title(session, "El disco");
    burn_write_opts* options = burn_write_opts_new(Drive());
    const bool atOnce = job.Way == BURN_WRITE_SAO;
    burn_write_opts_set_write_type(options, job.Way, atOnce ? BURN_BLOCK_SAO : BURN_BLOCK_MODE1);
    burn_write_opts_set_simulate(options, job.Pretend ? 1 : 0);
    burn_disc_write(options, disc);
    Wait(job);
    burn_write_opts_free(options);
    burn_session_free(session);
    burn_disc_free(disc);
    return burn_drive_wrote_well(Drive()) == 1;
  }

 private:
  static void Title(burn_session* session, std::string title) {
    auto* bytes = reinterpret_cast<unsigned char*>(title.data());
    char blank[] = "";
    burn_session_set_cdtext(session, 0, 0x80, blank, bytes, static_cast<int>(title.size()) + 1, 0);
  }

  static void Add(burn_session* session, int number, const std::string& sound, const Job& job) {
    const fs::path file = Bottle::Folder() / ("pista" + std::to_string(number));
    Put(file, sound);
    burn_track* track = burn_track_create();
    burn_track_define_data(track, 0, 0, 1, BURN_AUDIO);
    burn_source* source = burn_file_source_new(file.c_str(), nullptr);
    burn_track_set_source(track, source);
    burn_source_free(source);
    if (job.Way == BURN_WRITE_SAO) {
      std::string title = "Pista " + std::to_string(number);
      auto* bytes = reinterpret_cast<unsigned char*>(title.data());
      char blank[] = "";
      burn_track_set_cdtext(track, 0, 0x80, blank, bytes, static_cast<int>(title.size()) + 1, 0);
    }
    burn_session_add_track(session, track, BURN_POS_END);
    burn_track_free(track);
  }

  void Wait(const Job& job) {
    burn_progress progress{};
    bool cancelled = false;
    while (burn_drive_get_status(Drive(), &progress) != BURN_DRIVE_IDLE) {
      if (job.CancelAt && !cancelled && progress.sector >= *job.CancelAt) {
        burn_drive_cancel(Drive());
        cancelled = true;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  }

  burn_drive_info* drives_ = nullptr;
  unsigned count_ = 0;
  bool grabbed_ = false;
};

std::unique_ptr<CdIo_t, void (*)(CdIo_t*)> Cdio() {
  return {cdio_open("/dev/sr0", DRIVER_UNKNOWN), &cdio_destroy};
}

class InTheBottle : public Tray {
 protected:
  InTheBottle() {
    Machine[0].Device = "/dev/sr0";
    Machine[0].Product = L"CD-RW 48X16X48";
  }

  static std::string Sound(int sectors) {
    return Noise(static_cast<std::size_t>(sectors) * kSector);
  }

  static std::string Read(Disc& disc, int from, int to, bool carefully) {
    std::string bytes(static_cast<std::size_t>(to - from) * kSector, '?');
    const bool read = carefully ? disc.ReadCarefully(from, to - from, bytes.data())
                                : disc.Read(from, to - from, bytes.data());
    return read ? bytes : "";
  }

  Bottle bottle;
};

}  // namespace

TEST_F(InTheBottle, TheMachineListsTheDriveUnderItsNames) {
  const std::vector<OpticalDrive> found = OpticalDrives("/sys");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].Device, "/dev/sr0");
  EXPECT_EQ(found[0].Product, L"CD-RW 48X16X48");
  Burner burner;
  ASSERT_EQ(burner.Count(), 1);
  EXPECT_EQ(std::string(burner.Info().product), "CD-RW 48X16X48");
  EXPECT_EQ(std::string(burner.Info().vendor), "BOTTLE");
  EXPECT_TRUE(burner.Info().write_cdr);
}

TEST_F(InTheBottle, TracksWrittenOneByOneAreReadBackSampleForSample) {
  const std::string first = Sound(400), second = Sound(310);
  {
    Burner burner;
    EXPECT_TRUE(burner.Burn({first, second}, {}));
    EXPECT_EQ(burner.Status(), BURN_DISC_FULL);
  }
  EXPECT_EQ(bottle.Toc(),
            "kind cd-r\ncapacity 359847\nstate closed\ntrack 0 audio\ntrack 552 audio\n"
            "leadout 864\n");
  const std::string image = bottle.Image();
  EXPECT_TRUE(Part(image, 0, 400) == first);
  EXPECT_TRUE(Part(image, 552, 862) == second);

  const auto disc = drives.Open(Machine[0]);
  ASSERT_TRUE(disc);
  ASSERT_EQ(disc->Toc().Count(), 2);
  EXPECT_EQ(disc->Toc().Track(2).Start, 552);
  EXPECT_EQ(disc->Toc().LeadOut, 864);
  for (const bool carefully : {false, true}) {
    EXPECT_TRUE(Read(*disc, 0, 400, carefully) == first) << carefully;
    EXPECT_TRUE(Read(*disc, 552, 862, carefully) == second) << carefully;
  }
}

TEST_F(InTheBottle, ADiscWrittenAtOnceHasItsTracksBackToBackAndItsTitles) {
  const std::string first = Sound(400), second = Sound(310);
  EXPECT_TRUE(Burner().Burn({first, second}, {BURN_WRITE_SAO}));
  EXPECT_EQ(bottle.Toc(),
            "kind cd-r\ncapacity 359847\nstate closed\ntrack 0 audio\ntrack 400 audio\n"
            "leadout 710\n");
  EXPECT_TRUE(bottle.Image() == first + second);

  const auto drive = Cdio();
  ASSERT_TRUE(drive);
  const cdtext_t* text = cdio_get_cdtext(drive.get());
  ASSERT_NE(text, nullptr);
  EXPECT_STREQ(cdtext_get_const(text, CDTEXT_FIELD_TITLE, 0), "El disco");
  EXPECT_STREQ(cdtext_get_const(text, CDTEXT_FIELD_TITLE, 2), "Pista 2");
}

TEST_F(InTheBottle, APretendedBurnWritesNothingAndTheDiscTakesARealOneAfterIt) {
  const std::string sound = Sound(320);
  Burner burner;
  for (const burn_write_types way : {BURN_WRITE_TAO, BURN_WRITE_SAO}) {
    const std::string before = bottle.Toc();
    EXPECT_TRUE(burner.Burn({sound, sound}, {way, true})) << way;
    EXPECT_EQ(burner.Status(), BURN_DISC_BLANK);
    EXPECT_EQ(bottle.Toc(), before);
    EXPECT_EQ(bottle.Image(), "");
  }
  EXPECT_GE(bottle.Told("WRITE(10):"), 4 * 320 / 13);
  EXPECT_TRUE(burner.Burn({sound}, {BURN_WRITE_SAO}));
  EXPECT_TRUE(bottle.Image() == sound);
}

TEST_F(InTheBottle, ABurnBrokenOffLeavesAShortTrackOrASpoiltDisc) {
  const std::string sound = Sound(4000);
  bottle.Say("pace 4000\n");
  EXPECT_FALSE(Burner().Burn({sound}, {BURN_WRITE_TAO, false, 500}));
  const std::string image = bottle.Image();
  EXPECT_LT(image.size(), sound.size());
  EXPECT_GT(image.size(), 400 * kSector);
  EXPECT_TRUE(sound.starts_with(image));

  bottle.Say("pace 4000\ndisc otro\n");
  EXPECT_FALSE(Burner().Burn({sound}, {BURN_WRITE_SAO, false, 500}));
  EXPECT_NE(bottle.Toc("otro").find("state spoilt"), std::string::npos);
  EXPECT_NE(Burner().Status(), BURN_DISC_BLANK);
  EXPECT_FALSE(drives.Open(Machine[0])) << "no table of contents was written";
}

TEST_F(InTheBottle, TheWriterSeesWhatLiesInTheDrive) {
  Burner burner;
  EXPECT_EQ(burner.Status(), BURN_DISC_BLANK);
  bottle.Say("disc none\n");
  EXPECT_EQ(burner.Status(), BURN_DISC_EMPTY);
  bottle.Say("disc comprado sold\n");
  EXPECT_EQ(burner.Status(), BURN_DISC_FULL);
  bottle.Say("disc otro\ngetting-ready 3\n");
  EXPECT_EQ(burner.Status(), BURN_DISC_BLANK);
}

TEST_F(InTheBottle, ADriveIsHeldByOneProgramAlone) {
  const auto hold = [] {
    const int file = ::open("/dev/sr0", O_RDWR | O_EXCL | O_NONBLOCK);
    return file == -1 ? errno : ::close(file);
  };
  Burner burner;
  EXPECT_EQ(burner.Status(), BURN_DISC_BLANK);
  EXPECT_EQ(hold(), EBUSY);
  burner.Release();
  EXPECT_EQ(hold(), 0);
  bottle.Say("busy\n");
  EXPECT_EQ(hold(), EBUSY);
}

TEST_F(InTheBottle, ADriveThatCannotWriteSaysSo) {
  bottle.Say("no-writer\n");
  const Burner burner;
  ASSERT_EQ(burner.Count(), 1);
  EXPECT_FALSE(burner.Info().write_cdr);
}

TEST_F(InTheBottle, FaultsOfWritingAreToldAndDoNotPassForADisc) {
  const std::string sound = Sound(600);
  for (const burn_write_types way : {BURN_WRITE_TAO, BURN_WRITE_SAO}) {
    const std::string disc = "error" + std::to_string(way);
    bottle.Say("disc " + disc + "\nwrite-error 450\n");
    EXPECT_FALSE(Burner().Burn({sound}, {way}));
    EXPECT_NE(bottle.Toc(disc.c_str()).find("state spoilt"), std::string::npos);
  }
  bottle.Say("disc solo\nno-sao\n");
  EXPECT_FALSE(Burner().Burn({sound}, {BURN_WRITE_SAO}));
  EXPECT_EQ(bottle.Image("solo"), "");
  EXPECT_TRUE(Burner().Burn({sound}, {BURN_WRITE_TAO}));
  EXPECT_TRUE(bottle.Image("solo") == sound);
}

TEST_F(InTheBottle, ACableThatIsPulledEndsTheBurn) {
  bottle.Say("pace 4000\n");
  Burner burner;
  std::thread hand([] {
    while (Bottle::Told("WRITE(10):") < 20) std::this_thread::yield();
    Bottle::Say("disconnected\n");
  });
  EXPECT_FALSE(burner.Burn({Sound(4000)}, {}));
  hand.join();
  EXPECT_FALSE(drives.Open(Machine[0]));
}

TEST_F(InTheBottle, TheDriveTakesTheSpeedNextBelowAndErasesARewritableDisc) {
  bottle.Say("disc regrabable rw\n");
  Burner burner;
  ASSERT_EQ(burner.Status(), BURN_DISC_BLANK);
  burn_drive_set_speed(burner.Drive(), 0, 3000);
  EXPECT_EQ(bottle.Told("SET CD SPEED: bb 00 21 13 0b b8"), 1);
  std::array<unsigned char, 64> page{};
  ASSERT_EQ(mmc_mode_sense_10(Cdio().get(), page.data(), page.size(), 0x2a), DRIVER_OP_SUCCESS);
  EXPECT_EQ(page[8 + 28] << 8 | page[8 + 29], 2822);

  const std::string sound = Sound(310), other = Sound(320);
  EXPECT_TRUE(burner.Burn({sound}, {}));
  EXPECT_EQ(burner.Status(), BURN_DISC_FULL);
  burn_disc_erase(burner.Drive(), 1);
  while (burn_drive_get_status(burner.Drive(), nullptr) != BURN_DRIVE_IDLE) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(burner.Burn({other}, {BURN_WRITE_SAO}));
  EXPECT_TRUE(bottle.Image("regrabable") == other);
}

TEST_F(InTheBottle, ADiscLaidInByHandIsReadWithItsDataTrack) {
  const std::string image = Sound(900);
  Put(bottle.Folder() / "disc/image.bin", image);
  Put(bottle.Folder() / "disc/toc",
      "kind cd-r state closed track 0 audio track 400 data leadout 900\n");
  const auto disc = drives.Open(Machine[0]);
  ASSERT_TRUE(disc);
  EXPECT_TRUE(disc->Toc().Track(1).Audio);
  EXPECT_FALSE(disc->Toc().Track(2).Audio);
  EXPECT_EQ(disc->Toc().LeadOut, 900);
  EXPECT_TRUE(Read(*disc, 390, 400, false) == Part(image, 390, 400));
  EXPECT_EQ(Read(*disc, 395, 405, false).size(), 10 * kSector);
  EXPECT_EQ(Read(*disc, 400, 401, false), "") << "no sound";
}

TEST_F(InTheBottle, FaultsOfReadingAreToldAndPassWithTheirCause) {
  bottle.Say("disc comprado sold\n");
  {
    const auto disc = drives.Open(Machine[0]);
    ASSERT_TRUE(disc);
  }
  const std::string image = bottle.Image("comprado");
  DiscReader reader(disk, loop, background, drives);
  int complete = 0, failures = 0;
  reader.Events.ACD_ReadComplete = [&] { ++complete; };
  reader.Events.ACD_Failure = [&](int, const Text&) { ++failures; };
  reader.SelectDevice(1);
  bottle.Say("disc comprado sold\nread-error 411\n");
  ASSERT_EQ(reader.ReadTrack(2, L"C:\\a.wav"), 0);
  loop.Pass(60'000);
  EXPECT_EQ(failures, 1);
  EXPECT_EQ(complete, 0);
  bottle.Say("disc comprado sold\n");
  reader.RetryRead();
  loop.Pass(60'000);
  EXPECT_EQ(complete, 1);
  EXPECT_TRUE(File("a.wav") == Wave(Part(image, 300, 600)));
}

TEST_F(InTheBottle, AnotherDiscIsNoticedAndReadAfterItsDriveIsReady) {
  bottle.Say("disc comprado sold\n");
  const auto disc = drives.Open(Machine[0]);
  ASSERT_TRUE(disc);
  EXPECT_TRUE(disc->StillThere());
  EXPECT_TRUE(disc->StillThere());
  bottle.Say("disc none\n");
  EXPECT_FALSE(disc->StillThere());
  EXPECT_FALSE(drives.Open(Machine[0]));
  bottle.Say("disc segundo sold\ngetting-ready 4\n");
  const auto second = drives.Open(Machine[0]);
  ASSERT_TRUE(second);
  EXPECT_TRUE(second->StillThere());
  bottle.Say("disconnected\n");
  EXPECT_FALSE(second->StillThere());
  EXPECT_EQ(Read(*second, 0, 5, false), "");
}

}  // namespace vantora::test
