#include "backends/linux/linux_system.h"

#include "backends/headless/headless_clock.h"
#include "backends/headless/headless_loop.h"
#include "backends/linux/file_resources.h"
#include "backends/linux/help_opener.h"
#include "backends/linux/thread_background.h"
#include "tests/backends/linux/home.h"

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <thread>

namespace vantora::test {

namespace {

using namespace std::chrono_literals;

bool Within(std::chrono::milliseconds time, const std::function<bool()>& done) {
  for (const auto end = std::chrono::steady_clock::now() + time; !done();) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(2ms);
  }
  return true;
}

}  // namespace

TEST(LinuxSystem, TheSecondInstanceOfAUserKnowsOfTheFirstAlsoWithoutARuntimeFolder) {
  Home one;
  const Home other;
  for (const bool runtime : {true, false}) {
    Put(one / "file", "x");
    one.Places.Runtime = one / (runtime ? "run" : "file");
    auto first = std::make_unique<LinuxSystem>(one.Places, LinuxSystem::Options{});
    EXPECT_FALSE(first->PrevInstance());
    EXPECT_FALSE(first->PrevInstance());
    LinuxPlaces login = one.Places;  // of another session, which has no runtime folder
    login.Runtime.clear();
    LinuxSystem second(one.Places, {}), third(login, {}), neighbour(other.Places, {});
    EXPECT_TRUE(second.PrevInstance());
    EXPECT_TRUE(third.PrevInstance());
    EXPECT_FALSE(neighbour.PrevInstance());
    first.reset();
    EXPECT_FALSE(second.PrevInstance());
  }
}

TEST(LinuxSystem, ViewersGetTheAddressAsItIsAndOnlyOfTheWebOrMail) {
  const Home home;
  const fs::path told = home / "told", viewer = home / "viewer";
  Put(viewer, "#!/bin/sh\nprintf '%s\\n' \"$#:$1\" >>'" + told.string() + "'\n");
  fs::permissions(viewer, fs::perms::owner_all);
  Put(home / "help/index.html", "x");
  Put(home / "help/brennen.html", "x");
  LinuxSystem system(home.Places, {L"1.0.0", home / "help", viewer.string()});
  const std::string help = (home / "help").string();
  std::string expected;
  const auto shows = [&](const std::string& argument) {
    expected += "1:" + argument + "\n";
    EXPECT_TRUE(Within(5000ms, [&] { return Get(told) == expected; })) << Get(told);
  };
  system.OpenLink(L"https://example.org/?a=$(id)&b=';'");
  shows("https://example.org/?a=$(id)&b=';'");
  for (const Text refused : {L"file:///etc/passwd", L"--help", L"", L"/bin/sh"}) {
    system.OpenLink(refused);
  }
  system.OpenLink(L"www.example.org");
  shows("https://www.example.org");
  system.OpenHelp(L"C:\\Vantora\\VTR.HLP", L"brennen");
  shows(help + "/brennen.html");
  system.OpenHelp(L"C:\\Vantora\\VTR.HLP", L"../brennen");
  shows(help + "/index.html");
  EXPECT_FALSE(LinuxSystem(home.Places, {L"1", home / "help", "no-viewer"}).OpenHelp(L"", L""));
  EXPECT_FALSE(LinuxSystem(home.Places, {L"1", home / "none", viewer}).OpenHelp(L"", L""));
}

// A page goes to the browser, or to the program's own viewer if the browser cannot show it.
TEST(HelpOpener, APageThatNoBrowserShowsGoesToTheViewer) {
  struct Case {
    const char* What;
    const char* Opener;   // its script; null: there is none
    const char* Handler;  // the browser's desktop file
    bool Viewer;
  };
  for (const Case& c : std::vector<Case>{
           {"a browser that shows it", "exit 0", "web.desktop", false},
           {"no opener", nullptr, "web.desktop", true},
           {"an opener that finds no browser", "exit 3", "", true},
           {"a browser that soon fails", "sleep 0.2; kill -9 $$", "web.desktop", true},
           {"a browser that cannot see the program's files", "exit 0", "boxed.desktop", true}}) {
    SCOPED_TRACE(c.What);
    const Home home;
    const fs::path opener = home / "opener", asker = home / "asker", told = home / "told";
    const auto script = [](const fs::path& file, const std::string& text) {
      Put(file, "#!/bin/sh\n" + text + "\n");
      fs::permissions(file, fs::perms::owner_all);
    };
    if (c.Opener != nullptr) script(opener, "echo \"$1\" >>'" + told.string() + "'\n" + c.Opener);
    script(asker, std::string("echo ") + c.Handler);
    Put(home / "share/applications/web.desktop", "x");
    Put(home / "flatpak/exports/share/applications/boxed.desktop", "x");
    HeadlessClock clock;
    HeadlessLoop loop(clock);
    ThreadBackground background;
    std::vector<fs::path> shown;
    HelpOpener help(
        {opener.string(), asker.string(), {home / "share", home / "flatpak/exports/share"}},
        background, loop, [&](const fs::path& page) { shown.push_back(page); });
    help.Open("page.html");
    const auto seen = [&] {
      loop.DoEvents();
      return c.Viewer ? !shown.empty() : fs::exists(told);
    };
    EXPECT_TRUE(Within(10'000ms, seen));
    help.Open("next.html");  // waits for nothing once the viewer has shown a page
    EXPECT_EQ(shown, c.Viewer ? (std::vector<fs::path>{"page.html", "next.html"})
                              : std::vector<fs::path>{});
  }
}

TEST(ThreadBackground, NoSliceRunsAfterTheJobIsGone) {
  std::atomic<int> slices = 0;
  std::atomic<bool> inside = false;
  auto job = ThreadBackground().Start([&] {
    inside = true;
    std::this_thread::sleep_for(5ms);
    inside = false;
    return ++slices, 0;
  });
  EXPECT_TRUE(Within(5000ms, [&] { return slices >= 2; }));
  job.reset();
  EXPECT_FALSE(inside);
  const int then = slices;
  std::this_thread::sleep_for(30ms);
  EXPECT_EQ(slices, then);
}

TEST(ThreadBackground, DelaysAreKeptShortenedBySpeedAndLeftAtOnce) {
  const auto start = std::chrono::steady_clock::now();
  const auto passed = [&] { return std::chrono::steady_clock::now() - start; };
  std::atomic<int> slices = 0;
  {
    const auto job = ThreadBackground(100).Start([&] { return ++slices < 4 ? 3000 : -1; });
    EXPECT_TRUE(Within(5000ms, [&] { return slices == 4; }));
    EXPECT_TRUE(passed() >= 90ms && passed() < 3000ms);
  }
  ThreadBackground().Start([&] { return ++slices, 60'000; });
  EXPECT_LT(passed(), 5000ms);
}

TEST(FileResources, TextsAreFoundByNumberAlone) {
  const TempFolder folder;
  Put(folder() / "strings.tsv",
      "\xEF\xBB\xBF"
      "0\tVantora\r\n10\tCat\xC3\xA1logo\n11\ta\\tb\\nc\\\\n\n12\t \n\nx\tno\n13 no tab\n14\t");
  Put(folder() / "layouts/frmX.layout", "form 1 2 á\n");
  FileResources resources(folder());
  const std::map<int, Text> texts{
      {0, L"Vantora"}, {10, L"Catálogo"}, {11, L"a\tb\nc\\n"}, {12, L" "}, {14, L""}};
  for (const auto& [number, text] : texts) EXPECT_EQ(resources.LoadResString(number), text);
  EXPECT_EQ(ErrorOf([&] { resources.LoadResString(13); }), 326);
  EXPECT_EQ(resources.Layout(L"frmX"), L"form 1 2 á\n");
  EXPECT_EQ(resources.Layout(L"../layouts/frmX"), L"");
}

}  // namespace vantora::test
