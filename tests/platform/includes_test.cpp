#include "tests/backends/linux/home.h"

#include <regex>
#include <set>
#include <vector>

namespace vantora::test {

namespace {

// A folder of the product, and those that it may include.
using Level = std::pair<std::string, std::vector<std::string>>;

std::vector<std::string> Folders(const std::string& text) {
  const std::regex folder("[a-z/]+");
  return {std::sregex_token_iterator(text.begin(), text.end(), folder), {}};
}

// One level a match: the folder, and the list.
std::vector<Level> Levels(const std::string& text, const std::regex& level) {
  std::vector<Level> levels;
  for (std::sregex_iterator i(text.begin(), text.end(), level), end; i != end; ++i) {
    levels.emplace_back((*i)[1], Folders((*i)[2]));
  }
  return levels;
}

std::vector<Level> LevelsOfTheBuild() {
  return Levels(Get(VANTORA_SOURCE_DIR "/CMakeLists.txt"),
                std::regex("\n    \"([a-z/]+):([^\"]*)\""));
}

}  // namespace

// The build lets a folder include only what its level lists, so the lists have to be right.
TEST(Levels, TheBuildThePageAndTheTreeHaveTheSameAndAllArrowsPointDown) {
  const std::vector<Level> levels = LevelsOfTheBuild();
  ASSERT_GT(levels.size(), 10U) << "the test has looked at the wrong place";
  const std::string page = Get(VANTORA_SOURCE_DIR "/docs/architecture.md");
  EXPECT_EQ(levels, Levels(page, std::regex("\n\\| \\d+ \\| `([a-z/]+)` \\| \\[([^\\]]*)\\]")));
  std::set<std::string> below;
  for (const auto& [folder, uses] : levels) {
    for (const std::string& used : uses) {
      EXPECT_TRUE(below.contains(used)) << folder << " uses " << used;
    }
    below.insert(folder);
    const std::string numbered = "\n| " + std::to_string(below.size()) + " | `" + folder + "`";
    EXPECT_NE(page.find(numbered), std::string::npos) << numbered;
  }

  std::set<std::string> seen;
  const std::set<std::string> others = {"backends", "bench", "main", "platform", "robot", "tests"};
  for (const auto& top : fs::directory_iterator(VANTORA_SOURCE_DIR)) {
    const std::string name = top.path().filename();
    const bool built = name.front() == '.' || name.starts_with("build");
    if (!top.is_directory() || built || others.contains(name)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
      const fs::path file = entry.path();
      if (file.extension() != ".cpp" && file.extension() != ".h") continue;
      seen.insert(file.parent_path().lexically_relative(VANTORA_SOURCE_DIR));
    }
  }
  EXPECT_EQ(seen, below);
}

// The compiler checks the includes of this program's own headers. Headers of the system and of
// libraries differ by name from those of the language, which have no ending.
TEST(Includes, TheProductAndThePureBackEndsUseTheLanguagesLibraryAlone) {
  const std::regex foreign("\\s*#\\s*include\\s*<(?![a-z_0-9]+>).*");
  std::vector<std::string> folders = {"platform", "backends/forms", "backends/sound"};
  for (const Level& level : LevelsOfTheBuild()) folders.push_back(level.first);
  std::size_t seen = 0;
  for (const std::string& folder : folders) {
    for (const auto& entry :
         fs::recursive_directory_iterator(fs::path(VANTORA_SOURCE_DIR) / folder)) {
      if (entry.path().filename() == "fft.cpp") continue;  // uses a library for the transform
      std::ifstream file(entry.path());
      for (std::string line; std::getline(file, line); ++seen) {
        EXPECT_FALSE(std::regex_match(line, foreign)) << entry.path() << ": " << line;
      }
    }
  }
  EXPECT_GT(seen, 5000U) << "the test has looked at the wrong place";
}

}  // namespace vantora::test
