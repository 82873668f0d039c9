#include "backends/linux/profile_file.h"

#include "tests/backends/linux/home.h"

#include <array>
#include <map>
#include <sys/stat.h>

namespace vantora::test {

namespace {

const Text kFile = L"qmaudio.ini";

class ProfilesOnDisk : public testing::Test, protected Home {
 protected:
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

TEST_F(ProfilesOnDisk, ANewFileLooksAsOtherProgramsWriteIt) {
  EXPECT_EQ(Read(L"1A2B", L"title"), L"(none)");
  EXPECT_FALSE(fs::exists(File));
  Write(L"1A2B", L"artist", L"Añil €");
  Write(L"1A2B", L"title", L"Два");
  Write(L"FF", L"numtracks", L"2");
  Write(L"1a2b", L"0", L"line\r\nend");
  EXPECT_EQ(Get(File),
            "[1A2B]\r\nartist=A\xF1il \x80\r\ntitle=???\r\n0=line  end\r\n[FF]\r\nnumtracks=2\r\n");
  Profile.WritePrivateProfileString(L"a", L"b", L"c", L"C:\\WINDOWS\\cdplayer.ini");
  EXPECT_EQ(Get(*this / ".local/share/vantora/cdplayer.ini"), "[a]\r\nb=c\r\n");
}

TEST_F(ProfilesOnDisk, ForeignFilesAreReadAsTheyAre) {
  Put(File,
      "; mine\n0=outside\n [ One ]\n Title = \" a b \" \nTITLE=second\n;x=1\nquote='it'\nodd=\"\n"
      "empty=\n\n[two]\nx=y=z\n[ONE]\nlate=1\n[half");
  const std::array<Text, 3> values[] = {{L"one", L"title", L" a b "}, {L"one", L"quote", L"it"},
                                        {L"one", L"odd", L"\""},      {L"one", L"empty", L""},
                                        {L"one", L";x", L"(none)"},   {L"one", L"late", L"(none)"},
                                        {L"two", L"x", L"y=z"},       {L"", L"0", L"(none)"}};
  for (const auto& [section, key, value] : values) EXPECT_EQ(Read(section, key), value);
  EXPECT_EQ(Profile.GetPrivateProfileSectionNames(kFile, 100),
            (std::vector<Text>{L"One", L"two", L"half"}));
  Write(L"ONE", L"title", L"t");
  Write(L"one", L"new", L"n");
  Profile.DeletePrivateProfileSection(L"TWO", kFile);
  EXPECT_EQ(Get(File),
            "; mine\n0=outside\n [ One ]\ntitle=t\nTITLE=second\n;x=1\nquote='it'\nodd=\"\n"
            "empty=\nnew=n\n\n[ONE]\nlate=1\n[half");
}

TEST_F(ProfilesOnDisk, LimitsCutValuesAndTheListOfSections) {
  Put(File, "[abc]\nk=" + std::string(150, 'x') + "\n[de]\n[f]\n");
  EXPECT_EQ(Read(L"abc", L"k", 100), Text(100, L'x'));
  EXPECT_EQ(Read(L"abc", L"K", 1000).size(), 150U);
  for (const auto& [limit, count] :
       std::map<std::size_t, std::size_t>{{3, 0}, {4, 1}, {6, 1}, {7, 2}, {9, 3}}) {
    EXPECT_EQ(Profile.GetPrivateProfileSectionNames(kFile, limit).size(), count) << limit;
  }
}

TEST_F(ProfilesOnDisk, WhatAnotherProgramChangedIsSeen) {
  Write(L"a", L"k", L"1");
  EXPECT_EQ(Read(L"a", L"k"), L"1");
  Put(File, "[a]\nk=22\n");
  EXPECT_EQ(Read(L"a", L"k"), L"22");
  // The file is replaced while the old one stays under another name; then it is moved away and
  // back.
  const fs::path other = *this / "other.ini";
  fs::create_hard_link(File, *this / "kept.ini");
  Put(other, "[a]\nk=33\n");
  fs::last_write_time(other, fs::last_write_time(File));
  fs::rename(other, File);
  EXPECT_EQ(Read(L"a", L"k"), L"33");
  fs::rename(File, other);
  EXPECT_EQ(Read(L"a", L"k"), L"(none)");
  fs::rename(other, File);
  EXPECT_EQ(Read(L"A", L"K"), L"33");
  fs::remove(File);
  EXPECT_EQ(Read(L"a", L"k"), L"(none)");
}

TEST_F(ProfilesOnDisk, AChangeKeepsWhatAnotherProgramWroteIntoAFolderThatTookThePlaceOfThisOne) {
  Write(L"a", L"k", L"1");
  EXPECT_EQ(Read(L"a", L"k"), L"1");
  fs::rename(File.parent_path(), *this / "away");
  fs::create_directories(File.parent_path());
  Put(File, "[a]\nj=2\n");
  Write(L"a", L"k", L"3");
  EXPECT_EQ(Get(File), "[a]\nj=2\nk=3\n");
}

TEST_F(ProfilesOnDisk, NothingIsReportedAndNothingIsLostWhenTheFileIsNone) {
  ASSERT_EQ(::mkfifo(File.c_str(), 0600), 0);
  Write(L"a", L"k", L"1");
  EXPECT_EQ(Read(L"a", L"k"), L"(none)");
  EXPECT_TRUE(fs::is_fifo(File));
  Profile.WritePrivateProfileString(L"a", L"k", L"1", L"Q:\\nowhere.ini");
}

}  // namespace vantora::test
