// Tests that no edit can lose a sample. Each edit is killed in every call that changes a file, and
// so is its completion; each such call also fails once, and permanently.
#include "backends/sound/edits/wave_edits.h"
#include "klang/rampe.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/running_out.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/support/kill_switch.h"

#include <cerrno>
#include <cmath>

namespace vantora::test {

namespace {

constexpr std::int64_t kBlock = 1024;
const Text kA = L"C:\\a.wav", kB = L"C:\\b.wav", kHelper = L"C:\\copy.dat";
const std::string kTail = Chunk("LIST", Noise(2701, 2));

std::string Zeros(std::size_t bytes) {
  return std::string(bytes, '\0');
}

// Sound multiplied by a ramp.
std::string Ramped(std::string sound, std::size_t at, std::size_t bytes, double start,
                   double slope) {
  for (std::size_t i = at; i < at + bytes; i += 2) {
    std::int16_t sample = 0;
    std::memcpy(&sample, &sound[i], 2);
    const double gain = start + static_cast<double>((i - at) / 4) * slope;
    sample = static_cast<std::int16_t>(std::nearbyint(sample * gain));
    std::memcpy(&sound[i], &sample, 2);
  }
  return sound;
}

// Two files with sound of a few blocks and a helper, and the expected result of an edit.
struct Case {
  const char* Name = "";
  std::string A = Noise(9001, 1), B = Noise(7000, 3);
  std::vector<WaveEdit> Waves{};
  std::string AfterA{}, AfterB = Noise(7000, 3);
};

const std::string kClip = Noise(3000, 7);

std::vector<Case> Cases() {
  std::vector<Case> cases;
  const std::string a = Noise(9001, 1), b = Noise(7000, 3);
  const auto add = [&](const char* name, std::int64_t after, std::vector<EditStep> steps,
                       const std::string& expected) {
    Case one{name};
    one.Waves.push_back({kA, 9001, after, std::move(steps)});
    one.AfterA = expected;
    cases.push_back(one);
  };
  // Cuts shorter than a block, where source and target overlap, and longer ones.
  add("cut near", 8800, {MoveStep(600, 400, 8400)}, a.substr(0, 400) + a.substr(600, 8400));
  add("cut far", 5001, {MoveStep(5000, 1000, 4001)}, a.substr(0, 1000) + a.substr(5000));
  add("cut all", 0, {}, "");
  add("insert", 12000, {MoveStep(2000, 5000, 7000), CopyStep(kHelper, 0, 2000, 3000)},
      a.substr(0, 2000) + kClip + a.substr(2000, 7000));
  add("push near", 9201, {MoveStep(100, 300, 8901), ZeroStep(100, 200)},
      a.substr(0, 100) + Zeros(200) + a.substr(100));
  add("mute", 9001, {ZeroStep(400, 5000)}, a.substr(0, 400) + Zeros(5000) + a.substr(5400));
  add("fade", 9001, {RampStep(400, 6000, 1, -1.0 / 1500)}, Ramped(a, 400, 6000, 1, -1.0 / 1500));
  add("scale", 9001, {ScaleStep(0, 9000, 0.5)}, Ramped(a, 0, 9000, 0.5, 0));

  const std::vector<char> mixed(kClip.begin(), kClip.end());
  const auto half = mixed.begin() + 1500;
  Case medley{"transition"};
  medley.Waves.push_back({kA, 9001, 7501, {MixStep(6001, {mixed.begin(), half})}});
  medley.Waves.push_back(
      {kB, 7000, 5500, {MixStep(0, {half, mixed.end()}), MoveStep(3000, 1500, 4000)}});
  medley.AfterA = a.substr(0, 6001) + kClip.substr(0, 1500);
  medley.AfterB = kClip.substr(1500) + b.substr(3000);
  cases.push_back(medley);
  return cases;
}

class Stage {
 public:
  explicit Stage(Case one) : case_(std::move(one)) {}

  void Lay() {
    for (const char* name : {"a.wav", "b.wav", "copy.dat"}) fs::remove(home / name);
    fs::remove_all(home.Files.SystemPath(WaveEdits::kFolder));
    Put(home / "a.wav", Wave(case_.A, kTail));
    Put(home / "b.wav", Wave(case_.B));
    Put(home / "copy.dat", Wave(kClip));
  }
  WaveEdits New() { return WaveEdits(disk, Rampe, kBlock); }
  void Apply(WaveEdits& edits) { edits.Apply({case_.Waves, {}}); }
  bool Before() const { return Holds(case_.A, case_.B); }
  bool After() const { return Holds(case_.AfterA, case_.AfterB); }
  std::size_t Notes() const {
    const fs::path folder = home.Files.SystemPath(WaveEdits::kFolder);
    return fs::exists(folder) ? NamesIn(folder) : 0;
  }
  // Kills the edit in its n-th call. Returns false when the edit has fewer calls.
  bool Killed(int call, bool half) {
    Lay();
    return !RunInProcess([&] {
      WaveEdits edits = New();
      KillSwitch::KillAt(call, half);
      Apply(edits);
    });
  }

  Home home;
  RunningOut disk{home.Files};

 private:
  bool Holds(const std::string& a, const std::string& b) const {
    return Get(home / "a.wav") == Wave(a, kTail) && Get(home / "b.wav") == Wave(b);
  }
  const Case case_;
};

}  // namespace

TEST(Edits, AKillInAnyCallLeavesTheFilesBeforeTheEditOrBehindIt) {
  for (const Case& one : Cases()) {
    SCOPED_TRACE(one.Name);
    Stage stage(one);
    int finished = 0;
    for (int call = 1, kills = 1; kills > 0; ++call) {
      kills = 0;
      for (const bool half : {false, true}) {
        if (!stage.Killed(call, half)) continue;
        ++kills;
        const MendedEdits mended = stage.New().Mend();
        ASSERT_TRUE(stage.Before() || stage.After()) << call;
        EXPECT_FALSE(stage.Before() && !mended.Finished.empty()) << call;
        EXPECT_TRUE(mended.Left.empty() && mended.Failed.empty() && mended.SilenceTaken.empty());
        finished += mended.Finished.empty() ? 0 : 1;
        ASSERT_EQ(stage.Notes(), 0U) << call;
      }
    }
    EXPECT_GT(finished, 5);
    EXPECT_TRUE(stage.After());
  }
}

TEST(Edits, AKillInTheMendingIsMendedToo) {
  for (const Case& one : Cases()) {
    SCOPED_TRACE(one.Name);
    Stage stage(one);
    for (int call = 4; stage.Killed(call, false); call += 5) {
      for (int second = 1;; ++second) {
        stage.Killed(call, second % 2 == 0);
        const bool whole = RunInProcess([&] {
          WaveEdits edits = stage.New();
          KillSwitch::KillAt(second, second % 3 == 0);
          edits.Mend();
        });
        stage.New().Mend();
        ASSERT_TRUE(stage.Before() || stage.After()) << call << " " << second;
        ASSERT_EQ(stage.Notes(), 0U);
        if (whole) break;
      }
    }
  }
}

TEST(Edits, ACallThatFailsOnceLeavesTheFilesBeforeTheEditOrBehindItAndSaysWhich) {
  for (const Case& one : Cases()) {
    for (const int error : {ENOSPC, EIO}) {
      SCOPED_TRACE(one.Name);
      Stage stage(one);
      for (int call = 1, sprung = 1; sprung > 0; ++call) {
        stage.Lay();
        auto edits = std::make_unique<WaveEdits>(stage.disk, Rampe, kBlock);
        KillSwitch::FailAt(call, error, false);
        bool raised = false;
        try {
          stage.Apply(*edits);
        } catch (const FinishedAfterError&) {
        } catch (const Laufzeitfehler& fehler) {
          raised = true;
          EXPECT_EQ(fehler.Nummer, error == EIO ? 57 : 61);
        }
        sprung = KillSwitch::Sprung() ? 1 : 0;
        KillSwitch::Off();
        ASSERT_TRUE(raised ? stage.Before() : stage.After()) << call;
        edits.reset();
        stage.New().Mend();  // a note that could not be deleted is deleted at the next start
        ASSERT_TRUE(raised ? stage.Before() : stage.After()) << call;
        ASSERT_EQ(stage.Notes(), 0U);
      }
    }
  }
}

// Silence behind both files. A file that is named twice gets both lengths.
struct Loan : Stage {
  Loan() : Stage(Lent()) { Lay(); }
  static Case Lent() {
    Case lent{"loan", Noise(9000, 1), Noise(7001, 3)};
    lent.AfterA = lent.A + Zeros(6000);
    lent.AfterB = lent.B + Zeros(3000);
    return lent;
  }
  void Lend(WaveEdits& edits) { edits.Lend({{kA, 5000}, {kB, 3000}, {L"c:\\A.WAV", 1000}}); }
};

TEST(Edits, SilenceThatWasLentComesBackWhateverHappensInBetween) {
  Loan loan;
  {
    const std::string a = Get(loan.home / "a.wav");
    WaveEdits edits = loan.New();
    loan.Lend(edits);
    EXPECT_TRUE(loan.After() && edits.Lent());
    EXPECT_TRUE(loan.New().Mend().Empty());  // the note belongs to a running program
    EXPECT_TRUE(edits.TakeBack().empty());
    EXPECT_TRUE(loan.Before() && !edits.Lent());
    EXPECT_EQ(loan.Notes(), 0U);

    loan.Lend(edits);
    Put(loan.home / "b.wav", "somebody else's");
    EXPECT_EQ(edits.TakeBack(), std::vector<Text>{kB});
    EXPECT_EQ(Get(loan.home / "a.wav"), a);
    EXPECT_EQ(Get(loan.home / "b.wav"), "somebody else's");
    loan.Lay();
    fs::remove(loan.home / "b.wav");
    EXPECT_EQ(ErrorOf([&] { loan.Lend(edits); }), 53);
    EXPECT_EQ(Get(loan.home / "a.wav"), a);
    loan.Lay();
    loan.Lend(edits);
    edits.Forget();
    EXPECT_TRUE(loan.After());
    EXPECT_EQ(loan.Notes(), 0U);
  }
  int taken = 0;
  for (int call = 1, kills = 1; kills > 0; ++call) {
    kills = 0;
    for (const bool half : {false, true}) {
      loan.Lay();
      const bool whole = RunInProcess([&] {
        WaveEdits edits = loan.New();
        KillSwitch::KillAt(call, half);
        loan.Lend(edits);
        edits.TakeBack();
      });
      kills += whole ? 0 : 1;
      const MendedEdits mended = loan.New().Mend();
      taken += static_cast<int>(mended.SilenceTaken.size());
      EXPECT_TRUE(mended.Finished.empty() && mended.Left.empty() && mended.Failed.empty());
      ASSERT_TRUE(loan.Before()) << call;
      ASSERT_EQ(loan.Notes(), 0U);
    }
  }
  EXPECT_GT(taken, 20);
}

TEST(Edits, WithoutRoomForAllTheSilenceNoFileKeepsAny) {
  Loan loan;
  for (int call = 1, sprung = 1; sprung > 0; ++call) {
    WaveEdits edits = loan.New();
    KillSwitch::FailAt(call, ENOSPC, false);
    const int error = ErrorOf([&] { loan.Lend(edits); });
    sprung = KillSwitch::Sprung() ? 1 : 0;
    KillSwitch::Off();
    EXPECT_TRUE(error == 0 ? loan.After() : loan.Before()) << call;
    EXPECT_EQ(edits.Lent(), error == 0);
    edits.TakeBack();
    EXPECT_TRUE(loan.Before());
  }
}

// Some programs omit the padding byte after sound of odd length, or give it a value.
TEST(Edits, TheByteThatFillsOddSoundUpStaysAsItIsWhereNothingMoves) {
  const std::string data = "data" + Number(901, 4) + Noise(901),
                    format = Chunk("fmt ", Format{}.Bytes());
  for (const std::string& tail : {std::string(), kTail, "x" + kTail}) {
    Loan loan;
    const std::string wave = Riff(format + data + tail);
    Put(loan.home / "a.wav", wave);
    WaveEdits edits = loan.New();
    loan.Lend(edits);
    EXPECT_NE(Get(loan.home / "a.wav").find(Noise(901) + Zeros(6000)), std::string::npos);
    edits.TakeBack();
    std::string back = Get(loan.home / "a.wav");
    if (tail.starts_with("x")) back[44 + 901] = 'x';  // the padding byte was added for the silence
    EXPECT_EQ(back, wave);
    Put(loan.home / "a.wav", wave);
    edits.Apply({{{kA, 901, 901, {ZeroStep(4, 100)}}}, {}});
    EXPECT_EQ(Get(loan.home / "a.wav"), Riff(format + "data" + Number(901, 4) +
                                             Noise(901).replace(4, 100, Zeros(100)) + tail));
  }
}

TEST(Edits, AFileThatOthersHaveChangedIsLeftAloneAndOneThatIsAwayIsWaitedFor) {
  const std::vector<Case> cases = Cases();
  Stage stage(cases[3]);  // this edit reads a helper
  const auto state = [&] { return Get(stage.home / "a.wav"); };
  const struct {
    const char* What;
    std::function<void()> Happens;
  } events[] = {
      {"longer", [&] { Put(stage.home / "a.wav", state() + "x"); }},
      {"written later",
       [&] {
         fs::last_write_time(stage.home / "a.wav",
                             fs::last_write_time(stage.home / "a.wav") + std::chrono::minutes(1));
       }},
      {"replaced",
       [&] {
         Put(stage.home / "new.wav", state());
         fs::rename(stage.home / "new.wav", stage.home / "a.wav");
       }},
      {"helper gone", [&] { fs::remove(stage.home / "copy.dat"); }},
      {"helper changed", [&] { Put(stage.home / "copy.dat", Wave(Noise(2999))); }},
      {"gone", [&] { fs::remove(stage.home / "a.wav"); }},
  };
  for (const auto& event : events) {
    SCOPED_TRACE(event.What);
    ASSERT_TRUE(stage.Killed(9, false));
    event.Happens();
    const std::string found = fs::exists(stage.home / "a.wav") ? state() : "";
    const MendedEdits mended = stage.New().Mend();
    EXPECT_EQ(mended.Left, std::vector<Text>{kA});
    EXPECT_EQ(fs::exists(stage.home / "a.wav") ? state() : "", found);
    EXPECT_EQ(stage.Notes(), 0U);
  }

  Case far = cases[1];
  far.Waves[0].File = L"C:\\stick\\a.wav";
  Stage away(far);
  away.Lay();
  Put(away.home / "stick/a.wav", Wave(far.A, kTail));
  EXPECT_FALSE(RunInProcess([&] {
    WaveEdits edits = away.New();
    KillSwitch::KillAt(9, false);
    away.Apply(edits);
  }));
  fs::rename(away.home / "stick", away.home / "pocket");
  WaveEdits edits = away.New();
  EXPECT_TRUE(edits.Mend().Empty());
  EXPECT_TRUE(edits.Needs(L"C:\\stick\\a.wav"));
  fs::rename(away.home / "pocket", away.home / "stick");
  EXPECT_TRUE(edits.Ready(L"C:\\stick\\a.wav"));
  EXPECT_EQ(Get(away.home / "stick/a.wav"), Wave(far.AfterA, kTail));
  EXPECT_FALSE(edits.Needs(L"C:\\stick\\a.wav"));
}

TEST(Edits, WhatAnEditCannotDoIsRefusedBeforeAnythingChanges) {
  Home home;
  const std::string wave = Wave(Noise(400), kTail);
  Put(home / "a.wav", wave);
  Put(home / "b.txt", "no wave");
  WaveEdits edits(home.Files, Rampe, kBlock);
  const auto error = [&](WaveEdit edit) {
    return ErrorOf([&] { edits.Apply({{std::move(edit)}, {}}); });
  };
  EXPECT_EQ(error({kA, 404, 400, {}}), 62);
  EXPECT_EQ(error({kA, 400, 0xFFFFFFFF, {}}), 61);
  EXPECT_EQ(error({kA, 400, 800, {CopyStep(kA, 0, 400, 404)}}), 62);
  EXPECT_EQ(error({kA, 400, 800, {CopyStep(L"C:\\b.txt", 0, 400, 400)}}), 57);
  EXPECT_EQ(error({L"C:\\none.wav", 400, 400, {}}), 53);
  fs::permissions(home / "a.wav", fs::perms::owner_read);
  {
    const Nobody nobody(home.Folder());
    EXPECT_EQ(error({kA, 400, 400, {ZeroStep(0, 4)}}), 70);
  }
  EXPECT_EQ(Get(home / "a.wav"), wave);
}

}  // namespace vantora::test
