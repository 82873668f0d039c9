#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace vantora::test {

namespace {

namespace fs = std::filesystem;

const std::set<std::string> kProduct = {"app",      "catalog",  "cdinput",   "cdwriting",
                                        "cover",    "dialogs",  "medley",    "mixer",
                                        "recorder", "spectrum", "waveeditor"};

// Headers of the language's library that the product uses; one that is not here is the system's or
// a library's until somebody adds it.
const std::set<std::string> kStandard = {"algorithm",     "any",
                                         "array",         "atomic",
                                         "bit",           "charconv",
                                         "chrono",        "clocale",
                                         "cmath",         "compare",
                                         "complex",       "concepts",
                                         "cstddef",       "cstdint",
                                         "cstdio",        "cstdlib",
                                         "cstring",       "ctime",
                                         "cwchar",        "cwctype",
                                         "deque",         "exception",
                                         "filesystem",    "fstream",
                                         "functional",    "initializer_list",
                                         "iomanip",       "ios",
                                         "iostream",      "istream",
                                         "iterator",      "limits",
                                         "list",          "map",
                                         "memory",        "mutex",
                                         "numbers",       "numeric",
                                         "optional",      "ostream",
                                         "random",        "ranges",
                                         "ratio",         "regex",
                                         "set",           "span",
                                         "sstream",       "stdexcept",
                                         "string",        "string_view",
                                         "system_error",  "thread",
                                         "tuple",         "type_traits",
                                         "unordered_map", "unordered_set",
                                         "utility",       "variant",
                                         "vector"};

struct Include {
  std::string Where, What;
  bool Quoted = false;
};

std::vector<Include> IncludesBelow(const std::string& folder) {
  std::vector<Include> found;
  const fs::path root = fs::path(VANTORA_SOURCE_DIR) / folder;
  if (!fs::exists(root)) return found;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
    std::ifstream file(entry.path());
    int number = 0;
    for (std::string line; std::getline(file, line);) {
      ++number;
      const std::size_t word = line.find_first_not_of(" \t#");
      if (line.find('#') == std::string::npos || word == std::string::npos ||
          line.compare(word, 7, "include") != 0) {
        continue;
      }
      const std::size_t open = line.find_first_of("\"<");
      const std::size_t close = line.find_last_of("\">");
      found.push_back({entry.path().lexically_relative(VANTORA_SOURCE_DIR).string() + ":" +
                           std::to_string(number),
                       line.substr(open + 1, close - open - 1), line[open] == '"'});
    }
  }
  return found;
}

// The storey that a quoted include belongs to: "platform", "app", "backends/qt" …
std::string StoreyOf(const std::string& path) {
  const std::size_t first = path.find('/');
  if (path.starts_with("backends/")) return path.substr(0, path.find('/', first + 1));
  return path.substr(0, first);
}

}  // namespace

TEST(Includes, TheProductKnowsTheLanguagesLibraryThePlatformAndItself) {
  std::size_t seen = 0;
  for (const std::string& folder : kProduct) {
    for (const Include& include : IncludesBelow(folder)) {
      ++seen;
      const std::string storey = StoreyOf(include.What);
      const bool allowed = include.Quoted ? storey == "platform" || kProduct.contains(storey)
                                          : kStandard.contains(include.What);
      EXPECT_TRUE(allowed) << include.Where << " includes " << include.What;
    }
  }
  EXPECT_GT(seen, 100U) << "the test has looked at the wrong place";
}

TEST(Includes, ThePlatformKnowsTheLanguagesLibraryAndItself) {
  const auto includes = IncludesBelow("platform");
  EXPECT_GT(includes.size(), 20U);
  for (const Include& include : includes) {
    EXPECT_TRUE(include.Quoted ? StoreyOf(include.What) == "platform"
                               : kStandard.contains(include.What))
        << include.Where << " includes " << include.What;
  }
  for (const auto& entry :
       fs::recursive_directory_iterator(fs::path(VANTORA_SOURCE_DIR) / "platform")) {
    EXPECT_NE(entry.path().extension(), ".cpp") << "the platform has no behaviour";
  }
}

TEST(Includes, ABackEndKnowsThePlatformItselfAndTheSoundComponents) {
  std::size_t seen = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(VANTORA_SOURCE_DIR) / "backends")) {
    if (!entry.is_directory()) continue;
    const std::string self = "backends/" + entry.path().filename().string();
    for (const Include& include : IncludesBelow(self)) {
      if (!include.Quoted) continue;
      ++seen;
      const std::string storey = StoreyOf(include.What);
      EXPECT_TRUE(storey == "platform" || storey == self || storey == "backends/sound")
          << include.Where << " includes " << include.What;
    }
  }
  EXPECT_GT(seen, 100U);
  for (const Include& include : IncludesBelow("backends/sound")) {
    EXPECT_TRUE(include.Quoted || kStandard.contains(include.What))
        << include.Where << ": the sound components are the program's own, without a library";
  }
}

}  // namespace vantora::test
