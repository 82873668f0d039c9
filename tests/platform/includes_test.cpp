#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

namespace vantora::test {

namespace fs = std::filesystem;

// The build prevents includes of higher levels. This test finds headers of the system and of
// libraries by their names: only the standard library's names have no extension.
TEST(Includes, TheProductThePlatformAndTheSoundComponentsKnowTheLanguagesLibraryAlone) {
  const std::regex foreign("\\s*#\\s*include\\s*<(?![a-z_0-9]+>).*");
  std::size_t seen = 0;
  for (const char* folder : {"app", "catalog", "cdinput", "cdwriting", "cover", "dialogs", "medley",
                             "mixer", "recorder", "waveeditor", "platform", "backends/sound"}) {
    const fs::path root = fs::path(VANTORA_SOURCE_DIR) / folder;
    if (!fs::exists(root)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      std::ifstream file(entry.path());
      for (std::string line; std::getline(file, line); ++seen) {
        EXPECT_FALSE(std::regex_match(line, foreign)) << entry.path() << ": " << line;
      }
    }
  }
  EXPECT_GT(seen, 5000U) << "the test has looked at the wrong place";
}

TEST(Includes, ThePlatformHasNoBehaviour) {
  for (const auto& entry : fs::directory_iterator(fs::path(VANTORA_SOURCE_DIR) / "platform")) {
    EXPECT_EQ(entry.path().extension(), ".h");
  }
}

}  // namespace vantora::test
