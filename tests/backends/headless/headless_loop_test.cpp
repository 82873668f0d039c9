#include "backends/headless/headless_loop.h"

#include <gtest/gtest.h>

#include "backends/headless/headless_background.h"
#include "backends/headless/headless_hands.h"
#include "tests/backends/hands_story.h"

#include <stdexcept>

namespace vantora {
namespace {

class Room : public testing::Test {
 protected:
  Room() {
    loop.TheUser = &person;
    loop.OnError = [this](const Laufzeitfehler& error) { Errors.push_back(error.Nummer); };
  }
  // Shows the form and runs the loop until the person's steps are done.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
  }
  // The message of the error that `act` throws; blank when it succeeds.
  static std::string Refusal(const std::function<void()>& act) {
    try {
      act();
    } catch (const std::exception& refused) {
      return refused.what();
    }
    return {};
  }

  HeadlessClock clock;
  HeadlessLoop loop{clock};
  HeadlessHands hands{loop};
  Person person;
  std::vector<int> Errors;
};

}  // namespace

TEST_F(Room, AnHourOfWaitingTakesNoTimeAndTheClockHasPassedIt) {
  loop.TheUser = nullptr;
  loop.PostAfter(3'600'000, [&] { loop.Quit(); });
  loop.Run();
  EXPECT_EQ(clock.Ticks(), 3'600'000);
  EXPECT_EQ(clock.Now().Hour, 11);
  loop.Sleep(13 * 3'600'000);
  EXPECT_EQ(clock.Now().Day, 25) << "past midnight";
  EXPECT_DOUBLE_EQ(clock.Timer(), 0);
  clock.Set({2028, 2, 28, 23, 59, 59});
  loop.Sleep(1000);
  EXPECT_EQ(clock.Now().Day, 29);
}

TEST_F(Room, WorkRunsInTheOrderOfItsTimesAndPostedWorkFirst) {
  std::string order;
  loop.PostAfter(20, [&] { order += "c"; });
  loop.PostAfter(10, [&] {
    order += "a";
    loop.Post([&] { order += "b"; });
  });
  loop.PostAfter(20, [&] { order += "d"; });
  loop.PostAfter(0, [&] { order += "1"; });
  loop.Post([&] { order += "0"; });
  loop.Pass(19);
  EXPECT_EQ(order, "01ab");
  loop.Pass(1);
  EXPECT_EQ(order, "01abcd");
  EXPECT_EQ(clock.Ticks(), 20);
}

TEST_F(Room, ATimerTicksAtItsTimesWhileItIsOnAndNotForWhatItMissed) {
  FullForm form(loop);
  std::vector<std::int64_t> ticks;
  form.tmrTick.OnTimer = [&] { ticks.push_back(clock.Ticks()); };
  form.tmrTick.Interval = 100;
  loop.Pass(350);
  EXPECT_EQ(ticks, (std::vector<std::int64_t>{100, 200, 300}));
  loop.Sleep(500);  // busy until 850
  loop.Pass(100);
  EXPECT_EQ(ticks.size(), 5U) << "one late tick at 850, one at 950";
  form.tmrTick.Enabled = false;
  loop.Pass(1000);
  EXPECT_EQ(ticks.size(), 5U);
  form.tmrTick.Enabled = true;  // at 1950, when its interval starts again
  loop.Pass(120);
  EXPECT_EQ(ticks.back(), 2050);
}

TEST_F(Room, WhatCanNeverEndIsStoppedWithAWordThatSaysWhy) {
  HeadlessLoop forEver(clock), round(clock);
  EXPECT_NE(Refusal([&] { forEver.Run(); }).find("wait for ever"), std::string::npos);
  round.MaxTurns = 1000;
  std::function<void()> again = [&] { round.Post(again); };
  round.Post(again);
  EXPECT_NE(Refusal([&] { round.Run(); }).find("round and round"), std::string::npos);
  loop.MaxVirtualMs = 10'000;
  // A program that catches the errors of its own statements cannot go on either.
  loop.Post([&] {
    for (int i = 0; i < 3; ++i) EXPECT_ANY_THROW(loop.Sleep(20'000));
  });
  EXPECT_NE(Refusal([&] { loop.Run(); }).find("without an end"), std::string::npos);
}

TEST_F(Room, AHandlerThatFailsIsToldAndTheProgramStaysUp) {
  FullForm form(loop);
  form.imgButton.MouseUp = [](int) { throw Laufzeitfehler(53, L"No existe"); };
  form.imgPlain.MouseUp = [](int) { throw std::runtime_error("broken"); };
  person.Then([&] { hands.Press(form.imgButton); })
      .Then([&] { hands.Press(form.imgPlain); })
      .Then([&] { hands.Press(form.chkOn); });
  Play(form);
  EXPECT_EQ(Errors, (std::vector<int>{53, 5}));
  EXPECT_EQ(form.chkOn.Value, 1);
}

TEST_F(Room, SlicesRunInTurnWithTheTimersUntilTheyAreDoneOrNotWantedAnyMore) {
  HeadlessBackground background(loop);
  std::vector<std::int64_t> at;
  const auto job = background.Start([&] {
    at.push_back(clock.Ticks());
    return at.size() == 3 ? -1 : at.size() == 1 ? 0 : 500;
  });
  EXPECT_TRUE(at.empty()) << "the first slice waits for the loop";
  loop.Pass(2000);
  EXPECT_EQ(at, (std::vector<std::int64_t>{1, 2, 502}));
  int slices = 0;
  std::unique_ptr<BackgroundJob> dropped = background.Start([&] {
    if (++slices == 3) dropped.reset();
    return 0;
  });
  loop.Pass(100);
  EXPECT_EQ(slices, 3);
}

TEST_F(Room, HandsRefuseWhatAPersonCouldNotDo) {
  FullForm form(loop), other(loop);
  form.chkOn.Visible = false;
  form.sldPan.Enabled = false;
  const std::vector<int> two = {1, 2};
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"is not shown", [&] { hands.Press(other.imgButton); }},
      {"is hidden", [&] { hands.Press(form.chkOn); }},
      {"is disabled", [&] { hands.Drag(form.sldPan, 0, 500); }},
      {"cannot be seen", [&] { hands.Press(form.tmrTick); }},
      {"takes no text", [&] { hands.Type(form.lblTitle, L"x"); }},
      {"has no rows", [&] { hands.Select(form.imgButton, {1}); }},
      {"has no row 6", [&] { hands.Select(form.lstOne, {6}); }},
      {"has no row 0", [&] { hands.Select(form.lvwTracks, {0}); }},
      {"takes one row only", [&] { hands.Select(form.lstOne, two); }},
      {"takes exactly one row", [&] { hands.Select(form.cboGenre, {}); }},
      {"there is no key", [&] { hands.Key(form, L"Any"); }},
      {"has no menu open", [&] { hands.ChooseMenu(form, L"mnuOpen"); }},
      {"takes no files", [&] { hands.Drop(form.lvwTracks, {L"C:\\a.wav"}); }},
  };
  person.Then([&] {
    for (const auto& [why, act] : cases) {
      EXPECT_NE(Refusal(act).find(why), std::string::npos) << why << ": " << Refusal(act);
    }
    form.Window.Enabled = false;
    EXPECT_NE(Refusal([&] { hands.Key(form, L"F1"); }), "");
  });
  Play(form);
  EXPECT_EQ(form.Log, std::vector<std::string>{"activate"});
}

TEST_F(Room, AListKeepsTheLineItStandsOnInSightAndAWindowCanWantNoFirstFocus) {
  FullForm form(loop);
  form.FirstFocus = false;
  while (form.lstMany.ListCount() < 40) form.lstMany.AddItem(L"muchos");
  const int lines = form.lstMany.Height / kListLine;
  const std::pair<int, int> tops[] = {{40, 40 - lines}, {38, 40 - lines}, {20, 19}, {22, 19}};
  person.Then([&] { hands.Key(form, L"Return"); });
  for (const auto& [row, top] : tops) {
    person.Then([&, row = row] { hands.Select(form.lstMany, {row}); });
    person.Then([&, row = row, top = top] { EXPECT_EQ(form.lstMany.TopIndex(), top) << row; });
  }
  person.Then([&] { form.lstMany.Clear(); });
  person.Then([&] { EXPECT_EQ(form.lstMany.TopIndex(), 0); });
  Play(form);
  EXPECT_EQ(form.Log, (std::vector<std::string>{"activate"})) << "Return reached no button";
}

TEST_F(Room, HandsReachIntoContainersAndPointAtPlaces) {
  FullForm form(loop);
  HandsStory story(form, loop, hands);
  story.Tell(person);
  Play(form);
}

TEST_F(Room, HandsDoWhatAPersonDoesAndHandlersHearOfIt) {
  FullForm form(loop);
  std::string said;
  form.txtName.MaxLength = 4;
  form.txtName.LostFocus = [&] { said += "lost "; };
  form.txtName.KeyPress = [](int code) { return code != 'x'; };
  form.sldPan.Change = [&] { said += std::to_string(form.sldPan.Value()) + " "; };
  form.lvwTracks.ItemClick = [&](int row) { said += "row " + std::to_string(row) + " "; };
  person.Then([&] {
    hands.Type(form.txtName, L"axbxcde");
    EXPECT_EQ(form.txtName.Text(), L"abcd") << "refused letters and the limit";
    hands.Drag(form.sldPan, 0, 250);
    hands.Select(form.lvwTracks, {1, 3});
    EXPECT_EQ(*form.lvwTracks.Read(L"SelCount"), L"2");
    EXPECT_EQ(said, "lost 25 row 3 ");
    hands.Press(form.optPaper(1));
    hands.Press(form.optColour(0));
    EXPECT_TRUE(form.optPaper(1).Value()) << "groups are apart";
    hands.Key(form, L"Down");  // from colour 0 to colour 1
    EXPECT_TRUE(form.optColour(1).Value());
    EXPECT_FALSE(form.optColour(0).Value());
    hands.RightClick(form.imgButton);
  });
  Play(form);
  EXPECT_EQ(form.Log, (std::vector<std::string>{"activate", "button 2"}));
}

}  // namespace vantora
