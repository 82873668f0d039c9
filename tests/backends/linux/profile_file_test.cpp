#include "backends/linux/profile_file.h"

#include <gtest/gtest.h>

#include "tests/backends/linux/home.h"

#include <map>
#include <sys/stat.h>

namespace vantora::test {

namespace {

const Text kFile = L"qmaudio.ini";

struct Profiles : Home {
  ProfileFiles Profile{Table};
  fs::path File = *this / ".local/share/vantora/qmaudio.ini";

  Text Read(const Text& section, const Text& key, std::size_t limit = 100) {
    return Profile.GetPrivateProfileString(section, key, L"(none)", limit, kFile);
  }
  void Write(const Text& section, const Text& key, const Text& value) {
    Profile.WritePrivateProfileString(section, key, value, kFile);
  }
};

}  // namespace

TEST(ProfileFiles, ANewFileLooksAsOtherProgramsWriteIt) {
  Profiles home;
  EXPECT_EQ(home.Read(L"1A2B", L"title"), L"(none)");
  EXPECT_FALSE(fs::exists(home.File));
  home.Write(L"1A2B", L"artist", L"Añil €");
  home.Write(L"1A2B", L"title", L"Два");
  home.Write(L"FF", L"numtracks", L"2");
  home.Write(L"1a2b", L"0", L"line\r\nend");
  EXPECT_EQ(Get(home.File),
            "[1A2B]\r\nartist=A\xF1il \x80\r\ntitle=???\r\n0=line  end\r\n[FF]\r\nnumtracks=2\r\n");
  home.Profile.WritePrivateProfileString(L"a", L"b", L"c", L"C:\\WINDOWS\\cdplayer.ini");
  EXPECT_EQ(Get(home / ".local/share/vantora/cdplayer.ini"), "[a]\r\nb=c\r\n");
}

TEST(ProfileFiles, ForeignFilesAreReadAsTheyAre) {
  Profiles home;
  Put(home.File,
      "; mine\n0=outside\n [ One ]\n Title = \" a b \" \nTITLE=second\n;x=1\nquote='it'\nodd=\"\n"
      "empty=\n\n[two]\nx=y=z\n[ONE]\nlate=1\n[half");
  EXPECT_EQ(home.Read(L"one", L"title"), L" a b ");
  EXPECT_EQ(home.Read(L"one", L"quote"), L"it");
  EXPECT_EQ(home.Read(L"one", L"odd"), L"\"");
  EXPECT_EQ(home.Read(L"one", L"empty"), L"");
  EXPECT_EQ(home.Read(L"one", L";x"), L"(none)");
  EXPECT_EQ(home.Read(L"one", L"late"), L"(none)");
  EXPECT_EQ(home.Read(L"two", L"x"), L"y=z");
  EXPECT_EQ(home.Read(L"", L"0"), L"(none)");
  EXPECT_EQ(home.Profile.GetPrivateProfileSectionNames(kFile, 100),
            (std::vector<Text>{L"One", L"two", L"half"}));
  home.Write(L"ONE", L"title", L"t");
  home.Write(L"one", L"new", L"n");
  home.Profile.DeletePrivateProfileSection(L"TWO", kFile);
  EXPECT_EQ(Get(home.File),
            "; mine\n0=outside\n [ One ]\ntitle=t\nTITLE=second\n;x=1\nquote='it'\nodd=\"\n"
            "empty=\nnew=n\n\n[ONE]\nlate=1\n[half");
}

TEST(ProfileFiles, LimitsCutValuesAndTheListOfSections) {
  Profiles home;
  Put(home.File, "[abc]\nk=" + std::string(150, 'x') + "\n[de]\n[f]\n");
  EXPECT_EQ(home.Read(L"abc", L"k", 100), Text(100, L'x'));
  EXPECT_EQ(home.Read(L"abc", L"K", 1000).size(), 150U);
  for (const auto& [limit, count] :
       std::map<std::size_t, std::size_t>{{3, 0}, {4, 1}, {6, 1}, {7, 2}, {9, 3}}) {
    EXPECT_EQ(home.Profile.GetPrivateProfileSectionNames(kFile, limit).size(), count) << limit;
  }
}

TEST(ProfileFiles, WhatAnotherProgramChangedIsSeen) {
  Profiles home;
  home.Write(L"a", L"k", L"1");
  EXPECT_EQ(home.Read(L"a", L"k"), L"1");
  Put(home.File, "[a]\nk=22\n");
  EXPECT_EQ(home.Read(L"a", L"k"), L"22");
  // The file is replaced while the old one stays under another name; then it is moved away and
  // back.
  const fs::path other = home / "other.ini";
  fs::create_hard_link(home.File, home / "kept.ini");
  Put(other, "[a]\nk=33\n");
  fs::last_write_time(other, fs::last_write_time(home.File));
  fs::rename(other, home.File);
  EXPECT_EQ(home.Read(L"a", L"k"), L"33");
  fs::rename(home.File, other);
  EXPECT_EQ(home.Read(L"a", L"k"), L"(none)");
  fs::rename(other, home.File);
  EXPECT_EQ(home.Read(L"A", L"K"), L"33");
  fs::remove(home.File);
  EXPECT_EQ(home.Read(L"a", L"k"), L"(none)");
}

TEST(ProfileFiles, AChangeKeepsWhatAnotherProgramWroteIntoAFolderThatTookThePlaceOfThisOne) {
  Profiles home;
  home.Write(L"a", L"k", L"1");
  EXPECT_EQ(home.Read(L"a", L"k"), L"1");
  fs::rename(home.File.parent_path(), home / "away");
  fs::create_directories(home.File.parent_path());
  Put(home.File, "[a]\nj=2\n");
  home.Write(L"a", L"k", L"3");
  EXPECT_EQ(Get(home.File), "[a]\nj=2\nk=3\n");
}

TEST(ProfileFiles, AWriteThatIsCutOffLeavesTheFileAsItWas) {
  Profiles home;
  for (int i = 0; i < 50; ++i) home.Write(L"S" + std::to_wstring(i), L"k", Text(100, L'x'));
  const std::string before = Get(home.File);
  const std::size_t names = NamesIn(home.File.parent_path());
  {
    const FullDisk full(before.size() / 2);
    home.Write(L"S7", L"k", L"new");
    home.Profile.DeletePrivateProfileSection(L"S8", kFile);
    EXPECT_EQ(home.Read(L"S7", L"k"), Text(100, L'x'));
    EXPECT_EQ(home.Read(L"S8", L"k"), Text(100, L'x'));
  }
  EXPECT_EQ(Get(home.File), before);
  EXPECT_EQ(NamesIn(home.File.parent_path()), names);
  home.Write(L"S7", L"k", L"new");
  EXPECT_EQ(home.Read(L"S7", L"k"), L"new");
}

TEST(ProfileFiles, NothingIsReportedAndNothingIsLostWhenTheFileIsNone) {
  Profiles home;
  ASSERT_EQ(::mkfifo(home.File.c_str(), 0600), 0);
  home.Write(L"a", L"k", L"1");
  EXPECT_EQ(home.Read(L"a", L"k"), L"(none)");
  EXPECT_TRUE(fs::is_fifo(home.File));
  home.Profile.WritePrivateProfileString(L"a", L"k", L"1", L"Q:\\nowhere.ini");
}

}  // namespace vantora::test
