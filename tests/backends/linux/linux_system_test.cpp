#include "backends/linux/linux_system.h"

#include <gtest/gtest.h>

#include "backends/linux/file_resources.h"
#include "backends/linux/linux_clock.h"
#include "backends/linux/thread_background.h"
#include "tests/backends/linux/home.h"

#include <atomic>
#include <chrono>
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

TEST(LinuxSystem, TheSecondInstanceOfAUserKnowsOfTheFirst) {
  const Home one, other;
  auto first = std::make_unique<LinuxSystem>(one.Places, LinuxSystem::Options{});
  EXPECT_FALSE(first->PrevInstance());
  EXPECT_FALSE(first->PrevInstance());
  LinuxSystem second(one.Places, {}), neighbour(other.Places, {});
  EXPECT_TRUE(second.PrevInstance());
  EXPECT_FALSE(neighbour.PrevInstance());
  first.reset();
  EXPECT_FALSE(second.PrevInstance());
}

TEST(LinuxSystem, TheVersionIsReadFromItsText) {
  LinuxSystem system({}, {L"3.14.15-rc1", {}});
  EXPECT_EQ(system.Major(), 3);
  EXPECT_EQ(system.Minor(), 14);
  EXPECT_EQ(system.Revision(), 15);
  EXPECT_EQ(LinuxSystem({}, {L"2", {}}).Revision(), 0);
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
  system.OpenLink(L"www.example.org");
  shows("https://www.example.org");
  for (const Text refused : {L"file:///etc/passwd", L"--help", L"", L"/bin/sh"}) {
    system.OpenLink(refused);
  }
  system.OpenHelp(L"C:\\Vantora\\VTR.HLP", L"brennen");
  shows(help + "/brennen.html");
  system.OpenHelp(L"C:\\Vantora\\VTR.HLP", L"../brennen");
  shows(help + "/index.html");
  EXPECT_FALSE(
      LinuxSystem(home.Places, {L"1.0.0", home / "help", "no-such-viewer"}).OpenHelp(L"", L""));
  EXPECT_FALSE(
      LinuxSystem(home.Places, {L"1.0.0", home / "none", viewer.string()}).OpenHelp(L"", L""));
}

TEST(LinuxClock, TimeOfDayAndTimerAgree) {
  LinuxClock clock;
  const std::int64_t before = clock.Ticks();
  const DateTime now = clock.Now();
  const double seconds = now.Hour * 3600 + now.Minute * 60 + now.Second;
  const double timer = clock.Timer();
  EXPECT_TRUE(timer >= seconds && timer < seconds + 10) << timer;
  EXPECT_TRUE(now.Year >= 2024 && now.Month >= 1 && now.Month <= 12 && now.Day >= 1);
  std::this_thread::sleep_for(20ms);
  EXPECT_GE(clock.Ticks() - before, 20);
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
    EXPECT_GE(passed(), 90ms);
    EXPECT_LT(passed(), 3000ms);
    std::this_thread::sleep_for(50ms);
    EXPECT_EQ(slices, 4);  // a negative number ended it
  }
  {
    const auto job = ThreadBackground().Start([&] { return ++slices, 60'000; });
  }
  EXPECT_LT(passed(), 5000ms);
}

TEST(FileResources, TextsAreFoundByNumberAlone) {
  const TempFolder folder;
  Put(folder() / "strings.tsv",
      "\xEF\xBB\xBF"
      "0\tVantora\r\n10\tCat\xC3\xA1logo\n11\ta\\tb\\nc\\\\n\n12\t \n\nx\tno\n13 no tab\n14\t");
  Put(folder() / "pictures/OK.svg", "<svg/>");
  Put(folder() / "layouts/frmX.layout", "form 1 2 á\n");
  FileResources resources(folder());
  EXPECT_EQ(resources.LoadResString(0), L"Vantora");
  EXPECT_EQ(resources.LoadResString(10), L"Catálogo");
  EXPECT_EQ(resources.LoadResString(11), L"a\tb\nc\\n");
  EXPECT_EQ(resources.LoadResString(12), L" ");
  EXPECT_EQ(resources.LoadResString(14), L"");
  EXPECT_EQ(ErrorOf([&] { resources.LoadResString(13); }), 326);
  EXPECT_TRUE(resources.HasPicture(L"OK"));
  EXPECT_FALSE(resources.HasPicture(L"NO"));
  EXPECT_FALSE(resources.HasPicture(L"../pictures/OK"));
  EXPECT_EQ(resources.Layout(L"frmX"), L"form 1 2 á\n");
  EXPECT_EQ(resources.Layout(L"frmY"), L"");
  EXPECT_EQ(resources.Layout(L"../layouts/frmX"), L"");
  EXPECT_EQ(ErrorOf([&] { FileResources(folder() / "none").LoadResString(0); }), 326);
}

TEST(FileResources, TheShippedTextsAreThere) {
  FileResources resources(fs::path(VANTORA_SOURCE_DIR) / "resources");
  EXPECT_EQ(resources.LoadResString(10), L"Catálogo");
  EXPECT_EQ(resources.LoadResString(8070), L" seg.");  // the blank belongs to it
  EXPECT_EQ(resources.LoadResString(31102), L"Flanger débil;22;33;32;9");
}

}  // namespace vantora::test
