#include "tests/backends/cdio/tray.h"
#include "tests/backends/ear.h"

namespace vantora::test {

namespace {

class Player : public Tray {
 protected:
  struct Tmsf {
    int Track, Minute, Second, Frame;
    bool operator==(const Tmsf&) const = default;
  };
  static Tmsf Unpacked(int packed) {
    const auto word = static_cast<std::uint32_t>(packed);
    const auto byte = [word](unsigned place) {
      return static_cast<int>(word >> (8 * place) & 0xFFU);
    };
    return {byte(0), byte(1), byte(2), byte(3)};
  }
  Tmsf Here() {
    player.TimeFormat(kMciTmsf);
    return Unpacked(player.Position());
  }
  void Seek(int track) {
    player.TimeFormat(kMciTmsf);
    player.To(track);
    player.Command(L"seek");
  }

  HeadlessSoundCard card;
  HeadlessOutput output{loop, clock, card};
  Ear ear{output};
  DiscPlayer player{loop, drives, ear};
  DiscMci mci{drives, player};
};

}  // namespace

TEST_F(Player, TheModesAreThoseOfADeviceThatIsOpenedPlayedAndClosed) {
  Lay({0, 750}, 1500);
  EXPECT_EQ(player.Mode(), kMciNotOpen);
  EXPECT_EQ(player.Tracks(), 0);
  player.FileName(L"D:\\");
  const std::pair<const wchar_t*, int> modes[] = {
      {L"play", kMciNotOpen}, {L"Open", kMciReady}, {L"play", kMciPlay},    {L"Pause", kMciPause},
      {L"play", kMciPlay},    {L"Stop", kMciStop},  {L"Close", kMciNotOpen}};
  for (const auto& [command, mode] : modes) {
    player.Command(command);
    EXPECT_EQ(player.Mode(), mode) << Text(command).size();
    loop.Pass(500);
    if (mode == kMciStop) {
      EXPECT_EQ(Here(), (Tmsf{1, 0, 0, 0})) << "back at the beginning of the track";
    }
  }
  EXPECT_EQ(mci.mciSendString(L"status cd position"), L"");
  player.FileName(L"Q:\\");
  player.Command(L"Open");
  EXPECT_EQ(player.Mode(), kMciNotOpen) << "there is no such drive";
}

TEST_F(Player, ADriveThatMayNotBeUsedIsNotTakenForAnEmptyOne) {
  Put(home / "sr0", "");
  Machine[0].Device = (home / "sr0").string();
  {
    const Nobody nobody(home.Folder());
    fs::permissions(home / "sr0", fs::perms::none);
    player.Command(L"Open");
  }
  EXPECT_LT(player.Mode(), 500);
  EXPECT_EQ(player.Tracks(), 0);
  fs::permissions(home / "sr0", fs::perms::owner_read);
  player.Command(L"Open");
  EXPECT_EQ(player.Mode(), kMciReady);
}

TEST_F(Player, PositionsFollowWhatIsHeard) {
  Lay({0, 75 * 10, 75 * 80}, 75 * 90);
  player.Command(L"Open");
  Seek(2);
  EXPECT_EQ(Here(), (Tmsf{2, 0, 0, 0}));
  player.Command(L"play");
  loop.Pass(65'000);
  EXPECT_EQ(Here(), (Tmsf{2, 1, 5, 0}));
  EXPECT_EQ(mci.mciSendString(L"status cd position"), L"02:01:05:00");
  player.Command(L"Pause");
  loop.Pass(5'000);
  EXPECT_EQ(Here(), (Tmsf{2, 1, 5, 0})) << "a pause stands still";
  player.Command(L"play");
  loop.Pass(7'000);
  EXPECT_EQ(Here(), (Tmsf{3, 0, 2, 0})) << "the next track follows by itself";
  player.TimeFormat(kMciMilliseconds);
  EXPECT_EQ(player.Position(), 84'000) << "two seconds of lead-in come first";
  player.TimeFormat(kMciMsf);
  EXPECT_EQ(Unpacked(player.Position()), (Tmsf{1, 24, 0, 0}));
  loop.Pass(7'990);
  EXPECT_EQ(player.Mode(), kMciPlay);
  loop.Pass(20);
  EXPECT_EQ(player.Mode(), kMciStop) << "the end of the disc";
  Seek(9);
  EXPECT_EQ(player.Mode(), kMciStop) << "a track that is not there";
}

TEST_F(Player, ThePlaceToSeekIsReadInTheTimeFormat) {
  Lay({0, 750}, 1500);
  player.Command(L"Open");
  Seek(2 | 3 << 16 | 10 << 24);
  EXPECT_EQ(Here(), (Tmsf{2, 0, 3, 10}));
  player.TimeFormat(kMciMilliseconds);
  player.To(6000);
  player.Command(L"seek");
  EXPECT_EQ(Here(), (Tmsf{1, 0, 4, 0}));
  player.TimeFormat(kMciMsf);
  player.To(14 << 8 | 7 << 16);
  player.Command(L"seek");
  EXPECT_EQ(Here(), (Tmsf{2, 0, 2, 7}));
}

TEST_F(Player, LengthsAreMillisecondsAndTheLastIsAFrameShort) {
  Lay({0, 100, 4600}, 9100);
  player.Command(L"Open");
  player.TimeFormat(kMciMilliseconds);
  EXPECT_EQ(player.Length(), 9099 * 1000 / 75);
  const int frames[] = {100, 4500, 4499, 0};
  for (int track = 1; track <= 4; ++track) {
    player.Track(track);
    EXPECT_EQ(player.TrackLength(), frames[track - 1] * 1000 / 75) << track;
  }
}

TEST_F(Player, WhatIsHeardIsWhatLiesOnTheDiscFromThePlaceSoughtToTheNextData) {
  const std::string image = Lay({0, 20, 50, 90}, 120, true);
  player.Command(L"Open");
  Seek(2);
  player.Command(L"play");
  loop.Pass(42);
  EXPECT_EQ(Here(), (Tmsf{2, 0, 0, 3}));
  loop.Pass(1000);
  EXPECT_TRUE(ear.Sound == Part(image, 20, 90));
  EXPECT_EQ(player.Mode(), kMciStop);
  Seek(4);
  player.Command(L"play");
  EXPECT_EQ(player.Mode(), kMciStop) << "data makes no sound";
}

TEST_F(Player, WithoutASoundCardPlayingIsRefusedAloud) {
  Lay({0}, 100);
  card.Present = false;
  player.Command(L"Open");
  EXPECT_EQ(ErrorOf([this] { player.Command(L"play"); }), kFehlerEinAusgabe);
  EXPECT_EQ(player.Mode(), kMciReady);
}

TEST_F(Player, TheTableOfContentsIsAskedAsADeviceOfTheControlInterface) {
  EXPECT_EQ(mci.MCI_OPEN(L"D:\\"), -1) << "no disc";
  EXPECT_EQ(mci.MCI_OPEN(L"Q:\\"), -1);
  Lay({0, 178 * 75}, 298 * 75);
  const int device = mci.MCI_OPEN(L"d:");
  ASSERT_GE(device, 1);
  EXPECT_FALSE(mci.MCI_SET(device, 7));
  EXPECT_TRUE(mci.MCI_SET(device, kMciMsf));
  EXPECT_EQ(mci.MCI_STATUS(device, kMciNumberOfTracks, 0), 2);
  EXPECT_EQ(Unpacked(mci.MCI_STATUS(device, kMciPosition, 2)), (Tmsf{3, 0, 0, 0}));
  EXPECT_EQ(Unpacked(mci.MCI_STATUS(device, kMciLength, 2)), (Tmsf{1, 59, 74, 0}));
  EXPECT_EQ(mci.MCI_STATUS(device, kMciLength, 3), -1);
  mci.MCI_CLOSE(device);
  EXPECT_EQ(mci.MCI_STATUS(device, kMciNumberOfTracks, 0), -1);
}

TEST_F(Player, TheMediaIdentityCountsTheLengthOfADiscOfOneOrTwoTracks) {
  EXPECT_EQ(mci.MediaIdentity(L"D:\\"), L"");
  Lay({0, 178 * 75}, 298 * 75);
  EXPECT_EQ(mci.MediaIdentity(L"D:\\"), std::to_wstring(0x000200 + 0x030000 + 298 * 75));
  Eject();
  Lay({0, 178 * 75, 200 * 75 + 3}, 298 * 75);
  EXPECT_EQ(mci.MediaIdentity(L"D:\\"), std::to_wstring(0x000200 + 0x030000 + 0x031603));
}

}  // namespace vantora::test
