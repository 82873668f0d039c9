#include "backends/headless/headless_loop.h"

#include <gtest/gtest.h>

#include "backends/headless/headless_background.h"
#include "backends/headless/headless_hands.h"
#include "tests/backends/full_form.h"

#include "platform/system_box.h"

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace vantora {
namespace {

class Room : public testing::Test {
 protected:
  Room() {
    loop.TheUser = &person;
    loop.OnError = [this](const Laufzeitfehler& error) { Errors.push_back(error.Nummer); };
  }
  // Shows the form and lets the person act until his story ends.
  void Play(Form& form) {
    loop.Show(form);
    loop.Run();
    EXPECT_TRUE(person.Done());
  }
  std::string Refusal(const std::function<void()>& act) {
    try {
      act();
    } catch (const Unreachable& refused) {
      return refused.what();
    }
    return {};
  }
  std::string WhatStopped(const std::function<void()>& run) {
    try {
      run();
    } catch (const std::logic_error& stopped) {
      return stopped.what();
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
  TestForm form(loop);
  loop.TheUser = nullptr;
  loop.PostAfter(3'600'000, [&] { loop.Quit(); });
  loop.Run();
  EXPECT_EQ(clock.Ticks(), 3'600'000);
  const DateTime now = clock.Now();
  EXPECT_EQ(now.Hour, 11);
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
  form.tmrTick.Enabled = true;  // at 1950: it counts from here
  loop.Pass(120);
  EXPECT_EQ(ticks.back(), 2050);
}

TEST_F(Room, AProgramThatPollsUntilATimeIsOverGetsThere) {
  const std::int64_t until = clock.Ticks() + 2500;
  int turns = 0;
  while (clock.Ticks() < until) {
    loop.DoEvents();
    ++turns;
  }
  EXPECT_LE(turns, 2500);
}

TEST_F(Room, ModalWindowsNestAndEachIsLeftByItsOwnEnd) {
  TestForm outer(loop, L"frmOuter"), middle(loop, L"frmMiddle"), inner(loop, L"frmInner");
  std::string order;
  const auto modal = [&](TestForm& form, const char* name) {
    loop.Post([&, name] {
      loop.ShowModal(form);
      order += name;
    });
  };
  person.Then([&] { modal(middle, "middle "); })
      .Then([&] {
        EXPECT_FALSE(loop.Reachable(outer));
        modal(inner, "inner ");
      })
      .Then([&] {
        EXPECT_EQ(person.Front, &inner);
        EXPECT_FALSE(loop.Reachable(middle));
        loop.Hide(middle);  // from below: the window above still stands
      })
      .Then([&] {
        EXPECT_EQ(order, "");
        loop.Hide(inner);
      })
      .Then([&] { EXPECT_EQ(person.Front, &outer); });
  Play(outer);
  EXPECT_EQ(order, "inner middle ");
  EXPECT_EQ(outer.Count("gotfocus"), 1);
  EXPECT_EQ(middle.Count("gotfocus"), 0);
}

TEST_F(Room, TheEndOfTheProgramLeavesEveryWait) {
  TestForm outer(loop, L"frmOuter"), inner(loop, L"frmInner");
  int left = 0;
  const auto wait = [&](Form& form) {
    try {
      loop.ShowModal(form);
      ADD_FAILURE() << "the wait came back";
    } catch (const ProgrammEnde&) {
      ++left;
      throw;
    }
  };
  person.Then([&] { loop.Post([&] { wait(outer); }); })
      .Then([&] { loop.Post([&] { wait(inner); }); })
      .Then([&] { loop.Post([] { throw ProgrammEnde{}; }); });
  EXPECT_THROW(loop.Run(), ProgrammEnde);
  EXPECT_EQ(left, 2);
  EXPECT_THROW(loop.DoEvents(), ProgrammEnde);
  EXPECT_THROW(loop.Sleep(1), ProgrammEnde);
}

TEST_F(Room, WhatCanNeverEndIsStoppedWithAWordThatSaysWhy) {
  TestForm form(loop, L"frmModal");
  {
    HeadlessLoop forEver(clock);
    EXPECT_NE(WhatStopped([&] { forEver.Run(); }).find("wait for ever"), std::string::npos);
  }
  {
    HeadlessLoop round(clock);
    round.MaxTurns = 1000;
    std::function<void()> again = [&] { round.Post(again); };
    round.Post(again);
    EXPECT_NE(WhatStopped([&] { round.Run(); }).find("round and round"), std::string::npos);
  }
  loop.MaxVirtualMs = 10'000;
  // A program that swallows whatever its own statements throw cannot go on either.
  loop.Post([&] {
    for (int i = 0; i < 3; ++i) {
      try {
        loop.Sleep(20'000);
      } catch (const std::exception&) {
        continue;
      }
    }
  });
  EXPECT_NE(WhatStopped([&] { loop.Run(); }).find("without an end"), std::string::npos);
}

TEST_F(Room, AUserWhoFindsAFaultStopsTheProgramAndAStoryMayNotEndBeforeAModalWindow) {
  TestForm form(loop, L"frmModal");
  person.Then([&] { loop.Post([&] { loop.ShowModal(form); }); }).Then([] {
    throw std::runtime_error("line 3: not what was expected");
  });
  EXPECT_EQ(WhatStopped([&] { loop.Run(); }), "line 3: not what was expected");

  HeadlessLoop other(clock);
  TestForm modal(other, L"frmOther");
  Person idle;
  other.TheUser = &idle;
  other.Post([&] { other.ShowModal(modal); });
  EXPECT_THROW(other.Run(), ProgrammEnde);
  EXPECT_EQ(other.LeftOpen(), L"frmOther");
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

TEST_F(Room, PostedWorkOfThreadsRunsHereInOrder) {
  std::vector<int> seen[2];
  std::vector<std::thread> threads;
  threads.reserve(2);
  for (int t = 0; t < 2; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < 1000; ++i) loop.Post([&, t, i] { seen[t].push_back(i); });
    });
  }
  while (seen[0].size() + seen[1].size() < 2000) loop.DoEvents();
  for (std::thread& thread : threads) thread.join();
  for (const auto& numbers : seen) EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
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
  TestForm modal(loop, L"frmModal");
  form.chkOn.Visible = false;
  form.sldPan.Enabled = false;
  form.lvwTracks.OLEDragDrop = nullptr;
  const struct {
    const char* Why;
    std::function<void()> Act;
  } cases[] = {
      {"is not shown", [&] { hands.Press(other.imgButton); }},
      {"is hidden", [&] { hands.Press(form.chkOn); }},
      {"is disabled", [&] { hands.Drag(form.sldPan, 0, 500); }},
      {"cannot be seen", [&] { hands.Press(form.tmrTick); }},
      {"takes no text", [&] { hands.Type(form.lblTitle, L"x"); }},
      {"has no rows", [&] { hands.Select(form.imgButton, {1}); }},
      {"has no row 6", [&] { hands.Select(form.lstOne, {6}); }},
      {"has no row 0", [&] { hands.Select(form.lvwTracks, {0}); }},
      {"takes one row only",
       [&] {
         hands.Select(form.lstOne, {1, 2});
       }},
      {"takes exactly one row", [&] { hands.Select(form.cboGenre, {}); }},
      {"there is no key", [&] { hands.Key(form, L"Any"); }},
      {"has no menu open", [&] { hands.ChooseMenu(form, L"mnuOpen"); }},
      {"takes no files", [&] { hands.Drop(form.lvwTracks, {L"C:\\a.wav"}); }},
  };
  person.Then([&] {
    for (const auto& each : cases) {
      EXPECT_NE(Refusal(each.Act).find(each.Why), std::string::npos)
          << each.Why << ": " << Refusal(each.Act);
    }
    loop.Post([&] { loop.ShowModal(modal); });
  });
  person.Then([&] {
    EXPECT_NE(Refusal([&] { hands.Press(form.imgButton); }).find("behind frmModal"),
              std::string::npos);
    EXPECT_NE(Refusal([&] { hands.Close(form); }), "");
    loop.Hide(modal);
  });
  person.Then([&] {
    form.Window.Enabled = false;
    EXPECT_NE(Refusal([&] { hands.Key(form, L"F1"); }), "");
  });
  Play(form);
  EXPECT_EQ(form.Log, (std::vector<std::string>{"activate", "gotfocus"}));
}

TEST_F(Room, HandsDoWhatAPersonDoesAndHandlersHearOfIt) {
  FullForm form(loop);
  std::string said;
  form.txtName.Text = L"antes";
  form.txtName.MaxLength = 4;
  form.txtName.LostFocus = [&] { said += "lost "; };
  form.txtName.KeyPress = [](int code) { return code != 'x'; };
  form.cboGenre.Click = [&] { said += "genre "; };
  form.sldPan.Change = [&] { said += std::to_string(form.sldPan.Value()) + " "; };
  form.lvwTracks.ItemClick = [&](int row) { said += "row " + std::to_string(row) + " "; };
  person
      .Then([&] {
        hands.Type(form.txtName, L"axbxcde");
        EXPECT_EQ(form.txtName.Text(), L"abcd") << "refused letters and the limit";
        hands.Select(form.cboGenre, {2});
        EXPECT_EQ(*form.cboGenre.Read(L"Text"), L"Jazz");
        hands.Drag(form.sldPan, 0, 250);
        hands.Select(form.lvwTracks, {1, 3});
        EXPECT_EQ(*form.lvwTracks.Read(L"SelCount"), L"2");
        EXPECT_EQ(said, "lost genre 25 row 3 ");
      })
      .Then([&] {
        hands.Press(form.optPaper(1));
        hands.Press(form.optColour(0));
        EXPECT_TRUE(form.optPaper(1).Value()) << "groups are apart";
        hands.Key(form, L"Down");  // from the colour 0 to the colour 1
        EXPECT_TRUE(form.optColour(1).Value());
        EXPECT_FALSE(form.optColour(0).Value());
        hands.Select(form.lstMany, {2, 4});
        EXPECT_EQ(form.lstMany.SelCount(), 2);
        hands.Press(form.imgButton);
        hands.RightClick(form.imgButton);
        hands.Close(form);
      });
  Play(form);
  EXPECT_EQ(form.Log, (std::vector<std::string>{"activate", "button 1", "button 2", "close"}));
}

TEST_F(Room, TheTabKeyWalksWhatCanTakeTheFocusInTheOrderOfTheForm) {
  FullForm form(loop);
  form.chkOn.Enabled = false;
  form.imgPicture.TabIndex = 99;
  std::vector<Text> walked;
  person.Then([&] {
    loop.SetFocus(form.imgPlain);
    for (int i = 0; i < 3; ++i) {
      hands.Key(form, L"Tab");
      walked.push_back(loop.Focus(form)->Name);
    }
    hands.Key(form, L"Shift+Tab");
    walked.push_back(loop.Focus(form)->Name);
  });
  Play(form);
  EXPECT_EQ(walked, (std::vector<Text>{L"txtName", L"txtNumber", L"optPaper", L"txtNumber"}));
}

TEST_F(Room, AFormThatGoesInItsOwnHandlerTakesTheRestOfThePressWithIt) {
  TestForm behind(loop, L"frmBehind");
  auto form = std::make_unique<FullForm>(loop);
  form->imgButton.MouseDown = [&](int) { form.reset(); };
  person.Then([&] { loop.Show(*form); }).Then([&] { hands.Press(form->imgButton); }).Then([&] {
    EXPECT_EQ(person.Front, &behind);
  });
  Play(behind);
  EXPECT_EQ(form, nullptr);
  EXPECT_EQ(behind.Count("gotfocus"), 1);
}

TEST_F(Room, ABoxOfTheDesktopReturnsTheAnswerToTheHandlerThatAsked) {
  FullForm form(loop);
  int answer = 0;
  form.imgButton.MouseUp = [&](int) { answer = loop.SystemBox(L"¿Seguir?", 4, L"Vantora"); };
  person.Then([&] { hands.Press(form.imgButton); })
      .Then([&] {
        EXPECT_EQ(answer, 0);
        hands.Press(*person.Front->Find(L"picMboxButton", 0));
      })
      .Then([&] { EXPECT_EQ(answer, 6); });
  Play(form);
}

}  // namespace vantora
