#include "backends/linux/settings_file.h"

#include "tests/backends/linux/home.h"

#include <sys/stat.h>
#include <sys/wait.h>

namespace vantora::test {

namespace {

class SettingsOnDisk : public testing::Test {
 protected:
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

TEST_F(SettingsOnDisk, WhatIsSavedIsReadAgainInTheNextRun) {
  const std::vector<Text> nasty{L"",       L" blanks ",     L"a=b",           L"C:\\Música\\100%",
                                L"%41",    L"two\r\nlines", L"[x]",           L"#;",
                                L"\t",     L"ñ€\U0001F4BF", L"\xDCFF broken", Text(L"a\0b", 3),
                                L"Día\x85"};
  for (std::size_t i = 0; i < nasty.size(); ++i) {
    Save(L"value" + std::to_wstring(i), nasty[i]);
    Save(L"key" + nasty[i], std::to_wstring(i), L"of [" + nasty[i] + L"]");
  }
  for (std::size_t i = 0; i < nasty.size(); ++i) {
    EXPECT_EQ(Read(L"value" + std::to_wstring(i)), nasty[i]);
    EXPECT_EQ(Read(L"key" + nasty[i], L"of [" + nasty[i] + L"]"), std::to_wstring(i));
  }
  EXPECT_EQ(Read(L"other"), L"(none)");
  EXPECT_EQ(Read(L"value1", L"Other"), L"(none)");
}

TEST_F(SettingsOnDisk, LinesThatItDoesNotKnowStayWhereTheyAre) {
  Put(File,
      "loose = before\n# mine\n[Quillmark\\VTR]\nundo = 2 \r\n\xFF\xFE garbage\nL\xC3\xA4ngeCD=80\n"
      "UNDO=1\n\n[other]\nx=1\n");
  EXPECT_EQ(Read(L"Undo"), L"1");  // of two equal keys the last one counts
  EXPECT_EQ(Read(L"LÄNGECD"), L"80");
  EXPECT_EQ(Read(L"x"), L"(none)");
  Save(L"Undo", L"0");
  fs::create_hard_link(File, Folder() / "link");
  Save(L"undo", L"0");
  EXPECT_TRUE(fs::equivalent(File, Folder() / "link")) << "the same value again was written";
  Save(L"New", L"n");
  Save(L"K", L"v", L"Presets");
  EXPECT_EQ(Get(File),
            "loose = before\n# mine\n[Quillmark\\VTR]\nundo = 2 \r\n\xFF\xFE garbage\n"
            "L\xC3\xA4ngeCD=80\nUndo=0\nNew=n\n\n[other]\nx=1\n\n[Quillmark\\Presets]\nK=v\n");
}

TEST_F(SettingsOnDisk, WhatCannotBeReadIsNotOverwritten) {
  fs::create_directories(File.parent_path());
  ASSERT_EQ(::mkfifo(File.c_str(), 0600), 0);
  SettingsFile settings(File);
  int reports = 0;
  settings.OnUnwritable = [&](const Text&, const Laufzeitfehler&) { ++reports; };
  settings.SaveSetting(L"Quillmark", L"VTR", L"Copies", L"3");
  EXPECT_EQ(settings.GetSetting(L"Quillmark", L"VTR", L"Copies", L"1"), L"3");  // during this run
  EXPECT_TRUE(fs::is_fifo(File));
  EXPECT_EQ(reports, 1);
}

TEST_F(SettingsOnDisk, WhatCannotBeWrittenServesForTheRunAndIsReportedOnce) {
  int reports = 0;
  Save(L"Copies", L"1");
  {
    const Nobody nobody(Folder());
    fs::permissions(File.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    SettingsFile settings(File);
    settings.OnUnwritable = [&](const Text& place, const Laufzeitfehler& why) {
      ++reports;
      EXPECT_TRUE(place.ends_with(L"/config/settings.conf"));
      EXPECT_EQ(why.Nummer, kFehlerZugriff);
    };
    settings.SaveSetting(L"Quillmark", L"VTR", L"Copies", L"3");
    settings.SaveSetting(L"Quillmark", L"VTR", L"Copies", L"3");
    EXPECT_EQ(settings.GetSetting(L"Quillmark", L"VTR", L"Copies", L"1"), L"3");
    EXPECT_EQ(Read(L"Copies"), L"1");
    fs::permissions(File.parent_path(), fs::perms::owner_all);
    settings.SaveSetting(L"Quillmark", L"VTR", L"Undo", L"1");  // the next save succeeds
  }
  EXPECT_EQ(Read(L"Copies"), L"3");
  EXPECT_EQ(reports, 1);
}

TEST_F(SettingsOnDisk, TheNextRunRemovesWhatAKilledOneLeftBehind) {
  const pid_t killed = ::fork();
  if (killed == 0) ::_exit(0);
  ::waitpid(killed, nullptr, 0);
  const auto leftover = [&](pid_t process) {
    fs::path file = File.parent_path() / (".vantora-" + std::to_string(process) + "-0");
    Put(file, "half");
    return file;
  };
  const fs::path gone = leftover(killed), ours = leftover(::getpid()), other = leftover(1);
  Read(L"Copies");
  EXPECT_FALSE(fs::exists(gone));
  EXPECT_FALSE(fs::exists(ours));
  EXPECT_TRUE(fs::exists(other));
}

TEST_F(SettingsOnDisk, ALinkedFileStaysALink) {
  Put(Folder() / "real.conf", "[Quillmark\\VTR]\nCopies=1\n");
  fs::create_directories(File.parent_path());
  fs::create_symlink("../real.conf", File);
  Save(L"Copies", L"2");
  EXPECT_TRUE(fs::is_symlink(File));
  EXPECT_EQ(Get(Folder() / "real.conf"), "[Quillmark\\VTR]\nCopies=2\n");
}

}  // namespace vantora::test
