// Actions that begin while the editor processes events during its work, and changes of the file by
// another program.

#include "tests/waveeditor/editor_stage.h"

namespace vantora {
namespace {

constexpr std::int64_t kSecond = 44100;
constexpr std::size_t kHead = 44;  // bytes before the sound

class Interruptions : public ::testing::Test, protected EditorBuehne {
 protected:
  // Runs `work` when events are processed next.
  void Meanwhile(const std::function<void()>& work) { b.platform.loop.Post(work); }
  bool Sounds() { return E().Kette().Out().State() == MMWaveOutX::Running; }
  // Another program shortens the open file.
  void Shorten(std::int64_t frames) {
    std::filesystem::resize_file(b.platform.machine.files.SystemPath(kDatei),
                                 static_cast<std::uintmax_t>(frames * 4) + kHead);
  }
};

TEST_F(Interruptions, EscapeLeavesTheScanAndNoOtherKeyReachesTheWindow) {
  Oeffne(10 * kSecond);
  ASSERT_NE(E().WellenPunkte().back().Rechts, 0);
  Ziehe(1000, 2000);
  Meanwhile([this] {
    EXPECT_TRUE(E().ScanLaeuft());
    EXPECT_ANY_THROW(b.platform.hands.Key(E(), L"F1"));
    b.platform.hands.Key(E(), L"Escape");
  });
  Druecke(E().imgMute);
  EXPECT_EQ(E().WellenPunkte().back().Rechts, 0) << "it has read to the end";
  EXPECT_FALSE(E().ScanLaeuft());
  EXPECT_TRUE(E().Window.Enabled());
}

TEST_F(Interruptions, AnEditAfterEscapeWhileOpeningCanBeUndone) {
  b.Wave(kDatei, 10 * kSecond);
  const std::string before = b.Lies(kDatei);
  const std::function<void()> edits[] = {[this] { Druecke(E().imgNormalize); },
                                         [this] { Druecke(E().imgMute); },
                                         [this] { b.platform.hands.Key(E(), L"Ctrl+X"); }};
  for (const auto& edit : edits) {
    Meanwhile([this] {
      ASSERT_TRUE(E().ScanLaeuft());
      E().Form_KeyDown(kKeyEscape, false);
    });
    Oeffne();
    ASSERT_FALSE(E().Kette().SourceFile().Wave.IsOpen());
    if (&edit != edits) Ziehe(1000, 2000);
    edit();
    EXPECT_TRUE(b.Lies(kDatei) != before);
    Druecke(E().imgSteuerung(6));
    EXPECT_TRUE(b.Lies(kDatei) == before);
    b.Tu([this] { E().CloseMe(); });
  }
  EXPECT_TRUE(b.Gesagt().empty());
}

TEST_F(Interruptions, AShortClickOnAWindButtonLeavesWindowAndSoundOfOneMind) {
  Oeffne(60 * kSecond);
  for (const int button : {3, 4, 3}) {
    Druecke(E().imgSteuerung(0));
    Vergeht(1500);
    Druecke(E().imgSteuerung(button));  // released while the sound is being ended
    EXPECT_TRUE(E().Spielt() && Sounds());
    EXPECT_FALSE(E().imgNormalize.Enabled());
    Druecke(E().imgSteuerung(1));
    EXPECT_FALSE(E().Spielt() || Sounds());
    EXPECT_TRUE(E().imgNormalize.Enabled());
  }
}

TEST_F(Interruptions, ConnectingTwiceAtOnceGoesOnFromTheSamePlace) {
  Oeffne(60 * kSecond);
  Druecke(E().imgSteuerung(0));
  Vergeht(5000);
  const auto place = [this] {
    return E().Kette().SourceFile().Wave.PlayStart + E().Kette().Out().Position() / 4;
  };
  const auto before = place();
  EXPECT_NEAR(static_cast<double>(before), 5.0 * kSecond, 0.2 * kSecond);
  Vergeht(5000);
  b.Tu([this] {
    Meanwhile([this] { E().RuntimeConnections(); });
    E().RuntimeConnections();
  });
  EXPECT_NEAR(static_cast<double>(place()), static_cast<double>(before) + 5.0 * kSecond,
              0.2 * kSecond);
  EXPECT_TRUE(E().Spielt() && Sounds());
}

TEST_F(Interruptions, AFileThatIsShortenedEndsThePlayingAndIsNotReplacedByItsRest) {
  Oeffne(20 * kSecond);
  Druecke(E().imgSteuerung(0));
  Vergeht(500);
  Shorten(2 * kSecond);
  Vergeht(10'000);  // some seconds have been read ahead
  EXPECT_FALSE(E().Spielt());
  b.Tu([this] { E().CloseMe(); });

  Oeffne(10 * kSecond);
  HalbeLautstaerke();
  Druecke(E().imgSteuerung(5));
  Shorten(kSecond);
  const std::string rest = b.Lies(kDatei);
  b.Antwortet(kNein);
  Vergeht(3000);
  EXPECT_TRUE(b.Gesagt().at(0).ends_with(L"(62)"));
  EXPECT_EQ(b.Lies(kDatei), rest);
  EXPECT_TRUE(E().Window.Enabled());
}

}  // namespace
}  // namespace vantora
