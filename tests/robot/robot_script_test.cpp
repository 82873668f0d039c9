#include "robot/robot_script.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace vantora {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The number of the line that the parser refuses; 0 when it accepts the script.
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

TEST(RobotScript, ABadLineIsToldWithItsNumberBeforeAnythingRuns) {
  std::istringstream bad(
      "jump|press|press frmX|press frmX.a b|press frmX.a(|press frmX.a(1,2)|press frmX.a(1234567)|"
      "echo \"open|echo \"a\"b|screen 0 768|sound loud|clock 2026-13-01 10:00|"
      "makewave a.wav 1 440|makewave C:\\a.wav 1 440 bits 9|drag frmX.a 1 2000|drop frmX.a b.wav|"
      "select frmX.a 0|key frmX.a F1|choose C:\\a\\b.wav C:\\c\\d.wav|choose C:\\a\\|answer 8|"
      "expect frmX.a = 1|expect frmX.a == 1 2|expect frmX.a ~ \"(\"|expect frmX.a(1,2)(3) == 1|"
      "expect-file C:\\a size big|expect-file C:\\a sha256 12|wait -1|after 10 close|after 10 wait "
      "5|"
      "within 10 press frmX.a|disc insert a.bin|writer fail at 100 %|writer pace slow|"
      "printer paper A5|printer margins 1|printer gone|print|font Arial|font Arial 12 thin|"
      "colour 1,2|colour 1,2,256|colour 1,2,3x");
  for (std::string line; std::getline(bad, line, '|');) {
    EXPECT_EQ(BadLine("# a comment counts\n\nhome h\n" + line + "\nstart\n"), 4) << line;
  }
  EXPECT_EQ(BadLine("home h\necho \xFF\n"), 2);
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

}  // namespace

}  // namespace vantora
