#include "tests/backends/hands_story.h"
#include "tests/qt/stage.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

namespace vantora {
namespace {

using Log = std::vector<std::string>;

double MsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

QWidget* Find(const char* name) {
  const QWidgetList all = QApplication::allWidgets();
  const auto found = std::find_if(all.begin(), all.end(), [&](const QWidget* widget) {
    return widget->objectName() == QLatin1String(name);
  });
  return found == all.end() ? nullptr : *found;
}

TEST_F(Stage, TheWindowThatComesBackToTheFrontIsToldOncePerModalWindow) {
  TestForm outer(loop, L"frmOuter"), middle(loop, L"frmMiddle"), inner(loop, L"frmInner");
  person.Then([&] { loop.Post([&] { loop.ShowModal(middle); }); })
      .Then([&] {
        EXPECT_EQ(loop.Front(), &middle);
        EXPECT_FALSE(loop.Reachable(outer));
        loop.Post([&] { loop.ShowModal(inner); });
      })
      .Then([&] {
        EXPECT_EQ(person.Front, &inner);
        EXPECT_FALSE(loop.Reachable(middle));
        loop.Hide(inner);
      })
      .Then([&] { loop.Hide(middle); })
      .Then([&] { EXPECT_EQ(person.Front, &outer); });
  Play(outer);
  EXPECT_EQ(outer.Log, (Log{"activate", "gotfocus"}));
  EXPECT_EQ(middle.Log, (Log{"activate", "gotfocus"}));
  EXPECT_EQ(inner.Log, (Log{"activate"}));
}

TEST_F(Stage, AClickOnADisabledWindowReachesNoHandlerNotEvenThatOfALabel) {
  FullForm form(loop);
  int clicks = 0;
  form.lblTitle.Click = [&clicks] { ++clicks; };
  const auto click = [] {
    QWidget* label = Find("lblTitle");
    ASSERT_NE(label, nullptr);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const QPointF place(2, 2);
      QMouseEvent event(type, place, label->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                        Qt::NoModifier);
      QApplication::sendEvent(label, &event);
    }
  };
  person
      .Then([&] {
        form.Window.Enabled = false;
        loop.DoEvents();
        click();
        EXPECT_EQ(clicks, 0);
        form.Window.Enabled = true;
        loop.DoEvents();
      })
      .Then([&] { click(); })
      .Then([&] { EXPECT_EQ(clicks, 1); });
  Play(form);
}

TEST_F(Stage, ALongListIsFollowedLineByLineAndNeverScrollsSideways) {
  FullForm form(loop);
  while (form.lstMany.ListCount() < 40) form.lstMany.AddItem(Text(200, L'm'));
  int scrolled = 0;
  form.lstMany.Scroll = [&] { ++scrolled; };
  QListWidget* list = nullptr;
  person.Then([&] {
    list = qobject_cast<QListWidget*>(Find("lstMany"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(list->visualItemRect(list->item(0)).height(), kListLine / 15);
    form.lstMany.ListIndex = 30;
  });
  person.Then([&] {
    EXPECT_EQ(list->row(list->itemAt(3, 3)), form.lstMany.TopIndex());
    EXPECT_GT(form.lstMany.TopIndex(), 20);
    EXPECT_EQ(scrolled, 0) << "the program has moved it, and not the user";
    list->verticalScrollBar()->setValue(5);
    EXPECT_EQ(form.lstMany.TopIndex(), 5);
    EXPECT_EQ(scrolled, 1);
    form.lstMany.TopIndex = 12;
  });
  person.Then([&] { EXPECT_EQ(list->row(list->itemAt(3, 3)), 12); });
  Play(form);
}

TEST_F(Stage, ACaptionGoesDimWithItsButtonAndNoStrayKeyPressesAButtonThatWaits) {
  FullForm form(loop);
  form.FirstFocus = false;
  form.lblTitle.Of = &form.imgButton;
  person.Then([&] { hands.Key(form, L"Return"); })
      .Then([&] {
        EXPECT_EQ(form.Count("button 1"), 0);
        EXPECT_TRUE(Find("lblTitle")->isEnabled());
        form.imgButton.Enabled = false;
      })
      .Then([&] {
        EXPECT_FALSE(Find("lblTitle")->isEnabled());
        form.imgButton.Enabled = true;
      })
      .Then([&] {
        EXPECT_TRUE(Find("lblTitle")->isEnabled());
        hands.Key(form, L"Tab");
      })
      .Then([&] { hands.Key(form, L"Return"); })
      .Then([&] { EXPECT_EQ(form.Count("button 1"), 1); });
  Play(form);
}

TEST_F(Stage, TheTabKeyPassesAButtonThatTakesNoFocus) {
  FullForm form(loop);
  form.FirstFocus = false;
  form.imgButton.TabStop = false;
  person.Then([&] { hands.Key(form, L"Tab"); }).Then([&] { hands.Key(form, L"Return"); }).Then([&] {
    hands.Press(form.imgButton);
  });
  Play(form);
  EXPECT_EQ(form.Log, (Log{"activate", "plain", "button 1"}));
}

TEST_F(Stage, EscapeReachesADisabledWindowThatAsksForItAndNoOtherKeyDoes) {
  FullForm form(loop);
  std::vector<int> told;
  form.OnKey = [&told](int key, bool) {
    told.push_back(key);
    return true;
  };
  const auto press = [&](int key) {
    QWidget* window = loop.WindowOf(form);
    QWidget* focus = window->focusWidget() == nullptr ? window : window->focusWidget();
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(focus, &event);
  };
  person.Then([&] {
    form.Window.Enabled = false;
    press(Qt::Key_Escape);
    EXPECT_TRUE(told.empty());
    form.EscapeWhileDisabled = true;
    press(Qt::Key_F1);
    EXPECT_TRUE(told.empty());
    press(Qt::Key_Escape);
    EXPECT_EQ(told, std::vector<int>{kKeyEscape});
    form.Window.Enabled = true;
  });
  Play(form);
}

TEST_F(Stage, ReturnLetsGoAButtonThatWorksWhileItIsHeld) {
  FullForm form(loop);
  form.FirstFocus = false;
  bool held = false;
  int turns = 0;
  form.imgButton.MouseDown = [&](int) {
    held = true;
    while (held && ++turns < 1000) loop.DoEvents();
  };
  form.imgButton.MouseUp = [&held](int) { held = false; };
  person.Then([&] { hands.Key(form, L"Tab"); }).Then([&] { hands.Key(form, L"Return"); }).Then([&] {
    EXPECT_FALSE(held);
    EXPECT_GT(turns, 0);
    EXPECT_LT(turns, 1000);
  });
  Play(form);
}

TEST_F(Stage, HandsReachIntoContainersAndPointAtPlaces) {
  FullForm form(loop);
  HandsStory story(form, loop, hands);
  story.Tell(person);
  Play(form);
}

// Every way into a handler is left through widgets of a form that is no more.
TEST_F(Stage, AFormMayGoInAnyHandlerAndTheNextOneWorks) {
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
    person.Then([&] { std::this_thread::sleep_for(std::chrono::milliseconds(4)); });
    person.Then([&] { EXPECT_EQ(form, nullptr) << "way " << gone; });
  }
  Play(behind);
  EXPECT_EQ(gone, static_cast<int>(std::size(ways)));
  EXPECT_EQ(errors, Log{});
}

TEST_F(Stage, WorkFromThreadsRunsInOrderOnTheInterfaceThread) {
  constexpr int kWorks = 500;
  TestForm form(loop);
  const auto self = std::this_thread::get_id();
  std::vector<int> seen;
  bool elsewhere = false;
  std::thread thread([&] {
    for (int i = 0; i < kWorks; ++i) {
      loop.Post([&, i] {
        elsewhere = elsewhere || std::this_thread::get_id() != self;
        seen.push_back(i);
        if (seen.size() == kWorks) loop.Quit();
      });
      if (i % 100 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
  });
  loop.TheUser = nullptr;  // so that the loop really sleeps between two posts
  loop.Show(form);
  loop.Run();
  thread.join();
  EXPECT_FALSE(elsewhere);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST_F(Stage, TimersRunWhileEnabledEvenOfAFormThatIsNotShown) {
  FullForm hidden(loop);
  loop.TheUser = nullptr;
  int ticks = 0;
  hidden.tmrTick.OnTimer = [&] {
    if (++ticks == 5) hidden.tmrTick.Enabled = false;
  };
  hidden.tmrTick.Interval = 40;
  loop.PostAfter(800, [&] { loop.Quit(); });
  const double ms = MsOf([&] { loop.Run(); });
  EXPECT_EQ(ticks, 5);
  EXPECT_GE(ms, 800 / 20.0 - 1) << "the program's time must not pass faster than it was told to";
  hidden.tmrTick.Enabled = true;
  loop.PostAfter(200, [&] { loop.Quit(); });
  loop.Run();
  EXPECT_GT(ticks, 5);
}

TEST_F(Stage, DelayedWorkRunsInTheOrderOfItsTimes) {
  std::string order;
  loop.TheUser = nullptr;
  loop.PostAfter(60, [&] { order += "c"; });
  loop.PostAfter(20, [&] { order += "a"; });
  loop.PostAfter(20, [&] { order += "b"; });
  loop.PostAfter(100, [&] { loop.Quit(); });
  loop.Run();
  EXPECT_EQ(order, "abc");
}

TEST_F(Stage, AProgramThatEndsLeavesEveryWaitAndRunThrows) {
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

TEST_F(Stage, AHandlerThatFailsIsReportedAndTheProgramStaysUp) {
  FullForm form(loop);
  form.imgButton.MouseUp = [](int) { throw Laufzeitfehler(53, L"No existe"); };
  form.imgPlain.MouseUp = [](int) { throw std::runtime_error("broken"); };
  person.Then([&] { hands.Press(form.imgButton); })
      .Then([&] { hands.Press(form.imgPlain); })
      .Then([&] { hands.Press(form.chkOn); })
      .Then([&] { EXPECT_EQ(form.chkOn.Value, 1); });
  Play(form);
  EXPECT_EQ(errors.size(), 2U);
}

TEST_F(Stage, AStoryThatEndsInFrontOfAModalWindowEndsTheProgram) {
  TestForm modal(loop, L"frmModal");
  person.Then([&] { loop.Post([&] { loop.ShowModal(modal); }); });
  EXPECT_THROW(loop.Run(), ProgrammEnde);
  EXPECT_EQ(loop.LeftOpen(), L"frmModal");
}

TEST_F(Stage, ThePersonIsNotAskedInDoEventsNorBeforePostedWork) {
  FullForm form(loop);
  Log order;
  form.imgButton.MouseUp = [&](int) {
    for (int i = 0; i < 20; ++i) {
      loop.DoEvents();
      loop.Sleep(20);
    }
    loop.Post([&] { order.emplace_back("posted"); });
    order.emplace_back("handler");
  };
  person.Then([&] { hands.Press(form.imgButton); }).Then([&] { order.emplace_back("person"); });
  Play(form);
  EXPECT_EQ(order, (Log{"handler", "posted", "person"}));
}

TEST_F(Stage, ABusyProgramDoesNotShutThePersonOut) {
  TestForm form(loop);
  bool going = true;
  std::function<void()> slice = [&] {
    if (going) loop.Post(slice);
  };
  person.Then([&] { loop.Post(slice); }).Then([&] { going = false; });
  Play(form);
}

TEST_F(Stage, ThousandsOfSettingsCostOnePaint) {
  FullForm form(loop);
  loop.Show(form);
  const auto settle = [&] {
    for (int i = 0; i < 20; ++i) loop.DoEvents();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    loop.DoEvents();
    return loop.Paints();
  };
  const auto before = settle();
  for (int i = 0; i < 5000; ++i) {
    form.lblTitle.Caption = std::to_wstring(i);
    form.sldPan.Value = i % 100;
    form.lvwTracks.ListItems(1).SetSubItems(1, std::to_wstring(i));
  }
  EXPECT_EQ(settle() - before, 1);
}

TEST_F(Stage, AWindowThatAlwaysChangesIsPaintedNoOftenerThanAScreenShows) {
  FullForm form(loop);
  loop.Show(form);
  loop.DoEvents();
  const auto before = loop.Paints();
  const double ms = MsOf([&] {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(80);
    for (int i = 0; std::chrono::steady_clock::now() < end; ++i) {
      form.lblTitle.Caption = std::to_wstring(i);
      loop.DoEvents();
    }
  });
  EXPECT_GE(loop.Paints() - before, 3);
  EXPECT_LE(static_cast<double>(loop.Paints() - before), ms / 10 + 2);
}

TEST_F(Stage, OnlyWhatLooksDifferentIsPaintedAndADrawingAtOnce) {
  FullForm form(loop);
  loop.Show(form);
  const auto paint = [&] {
    const auto before = loop.Paints();
    loop.DoEvents();
    return loop.Paints() - before;
  };
  while (paint() > 0) continue;
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  form.Window.Enabled = false;
  EXPECT_EQ(paint(), 0) << "nothing looks different";
  form.Window.Enabled = true;
  EXPECT_EQ(paint(), 0);
  form.lblTitle.Caption = L"one";
  EXPECT_EQ(paint(), 1);
  form.lblTitle.Caption = L"two";
  EXPECT_EQ(paint(), 0) << "words can wait";
  DrawItem line;
  line.Points = {0, 0, 300, 300};
  form.picWave.Draw(line);
  EXPECT_EQ(paint(), 1);
}

TEST_F(Stage, AWindowThatFillsTheScreenStillDoesWhenItComesBack) {
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  TestForm form(loop);
  Place(form.Window, 0, 0, screen.width() * 15, screen.height() * 15);
  form.HasBorder = false;
  form.FillsScreen = true;
  const auto look = [&] {
    const QWidget* window = Find("frmTest");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isFullScreen());
    EXPECT_EQ(window->geometry(), screen);
  };
  person.Then(look)
      .Then([&] { loop.Minimize(form); })
      .Then([&] { loop.Show(form); })
      .Then(look)
      .Then([&] { form.Window.Width = 6000; })
      .Then([&] { EXPECT_FALSE(Find("frmTest")->isFullScreen()); });
  Play(form);
}

// Where a mouse is that nobody presses, and that was pressed when the window took no input.
TEST_F(Stage, APictureHearsOfTheMouseAboveItAndOfNoButtonThatWasNotPressedOnIt) {
  FullForm form(loop);
  std::string said;
  form.picWave.MouseMove = [&](int button) {
    said += std::to_string(button) + "@" + std::to_string(form.picWave.MouseX) + "," +
            std::to_string(form.picWave.MouseY) + " ";
  };
  const auto send = [](QEvent::Type type, QPointF place, Qt::MouseButtons held) {
    QWidget* picture = Find("picWave");
    ASSERT_NE(picture, nullptr);
    EXPECT_TRUE(picture->hasMouseTracking());
    QMouseEvent event(type, place, picture->mapToGlobal(place),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held,
                      Qt::NoModifier);
    QApplication::sendEvent(picture, &event);
  };
  person.Then([&] {
    send(QEvent::MouseMove, {10, 4}, Qt::NoButton);
    form.Window.Enabled = false;
    send(QEvent::MouseButtonPress, {10, 4}, Qt::LeftButton);
    form.Window.Enabled = true;
    send(QEvent::MouseMove, {11, 4}, Qt::LeftButton);
    send(QEvent::MouseButtonPress, {11, 4}, Qt::LeftButton);
    send(QEvent::MouseMove, {-2, 300}, Qt::LeftButton);
    EXPECT_EQ(said, "0@150,60 0@165,60 1@-30,4500 ");
  });
  Play(form);
}

TEST_F(Stage, AMinimizedWindowIsNotInFront) {
  TestForm back(loop, L"frmBack"), front(loop, L"frmFront");
  person.Then([&] { loop.Show(front); })
      .Then([&] { loop.Minimize(front); })
      .Then([&] {
        EXPECT_EQ(person.Front, &back);
        EXPECT_TRUE(front.Visible());
        EXPECT_FALSE(loop.Reachable(front));
        loop.Show(front);
      })
      .Then([&] { EXPECT_EQ(person.Front, &front); });
  Play(back);
  EXPECT_EQ(back.Count("gotfocus"), 1);
}

TEST_F(Stage, AScreenReaderFindsAFaderAsASliderWithItsNameAndValue) {
  FullForm form(loop);
  form.knob.Value = 37;
  QAccessibleInterface* read = nullptr;
  person.Then([&] {
    read = QAccessible::queryAccessibleInterface(loop.WidgetOf(form.knob));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->role(), QAccessible::Slider);
    EXPECT_EQ(read->text(QAccessible::Name), "Volumen");
    EXPECT_EQ(read->valueInterface()->currentValue().toInt(), 37);
    read->valueInterface()->setCurrentValue(60);
    EXPECT_EQ(form.knob.Value, 60) << "and moves it";
  });
  Play(form);
}

TEST_F(Stage, AScreenReaderFindsALevelAsABarWithItsNameAndValue) {
  FullForm form(loop);
  form.Level.AccessibleName = Text(L"Nivel izquierdo");
  form.Level.Active = true;
  form.Level.PeakLeft = 1037;  // 30 of the 60 decibels
  form.Level.PeakRight = 32767;
  form.Level.Shown = Ears::Left;
  person.Then([&] {
    const auto* read = QAccessible::queryAccessibleInterface(loop.WidgetOf(form.Level));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->role(), QAccessible::ProgressBar);
    EXPECT_EQ(read->text(QAccessible::Name), "Nivel izquierdo");
    EXPECT_EQ(read->text(QAccessible::Value), "50 %");
  });
  Play(form);
}

}  // namespace
}  // namespace vantora
