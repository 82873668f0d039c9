#include "main/robot/robot_script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace vantora {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The line that the parser complains of; 0 when it takes the script.
int BadLine(const std::string& script) {
  try {
    ParseScript(script);
    return 0;
  } catch (const ScriptError& error) {
    return error.Line;
  }
}

ScriptLine OneLine(const std::string& script) {
  std::vector<ScriptLine> lines = ParseScript(script);
  EXPECT_EQ(lines.size(), 1U) << script;
  return std::move(lines.front());
}

TEST(RobotScript, QuotesKeepBlanksAndHashesAndADoubledQuoteIsOne) {
  const ScriptLine line =
      OneLine("\xEF\xBB\xBF  echo \"a  b\" c#d \"\" \"#1 \"\"x\"\"\"  # said\r\n");
  EXPECT_EQ(line.Value, L"a  b c#d  #1 \"x\"");
  EXPECT_EQ(line.Words.size(), 4U);
}

TEST(RobotScript, AVariableOfTheEnvironmentStaysWithinItsWordAndOneThatIsMissingIsTold) {
  ::setenv("VANTORA_TEST_PORT", "4000 \"x\" ${HOME}", 1);
  const ScriptLine line = OneLine("setting A 127.0.0.1:${VANTORA_TEST_PORT}/${VANTORA_TEST_PORT}");
  EXPECT_EQ(line.Value, L"127.0.0.1:4000 \"x\" ${HOME}/4000 \"x\" ${HOME}");
  EXPECT_EQ(BadLine("home h\necho \"a ${VANTORA_TEST_PORT\"\n"), 2);
  ::unsetenv("VANTORA_TEST_PORT");
  EXPECT_EQ(BadLine("home h\nwithin 5 expect frmX.a == ${VANTORA_TEST_PORT}\n"), 2);
  EXPECT_EQ(OneLine("echo $5 {a}").Value, L"$5 {a}");
}

TEST(RobotScript, EmptyLinesAndCommentsCountInTheNumbersOfLines) {
  const std::vector<ScriptLine> lines = ParseScript("# a story\n\nhome a\n   \nstart\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].Number, 3);
  EXPECT_EQ(lines[1].Number, 5);
}

TEST(RobotScript, ABadLineIsToldWithItsNumberBeforeAnythingRuns) {
  const std::vector<std::string> bad = {"jump",
                                        "press",
                                        "press frmX",
                                        "press frmX.a.Caption",
                                        "press frmX.a b",
                                        "press frmX.a(",
                                        "press frmX.a(1,2)",
                                        "press .a",
                                        "press frmX.a(-1)",
                                        "press frmX.a(1234567)",
                                        "echo \"open",
                                        "echo \"a\"b",
                                        "screen 1024",
                                        "screen 1024 big",
                                        "screen 0 768",
                                        "sound loud",
                                        "colours 16 1",
                                        "clock 2026-13-01 10:00",
                                        "clock today 10:00",
                                        "makewave a.wav 1 440",
                                        "makewave C:\\a.wav x 440",
                                        "makewave C:\\a.wav 1 440 stereo",
                                        "makewave C:\\a.wav 1 440 bits 9",
                                        "writefile C:\\a",
                                        "writefile C:\\a bytes b",
                                        "drag frmX.a 1",
                                        "drag frmX.a 1 2000",
                                        "drop frmX.a",
                                        "drop frmX.a b.wav",
                                        "type frmX.a",
                                        "select frmX.a 0",
                                        "select frmX.a one",
                                        "key frmX.a F1",
                                        "key frmX",
                                        "menu",
                                        "choose",
                                        "choose C:\\a\\b.wav C:\\c\\d.wav",
                                        "choose C:\\a\\",
                                        "choose a\\b.wav",
                                        "answer",
                                        "answer 8",
                                        "window frmX",
                                        "close now",
                                        "expect frmX.a",
                                        "expect frmX.a = 1",
                                        "expect frmX.a ==",
                                        "expect frmX.a == 1 2",
                                        "expect frmX.a ~ \"(\"",
                                        "expect frmX.a(1,2,3) == 1",
                                        "expect frmX.a(1,2)(3) == 1",
                                        "expect-box",
                                        "expect-window frmX.Caption",
                                        "expect-file C:\\a",
                                        "expect-file a exists",
                                        "expect-file C:\\a size big",
                                        "expect-file C:\\a sha256 12",
                                        "wait",
                                        "wait -1",
                                        "after 10",
                                        "after 10 close",
                                        "after 10 choose cancel",
                                        "after 10 wait 5",
                                        "after soon press frmX.a",
                                        "within 10 press frmX.a",
                                        "within 10 expect frmX.a",
                                        "disc",
                                        "disc insert",
                                        "disc insert a.bin",
                                        "writer",
                                        "writer fail",
                                        "writer fail Disc",
                                        "writer fail at 40",
                                        "writer fail at 100 %",
                                        "writer not-ready",
                                        "writer pace slow",
                                        "linein a.wav",
                                        "shot",
                                        "echo \xFF"};
  for (const std::string& line : bad)
    EXPECT_EQ(BadLine("home h\n" + line + "\nstart\n"), 2) << line;
}

TEST(RobotScript, EveryCommandOfTheBookIsTaken) {
  const std::string good =
      "home a-home\nscreen 1024 768\nsound off\ncolours 16\nclock 2026-11-24 10:00\nsetting A 1\n"
      "copy a.wav C:\\a.wav\nmakewave C:\\p.wav 2.5 440 mono rate 48000 bits 8\n"
      "makemp3 C:\\p.mp3 3 440\nwritefile C:\\t text \"\"\ndelete C:\\t\nstart\n"
      "press frmX.a(0)\ndoubleclick frmX.a\nrightclick frmX.a\ndrag frmX.a 0 1000\n"
      "drop frmX.a C:\\a.wav C:\\b.wav\ntype frmX.a \"\"\nselect frmX.a\nselect frmX.a 1 3\n"
      "key frmX Ctrl+A\nmenu \"Borrar todo\"\nchoose C:\\a.wav \"C:\\b c.wav\"\nchoose a.vtr\n"
      "choose cancel\nanswer 6\nwindow close\nwindow close frmX\nclose\n"
      "expect frmX.a(0)(1,2).Selected != True\nexpect frmX.Caption < 5\nexpect-box ~ \"^a.*b$\"\n"
      "expect-window frmX\nexpect-file C:\\a size 176444\nexpect-file C:\\a missing\n"
      "wait 1500\nafter 3000 press frmX.a\nwithin 500 expect-box == a\ndisc insert a.cue\n"
      "disc eject\nwriter fail AddTrack\nwriter fail AddTrack 2\nwriter fail at 40 %\n"
      "writer fail none\nwriter not-ready 2\nwriter pace full\nwriter pace 8\nlinein play a.wav\n"
      "shot pictures/main.png\necho\n";
  EXPECT_EQ(BadLine(good), 0);
}

TEST(RobotScript, ATargetIsTakenApartIntoWindowControlBracketsAndProperty) {
  struct Case {
    Text Word, Form, Control, Property;
    std::vector<int> Index, Cell;
  };
  const std::vector<Case> cases = {
      {L"frmX", L"frmX", L"", L"", {}, {}},
      {L"frmX.Caption", L"frmX", L"", L"Caption", {}, {}},
      {L"frmX.imgÜber", L"frmX", L"imgÜber", L"", {}, {}},
      {L"frmX.lst.Count", L"frmX", L"lst", L"Count", {}, {}},
      {L"frmX.lbl.Caption", L"frmX", L"lbl", L"Caption", {}, {}},
      {L"frmX.but(0)", L"frmX", L"but", L"", {0}, {}},
      {L"frmX.lvw(12,3)", L"frmX", L"lvw", L"", {12, 3}, {}},
      {L"frmX.lvw(0)(1,2).Selected", L"frmX", L"lvw", L"Selected", {0}, {1, 2}},
  };
  for (const Case& c : cases) {
    const Target target = ParseTarget(c.Word, 1);
    EXPECT_EQ(target.Form, c.Form);
    EXPECT_EQ(target.Control, c.Control);
    EXPECT_EQ(target.Property, c.Property);
    EXPECT_EQ(target.Index, c.Index);
    EXPECT_EQ(target.Cell, c.Cell);
  }
}

TEST(RobotScript, NumbersAreComparedAsNumbersAndAllElseAsText) {
  EXPECT_TRUE(Compares(L"10", Compare::Greater, L"9"));
  EXPECT_TRUE(Compares(L"-2", Compare::Less, L"1.5"));
  EXPECT_TRUE(Compares(L"07", Compare::Equal, L"7"));
  EXPECT_TRUE(Compares(L"00:10", Compare::Less, L"00:9"));
  EXPECT_TRUE(Compares(L"", Compare::NotEqual, L"0"));
  EXPECT_FALSE(Compares(L"a", Compare::Equal, L"A"));
  EXPECT_TRUE(Compares(L"Su catálogo dura", Compare::Matches, L"cat.logo|disco"));
  EXPECT_FALSE(Compares(L"10", Compare::Matches, L"^1$"));
}

TEST(RobotScript, APathIsCutIntoDriveFoldersAndName) {
  const ScriptPath full = ParsePath(L"C:\\Música\\mar abierto\\a.b.wav");
  EXPECT_EQ(full.Drive, L"C");
  EXPECT_THAT(full.Folders, ElementsAre(L"Música", L"mar abierto"));
  EXPECT_EQ(full.Name, L"a.b.wav");
  const ScriptPath root = ParsePath(L"D:\\b.wav");
  EXPECT_EQ(root.Drive, L"D");
  EXPECT_THAT(root.Folders, IsEmpty());
  const ScriptPath bare = ParsePath(L"b.wav");
  EXPECT_TRUE(bare.Drive.empty());
  EXPECT_EQ(bare.Name, L"b.wav");
}

TEST(RobotScript, TheLineBehindAfterIsALineOfItsOwn) {
  const ScriptLine line = OneLine("after 3000 writer fail at 40 %");
  EXPECT_THAT(line.Numbers, ElementsAre(3000));
  ASSERT_NE(line.Inner, nullptr);
  EXPECT_EQ(line.Inner->Verb, L"writer");
  EXPECT_THAT(line.Inner->Numbers, ElementsAre(40));
  EXPECT_FALSE(ActsOnProgram(line));
  EXPECT_TRUE(ActsOnProgram(OneLine("within 3000 expect frmX.a == 1")));
}

}  // namespace

}  // namespace vantora
