#include "backends/forms/keys.h"
#include "tests/backends/forms/worlds.h"

namespace vantora {
namespace {

TEST_P(Worlds, HandsRefuseWhatAPersonCouldNotDo) {
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
      {"there is no key Any", [&] { hands.Key(form, L"Any"); }},
      {"has no menu open", [&] { hands.ChooseMenu(form, L"mnuOpen"); }},
      {"takes no files", [&] { hands.Drop(form.lvwTracks, {L"C:\\a.wav"}); }},
  };
  person.Then([&] {
    for (const auto& [why, act] : cases) {
      EXPECT_NE(Refusal(act).find(why), std::string::npos) << why << ": " << Refusal(act);
    }
    form.Window.Enabled = false;
    form.OnKey = [&form](int, bool) { return form.Log.emplace_back("key"), true; };
    for (const wchar_t* key : {L"F1", L"Escape"}) {
      EXPECT_NE(Refusal([&] { hands.Key(form, key); }), "");
    }
    EXPECT_NE(Refusal([&] { hands.Close(form); }), "");
    form.EscapeWhileDisabled = form.CloseWhileDisabled = true;
    EXPECT_NE(Refusal([&] { hands.Key(form, L"F1"); }), "");
    hands.Key(form, L"Escape");
    hands.Close(form);
  });
  person.Then([&] { form.Window.Enabled = true; });
  Play(form);
  EXPECT_EQ(form.Log, (std::vector<std::string>{"activate", "key", "close"}));
}

TEST_P(Worlds, AHeldButtonIsReleasedAlsoWhenAnotherIsPressedMeanwhile) {
  FullForm form(loop);
  bool held = true;
  form.imgButton.MouseDown = [&](int) {
    hands.Press(form.chkOn);
    for (int ms = 0; held && ms < 1000; ++ms) {
      loop.DoEvents();
      loop.Sleep(1);
    }
  };
  form.imgButton.MouseUp = [&held](int) { held = false; };
  person.Then([&] { hands.Hold(form.imgButton, 60); });
  Play(form);
  EXPECT_FALSE(held);
  EXPECT_EQ(form.chkOn.Value(), 1);
}

TEST_P(Worlds, AListKeepsTheLineItStandsOnInSight) {
  FullForm form(loop);
  while (form.lstMany.ListCount() < 40) form.lstMany.AddItem(L"muchos");
  const int lines = form.lstMany.Height / kListLine;
  const std::pair<int, int> tops[] = {{40, 40 - lines}, {38, 40 - lines}, {20, 19}, {22, 19}};
  for (const auto& [row, top] : tops) {
    person.Then([&, row = row] { hands.Select(form.lstMany, {row}); });
    person.Then([&, row = row, top = top] { EXPECT_EQ(form.lstMany.TopIndex(), top) << row; });
  }
  person.Then([&] { form.lstMany.Clear(); });
  person.Then([&] { EXPECT_EQ(form.lstMany.TopIndex(), 0); });
  Play(form);
}

TEST_P(Worlds, AMenuIsAnsweredOnceAndClosedByEscape) {
  FullForm form(loop);
  form.Menus = {{L"mnuList",
                 {{L"mnuPlay", L"&Tocar", form.Note("play")},
                  {L"-", L"-", nullptr},
                  {L"mnuCut", L"Cortar", form.Note("cut"), false}}}};
  const auto open = [&] { loop.PopupMenu(form, form.Menus[0]); };
  person.Then(open)
      .Then([&] {
        EXPECT_NE(Refusal([&] { hands.ChooseMenu(form, L"mnuCut"); }).find("disabled"),
                  std::string::npos);
        EXPECT_NE(Refusal([&] { hands.ChooseMenu(form, L"mnuNone"); }), "");
        hands.ChooseMenu(form, L"mnuPlay");
      })
      .Then(open)
      .Then([&] { hands.Key(form, L"Escape"); })
      .Then([&] { EXPECT_NE(Refusal([&] { hands.ChooseMenu(form, L"mnuPlay"); }), ""); });
  Play(form);
  EXPECT_EQ(form.Log, (std::vector<std::string>{"activate", "play"}));
}

TEST_P(Worlds, AShortcutActsWhereItIsMeantAndAHeldKeyActsOnce) {
  FullForm form(loop);
  form.FirstFocus = false;
  form.OnKey = [&form](int key, bool) {
    if (key == kKeyReturn) form.Log.emplace_back("return");
    return key == 'O';
  };
  const auto shortcut = [&](const char* name, const wchar_t* key, const Control* focus = nullptr,
                            bool repeats = false) {
    const KeyStroke stroke = *KeyByName(key);
    form.Shortcuts.push_back(
        {stroke.Code, stroke.Control, stroke.Alt, focus, repeats, form.Note(name)});
  };
  shortcut("new", L"Ctrl+N");
  shortcut("open", L"Ctrl+O");
  shortcut("up", L"Alt+Up", nullptr, true);
  shortcut("play", L"Space", &form.lvwTracks);
  const auto down = [&](const wchar_t* key, bool repeats) {
    KeyStroke stroke = *KeyByName(key);
    stroke.Repeats = repeats;
    loop.Keys().Down(form, nullptr, stroke, [] {});
  };
  for (const wchar_t* key : {L"Ctrl+N", L"n", L"Ctrl+Shift+N", L"Ctrl+O", L"Alt+Up", L"Space"}) {
    person.Then([&form, key, this] { hands.Key(form, key); });
  }
  // A key that was pressed in another window does nothing here.
  person.Then([&] { down(L"Return", true); }).Then([&] { down(L"Alt+Up", true); });
  for (const wchar_t* key : {L"Ctrl+N", L"Alt+Up", L"Return"}) {
    person.Then([key, down] { down(key, false); }).Then([key, down] { down(key, true); });
  }
  person.Then([&] { loop.SetFocus(form.lvwTracks); }).Then([&] { hands.Key(form, L"Space"); });
  person.Then([&] { loop.SetFocus(form.imgButton); }).Then([&] { hands.Key(form, L"Space"); });
  Play(form);
  EXPECT_EQ(form.Log, (std::vector<std::string>{"activate", "new", "up", "new", "up", "up",
                                                "return", "return", "play", "button 1"}));
}

}  // namespace
}  // namespace vantora
