#include "tests/backends/forms/worlds.h"

#include <stdexcept>

namespace vantora {
namespace {

using Log = std::vector<std::string>;

// A form that also logs when it is painted and when a key is released.
struct Reporting final : TestForm {
  using TestForm::TestForm;
  void Form_Paint() override { Log.emplace_back("paint"); }
  void Form_KeyUp(int key) override { Log.push_back("up " + std::to_string(key)); }
};

TEST_P(Worlds, WindowsLearnInOrderThatTheyCameWentAndCameBack) {
  Reporting outer(loop, L"frmOuter"), inner(loop, L"frmInner");
  TextBox first(outer, L"txtFirst"), second(outer, L"txtSecond");
  Place(first, 0, 0, 900, 300);
  Place(second, 0, 600, 900, 300);
  first.GotFocus = outer.Note("first");
  first.LostFocus = outer.Note("first lost");
  second.GotFocus = outer.Note("second");
  outer.OnKey = [&](int key, bool) {
    if (key == kKeyReturn) loop.ShowModal(inner);
    if (key == kKeyReturn) outer.Log.emplace_back("back");
    return true;
  };
  person.Then([&] { loop.SetFocus(second); })
      .Then([&] { hands.Key(outer, L"Return"); })
      .Then([&] {
        EXPECT_EQ(loop.Front(), &inner);
        EXPECT_FALSE(loop.Reachable(outer));
        loop.Hide(inner);
      })
      .Then([&] { loop.Show(outer); });
  Play(outer);
  EXPECT_EQ(outer.Log, (Log{"activate", "first", "paint", "first lost", "second", "up 13",
                            "gotfocus", "paint", "back"}));
  EXPECT_EQ(inner.Log, (Log{"activate", "paint"}));
}

TEST_P(Worlds, AMinimizedWindowIsNotInFrontAndTakesNoInput) {
  TestForm back(loop, L"frmBack"), front(loop, L"frmFront");
  person.Then([&] { loop.Show(front); })
      .Then([&] { loop.Minimize(front); })
      .Then([&] {
        EXPECT_EQ(person.Front, &back);
        EXPECT_TRUE(front.Visible());
        EXPECT_NE(Refusal([&] { hands.Key(front, L"F1"); }), "");
        loop.Show(front);
      })
      .Then([&] { EXPECT_EQ(person.Front, &front); })
      .Then([&] { hands.Key(back, L"F1"); })
      .Then([&] { EXPECT_EQ(person.Front, &back) << "a window comes to the front by a click"; });
  Play(back);
  EXPECT_EQ(back.Count("gotfocus"), 2);
}

// Each handler destroys its own form. The handler then returns through widgets of a form that no
// longer exists.
TEST_P(Worlds, AFormMayGoInAnyHandlerAndTheNextOneWorks) {
  TestForm behind(loop, L"frmBehind");
  std::unique_ptr<FullForm> form;
  int gone = 0;
  const auto leave = [&] {
    form.reset();
    ++gone;
    loop.DoEvents();
  };
  const auto leaveFor = [&](int) { leave(); };
  const auto leaveKey = [&](int, bool) { return leave(), true; };
  const auto focus = [&](Control& control) {
    loop.SetFocus(control);
    hands.Key(*form, L"Delete");
  };
  const std::pair<std::function<void()>, std::function<void()>> ways[] = {
      {[&] { form->imgButton.MouseUp = leaveFor; }, [&] { hands.Press(form->imgButton); }},
      {[&] { form->imgButton.MouseDown = leaveFor; }, [&] { hands.Press(form->imgButton); }},
      {[&] { form->txtName.Change = leave; }, [&] { hands.Type(form->txtName, L"abc"); }},
      {[&] { form->chkOn.Click = leave; }, [&] { hands.Press(form->chkOn); }},
      {[&] { form->optPaper(1).Click = leave; }, [&] { hands.Press(form->optPaper(1)); }},
      {[&] { form->cboGenre.Click = leave; }, [&] { hands.Select(form->cboGenre, {2}); }},
      {[&] { form->lstOne.Click = leave; }, [&] { hands.Select(form->lstOne, {2}); }},
      {[&] { form->lvwTracks.ItemClick = leaveFor; }, [&] { hands.Select(form->lvwTracks, {2}); }},
      {[&] { form->lvwTracks.KeyUp = leaveFor; }, [&] { focus(form->lvwTracks); }},
      {[&] { form->sldPan.Change = leave; }, [&] { hands.Drag(form->sldPan, 100, 900); }},
      {[&] { form->OnKey = leaveKey; }, [&] { hands.Key(*form, L"F1"); }},
      {[&] { form->OnClose = leave; }, [&] { hands.Close(*form); }},
      {[&] { form->txtNumber.GotFocus = leave; }, [&] { hands.Press(form->txtNumber); }},
      {[&] { form->tmrTick.OnTimer = leave; }, [&] { form->tmrTick.Interval = 1; }},
  };
  for (const auto& [prepare, act] : ways) {
    person.Then([&] {
      form = std::make_unique<FullForm>(loop);
      loop.Show(*form);
    });
    person.Then([&] {
      prepare();
      act();
      loop.PostAfter(40, [] {});
    });
    person.Then([&] { loop.Sleep(80); }).Then([&] { EXPECT_EQ(form, nullptr) << "way " << gone; });
  }
  Play(behind);
  EXPECT_EQ(gone, static_cast<int>(std::size(ways)));
  EXPECT_EQ(errors, std::vector<int>{});
}

TEST_P(Worlds, OverdueWorkComesInTheOrderOfItsTimesAndNewWorkAfterIt) {
  FullForm form(loop);
  std::string order;
  const auto note = [&](char c) { return [&order, c] { order += c; }; };
  form.tmrTick.OnTimer = note('t');
  form.tmrTick.Interval = 300;
  person.Then([&] {
    loop.PostAfter(400, note('d'));
    loop.PostAfter(200, [&] {
      order += 'b';
      loop.Post(note('f'));
      loop.PostAfter(0, note('g'));
    });
    loop.PostAfter(200, note('c'));
    loop.Post(note('a'));
    loop.DoEvents();
    EXPECT_EQ(order, "a");
    loop.Sleep(500);
    loop.DoEvents();
    EXPECT_EQ(order, "abctd");
    form.tmrTick.Enabled = false;
    loop.DoEvents();
    EXPECT_EQ(order, "abctdfg");
  });
  Play(form);
}

TEST_P(Worlds, ATimerTicksWhileItIsOnNotForWhatItMissedAndNeverInsideItself) {
  FullForm hidden(loop);
  loop.TheUser = nullptr;
  int inside = 0, deepest = 0, ticks = 0;
  hidden.tmrTick.OnTimer = [&] {
    deepest = std::max(deepest, ++inside);
    if (++ticks == 2) hidden.tmrTick.Enabled = false;
    loop.Sleep(300);
    loop.DoEvents();
    if (ticks == 2) hidden.tmrTick.Restart();  // a restart must not enter the handler again either
    loop.Sleep(300);
    loop.DoEvents();
    if (ticks == 4) hidden.tmrTick.Enabled = false;
    --inside;
  };
  hidden.tmrTick.Interval = 100;
  loop.DoEvents();
  loop.Sleep(1000);
  loop.DoEvents();
  EXPECT_EQ(ticks, 1);
  loop.PostAfter(4000, [&] { loop.Quit(); });
  loop.Run();
  EXPECT_EQ(ticks, 4);
  EXPECT_EQ(deepest, 1);
}

TEST_P(Worlds, AProgramThatEndsLeavesEveryWaitAndRunThrows) {
  TestForm outer(loop, L"frmOuter"), inner(loop, L"frmInner");
  int left = 0;
  const auto wait = [&](Form& form) {
    EXPECT_THROW(loop.ShowModal(form), ProgrammEnde);
    ++left;
    throw ProgrammEnde{};
  };
  person.Then([&] { loop.Post([&] { wait(outer); }); })
      .Then([&] { loop.Post([&] { wait(inner); }); })
      .Then([&] { loop.Post([] { throw ProgrammEnde{}; }); })
      .Then([&] { ADD_FAILURE() << "nobody is asked after the end"; });
  EXPECT_THROW(loop.Run(), ProgrammEnde);
  EXPECT_EQ(left, 2);
  EXPECT_THROW(loop.DoEvents(), ProgrammEnde);
  EXPECT_THROW(loop.Sleep(1), ProgrammEnde);
  EXPECT_THROW(loop.ShowModal(inner), ProgrammEnde);
}

TEST_P(Worlds, AHandlerThatFailsIsReportedAndTheProgramStaysUp) {
  FullForm form(loop);
  form.imgButton.MouseUp = [](int) { throw Laufzeitfehler(53, L"No existe"); };
  form.imgPlain.MouseUp = [](int) { throw std::runtime_error("broken"); };
  person.Then([&] { hands.Press(form.imgButton); })
      .Then([&] { hands.Press(form.imgPlain); })
      .Then([&] { hands.Press(form.chkOn); })
      .Then([&] { EXPECT_EQ(form.chkOn.Value, 1); });
  Play(form);
  EXPECT_EQ(errors, (std::vector<int>{53, 5}));
}

TEST_P(Worlds, APersonWaitsForAnswersButNotForEver) {
  FullForm form(loop);
  Log order;
  bool going = true;
  std::function<void()> slice = [&] {
    if (going) loop.Post(slice);
  };
  form.imgButton.MouseUp = [&](int) {
    for (int i = 0; i < 20; ++i) {
      loop.DoEvents();
      loop.Sleep(20);
    }
    loop.Post([&] { order.emplace_back("posted"); });
    loop.Post(slice);
    order.emplace_back("handler");
  };
  person.Then([&] { hands.Press(form.imgButton); }).Then([&] {
    order.emplace_back("person");
    going = false;
  });
  Play(form);
  EXPECT_EQ(order, (Log{"handler", "posted", "person"}));
}

TEST_P(Worlds, WorkThatWasToComeAtItsTimeCarriesThatTime) {
  TestForm form(loop);
  std::int64_t planned = 0, seen = 0;
  person.Then([&] {
    planned = loop.EventMs() + 200;
    loop.PostAfter(200, [&] { seen = loop.EventMs(); });
    loop.Sleep(1000);
    EXPECT_GE(loop.EventMs() - planned, 700);
  });
  person.Then([&] { EXPECT_NEAR(static_cast<double>(seen - planned), 0, 100); });
  Play(form);
}

}  // namespace
}  // namespace vantora
