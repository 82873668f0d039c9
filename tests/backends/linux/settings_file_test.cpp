#include "backends/linux/settings_file.h"

#include <gtest/gtest.h>

#include "tests/backends/linux/home.h"

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>

namespace vantora::test {

namespace {

struct Store {
  TempFolder Folder;
  fs::path File = Folder() / "config/settings.conf";

  Text Read(const Text& key, const Text& section = L"VTR") const {
    return SettingsFile(File).GetSetting(L"Quillmark", section, key, L"(none)");
  }
  void Save(const Text& key, const Text& value, const Text& section = L"VTR") const {
    SettingsFile(File).SaveSetting(L"Quillmark", section, key, value);
  }
};

}  // namespace

TEST(SettingsFile, WhatIsSavedIsReadAgainInTheNextRun) {
  const Store store;
  const std::vector<Text> nasty{L"",       L" blanks ",     L"a=b",           L"C:\\Música\\100%",
                                L"%41",    L"two\r\nlines", L"[x]",           L"#;",
                                L"\t",     L"ñ€\U0001F4BF", L"\xDCFF broken", Text(L"a\0b", 3),
                                L"Día\x85"};
  for (std::size_t i = 0; i < nasty.size(); ++i) {
    store.Save(L"value" + std::to_wstring(i), nasty[i]);
    store.Save(L"key" + nasty[i], std::to_wstring(i), L"of [" + nasty[i] + L"]");
  }
  for (std::size_t i = 0; i < nasty.size(); ++i) {
    EXPECT_EQ(store.Read(L"value" + std::to_wstring(i)), nasty[i]);
    EXPECT_EQ(store.Read(L"key" + nasty[i], L"of [" + nasty[i] + L"]"), std::to_wstring(i));
  }
  EXPECT_EQ(store.Read(L"other"), L"(none)");
  EXPECT_EQ(store.Read(L"value1", L"Other"), L"(none)");
}

TEST(SettingsFile, LinesThatItDoesNotKnowStayWhereTheyAre) {
  const Store store;
  Put(store.File,
      "loose = before\n# mine\n[Quillmark\\VTR]\nundo = 2 \r\n\xFF\xFE garbage\nL\xC3\xA4ngeCD=80\n"
      "UNDO=1\n\n[other]\nx=1\n");
  EXPECT_EQ(store.Read(L"Undo"), L"1");  // of two equal keys the last one counts
  EXPECT_EQ(store.Read(L"LÄNGECD"), L"80");
  EXPECT_EQ(store.Read(L"x"), L"(none)");
  store.Save(L"Undo", L"0");
  store.Save(L"New", L"n");
  store.Save(L"K", L"v", L"Presets");
  EXPECT_EQ(Get(store.File),
            "loose = before\n# mine\n[Quillmark\\VTR]\nundo = 2 \r\n\xFF\xFE garbage\n"
            "L\xC3\xA4ngeCD=80\nUndo=0\nNew=n\n\n[other]\nx=1\n\n[Quillmark\\Presets]\nK=v\n");
}

TEST(SettingsFile, WhatCannotBeReadIsNotOverwritten) {
  Store store;
  fs::create_directories(store.File.parent_path());
  ASSERT_EQ(::mkfifo(store.File.c_str(), 0600), 0);
  SettingsFile settings(store.File);
  int reports = 0;
  settings.OnUnwritable = [&](const Text&, const Laufzeitfehler&) { ++reports; };
  settings.SaveSetting(L"Quillmark", L"VTR", L"Copies", L"3");
  EXPECT_EQ(settings.GetSetting(L"Quillmark", L"VTR", L"Copies", L"1"), L"3");  // during this run
  EXPECT_TRUE(fs::is_fifo(store.File));
  EXPECT_EQ(reports, 1);
}

TEST(SettingsFile, WhatCannotBeWrittenServesForTheRunAndIsReportedOnce) {
  const Store store;
  int reports = 0;
  store.Save(L"Copies", L"1");
  {
    const Nobody nobody(store.Folder());
    fs::permissions(store.File.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    SettingsFile settings(store.File);
    settings.OnUnwritable = [&](const Text& place, const Laufzeitfehler& why) {
      ++reports;
      EXPECT_TRUE(place.ends_with(L"/config/settings.conf"));
      EXPECT_EQ(why.Nummer, kFehlerZugriff);
    };
    settings.SaveSetting(L"Quillmark", L"VTR", L"Copies", L"3");
    settings.SaveSetting(L"Quillmark", L"VTR", L"Copies", L"3");
    EXPECT_EQ(settings.GetSetting(L"Quillmark", L"VTR", L"Copies", L"1"), L"3");
    EXPECT_EQ(store.Read(L"Copies"), L"1");
    fs::permissions(store.File.parent_path(), fs::perms::owner_all);
    settings.SaveSetting(L"Quillmark", L"VTR", L"Undo", L"1");  // the next save succeeds
  }
  EXPECT_EQ(store.Read(L"Copies"), L"3");
  EXPECT_EQ(reports, 1);
}

TEST(SettingsFile, TheNextRunRemovesWhatAKilledOneLeftBehind) {
  const Store store;
  const pid_t killed = ::fork();
  if (killed == 0) ::_exit(0);
  ::waitpid(killed, nullptr, 0);
  const auto leftover = [&](pid_t process) {
    fs::path file = store.File.parent_path() / (".vantora-" + std::to_string(process) + "-0");
    Put(file, "half");
    return file;
  };
  const fs::path gone = leftover(killed), ours = leftover(::getpid()), other = leftover(1);
  store.Read(L"Copies");
  EXPECT_FALSE(fs::exists(gone));
  EXPECT_FALSE(fs::exists(ours));
  EXPECT_TRUE(fs::exists(other));
}

TEST(SettingsFile, TheSameValueAgainDoesNotTouchTheDisk) {
  const Store store;
  store.Save(L"Copies", L"1");
  struct stat before {
  }, after{};
  ::stat(store.File.c_str(), &before);
  store.Save(L"copies", L"1");
  ::stat(store.File.c_str(), &after);
  EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST(SettingsFile, ALinkedFileStaysALink) {
  const Store store;
  Put(store.Folder() / "real.conf", "[Quillmark\\VTR]\nCopies=1\n");
  fs::create_directories(store.File.parent_path());
  fs::create_symlink("../real.conf", store.File);
  store.Save(L"Copies", L"2");
  EXPECT_TRUE(fs::is_symlink(store.File));
  EXPECT_EQ(Get(store.Folder() / "real.conf"), "[Quillmark\\VTR]\nCopies=2\n");
}

// The child always sets both values to the same number. Two different numbers would mean a torn
// file.
TEST(SettingsFile, AProcessKilledWhileSavingLeavesTheOldOrTheNewFile) {
  const Store store;
  store.Save(L"a", L"0");
  const Text tail(20000, L'x');
  for (int round = 0; round < 15; ++round) {
    const pid_t child = ::fork();
    if (child == 0) {
      SettingsFile settings(store.File);
      for (int i = 0;; ++i) {
        settings.SaveSetting(L"Quillmark", L"VTR", L"a",
                             std::to_wstring(i) + tail + std::to_wstring(i));
      }
    }
    ::usleep(3000 + 700 * static_cast<unsigned>(round));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const Text value = store.Read(L"a");
    const auto start = value.find(L'x'), end = value.rfind(L'x');
    if (start == Text::npos) continue;  // it was killed before the first save
    EXPECT_EQ(value.substr(0, start), value.substr(end + 1));
    EXPECT_EQ(end - start + 1, tail.size());
  }
}

}  // namespace vantora::test
