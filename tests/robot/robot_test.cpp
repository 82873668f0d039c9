// The robot with the real program, without a screen: the messages of failing stories.

#include "robot/robot.h"

#include <gmock/gmock.h>

#include "main/headless_platform.h"
#include "main/story_stage.h"
#include "tests/support/buehne.h"

#include <sstream>

namespace vantora {

namespace {

using testing::HasSubstr;

class RobotPlays : public testing::Test {
 protected:
  // Runs the lines in an empty home without the wizard. Returns the robot's message, blank for
  // success.
  std::string Play(const std::string& lines) {
    return PlayAll("home h\nsetting Show_Start_Assistant 0\n" + lines);
  }
  std::string PlayAll(const std::string& script) {
    StoryStage<HeadlessPlatform> stage(std::filesystem::path(VANTORA_SOURCE_DIR) / "resources");
    Robot robot("story", folder.Path().string(), stage, said, false);
    const bool passed = robot.Run(script);
    EXPECT_EQ(passed, robot.Error().empty());
    return robot.Error();
  }

  TemporaryHome folder;
  std::ostringstream said;
};

TEST_F(RobotPlays, WhatFailsIsToldWithScriptLineWishAndFinding) {
  struct Case {
    std::string Lines, Error;
  };
  const std::vector<Case> cases = {
      {"start\nexpect frmHauptForm.lvwKatalog.Count == 1\n",
       "story:4: frmHauptForm.lvwKatalog.Count was to be == \"1\", it is \"0\""},
      {"start\nexpect-window frmAbout\n",
       "story:4: frmAbout was to be in front, it is frmHauptForm"},
      {"start\nexpect frmAbout.Caption == a\n", "story:4: frmAbout was to be shown"},
      {"start\npress frmHauptForm.imgNada\n", "was to have the control imgNada, it has none"},
      {"start\nexpect frmHauptForm.lvwKatalog(1,2) == a\n", "story:4: there was to be something"},
      {"start\nanswer 7\n", "story:4: a message box was to be in front, it is frmHauptForm"},
      {"start\nchoose cancel\n", "story:4: the file dialog was to be in front"},
      {"start\ncolour 1,2,3\n", "story:4: the colour dialog was to be in front"},
      {"start\npress frmHauptForm.imgBrennen\nanswer 6\n", "the box was to offer the answer 6"},
      {"start\npress frmHauptForm.imgBrennen\npress frmHauptForm.Logo\n", "story:5: frmHauptForm"},
      {"start\npress frmHauptForm.imgLiedImport\nchoose C:\\nada\\a.wav\n",
       "story:5: the folder nada was to be in C:\\, there is none"},
      {"start\npress frmHauptForm.imgLiedImport\nchoose Q:\\a.wav\n", "was to have the drive Q:"},
      {"start\nhome other\n", "story:4: can only be done while the program does not run"},
      {"start\nwithin 200 expect-window frmAbout\n", "story:4: frmAbout was to be in front"},
      {"start\nclose\npress frmHauptForm.Logo\n", "story:5: the program was to run"},
      {"start\nafter 60000 echo late\nclose\n", "story:4: was to be done later"},
      {"start\nafter 10 expect-window frmAbout\nwait 100\necho no\n",
       "story:4: frmAbout was to be"},
      {"expect-file C:\\nada.wav exists\n", "story:3: C:\\nada.wav was to be there, it is missing"},
      {"delete C:\\nada.wav\n", "story:3: "},
      {"writefile C:\\a text x\nexpect-file C:\\a sha256 " + std::string(64, '0') + "\n",
       "it has 2d711642b726b04401627ca9fbac32f5c8530fb1903cc4db02258717921a4881"},
      {"echo one\nstart\njump\n", "story:5: there is no command \"jump\""},
  };
  for (const Case& c : cases) {
    EXPECT_THAT(Play(c.Lines), HasSubstr(c.Error)) << c.Lines;
    EXPECT_EQ(said.str(), "") << c.Lines;
  }
}

TEST_F(RobotPlays, AScriptThatEndsInFrontOfAModalWindowFailsAndOneInTheMainWindowPasses) {
  EXPECT_EQ(Play("start\n"), "");
  EXPECT_THAT(Play("start\npress frmHauptForm.Logo\n"), HasSubstr("frmAbout stands open"));
  EXPECT_EQ(Play("start\npress frmHauptForm.Logo\nafter 50 key frmAbout Escape\n"), "");
  EXPECT_THAT(PlayAll("start\n"), HasSubstr("story:1: the script has not named a home yet"));
}

TEST_F(RobotPlays, WaitingLetsThePromisedTimePassAndAfterComesInBetween) {
  EXPECT_EQ(Play("start\nafter 900 echo two\nafter 100 echo one\nwait 500\necho half\nwait 500\n"
                 "echo end\nclose\n"),
            "");
  EXPECT_EQ(said.str(), "one\nhalf\ntwo\nend\n");
}

}  // namespace

}  // namespace vantora
