#include "tests/backends/linux/home.h"
#include "tests/backends/running_out.h"

#include <cstring>
#include <random>
#include <sys/stat.h>
#include <vector>

namespace vantora::test {

class FilesOnDisk : public testing::Test {
 protected:
  Home home;
};

TEST_F(FilesOnDisk, EveryRefusalHasItsNumber) {
  Put(home / "a.wav", "abc");
  fs::create_directory(home / "folder.x");
  ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
  LinuxFiles& files = home.Files;
  const auto open = [&](const Text& path, Zugriff access) {
    return ErrorOf([&] { files.Open(path, access); });
  };
  EXPECT_EQ(open(L"C:\\b.wav", Zugriff::Lesen), 53);
  EXPECT_EQ(open(L"C:\\none\\b.wav", Zugriff::Neu), 76);
  EXPECT_EQ(open(L"C:\\a.wav\\b.wav", Zugriff::Lesen), 76);
  EXPECT_EQ(open(L"Q:\\a.wav", Zugriff::Lesen), 76);
  for (const Zugriff access : {Zugriff::Lesen, Zugriff::Binaer, Zugriff::Anhaengen, Zugriff::Neu}) {
    EXPECT_EQ(open(L"C:\\folder.x", access), 75);
    EXPECT_EQ(open(L"C:\\pipe", access), 57);  // the call did not block for a writer
  }
  const auto file = files.Open(L"C:\\a.wav", Zugriff::Lesen);
  const auto copy = [&](const wchar_t* to) { files.FileCopy(L"C:\\a.wav", to); };
  char bytes[8];
  const std::pair<int, std::function<void()>> cases[] = {
      {53, [&] { files.FileLen(L"C:\\b.wav"); }},
      {53, [&] { files.Kill(L"C:\\b.wav"); }},
      {75, [&] { files.Kill(L"C:\\folder.x"); }},
      {75, [&] { files.MkDir(L"C:\\a.wav\\sub"); }},
      {75, [&] { files.MkDir(L"C:\\a.wav"); }},
      {76, [&] { files.List(L"C:\\none", L"*"); }},
      {76, [&] { files.Folders(L"Q:\\"); }},
      {76, [&] { copy(L"C:\\none\\c.wav"); }},
      {75, [&] { copy(L"C:\\folder.x"); }},
      {70, [&] { copy(L"C:\\A.WAV"); }},  // onto itself
      {53, [&] { files.FileCopy(L"C:\\b.wav", L"C:\\c.wav"); }},
      {62, [&] { file->Read(bytes, 4); }},
      {5, [&] { file->Seek(-1); }}};
  for (const auto& [number, work] : cases) EXPECT_EQ(ErrorOf(work), number);
  EXPECT_EQ(files.FileLen(L"C:\\folder.x"), 0);
  EXPECT_FALSE(files.IsDirectory(L"C:\\a.wav"));
  EXPECT_TRUE(files.IsDirectory(L"C:\\FOLDER.X\\"));
  EXPECT_EQ(Get(home / "a.wav"), "abc");
}

TEST_F(FilesOnDisk, PermissionsAreRespected) {
  Put(home / "locked.wav", "abc");
  Put(home / "shut/a.wav", "abc");
  Nobody nobody(home.Folder());
  fs::permissions(home / "locked.wav", fs::perms::owner_read);
  fs::permissions(home / "shut", fs::perms::owner_read | fs::perms::owner_exec);
  const auto refused = [&](const std::function<void()>& work) { EXPECT_EQ(ErrorOf(work), 70); };
  refused([&] { home.Files.Open(L"C:\\locked.wav", Zugriff::Binaer); });
  refused([&] { home.Files.FileCopy(L"C:\\shut\\a.wav", L"C:\\locked.wav"); });
  refused([&] { home.Files.FileCopy(L"C:\\locked.wav", L"C:\\shut\\b.wav"); });
  refused([&] { home.Files.Kill(L"C:\\shut\\a.wav"); });
  refused([&] { home.Files.MkDir(L"C:\\shut\\b"); });
  EXPECT_EQ(Get(home / "locked.wav"), "abc");
  EXPECT_EQ(NamesIn(home / "shut"), 1U);
  fs::permissions(home / "shut", fs::perms::owner_all);
}

TEST_F(FilesOnDisk, ANameInOtherLettersOpensTheFileThatIsThereAndMakesNoSecond) {
  for (const Zugriff access : {Zugriff::Binaer, Zugriff::Anhaengen, Zugriff::Neu}) {
    Home one;
    Put(one / "Canción.wav", "abc");
    one.Files.Open(L"C:\\canCIÓN.WAV", access)->Write("xyz", 3);
    EXPECT_EQ(Get(one / "Canción.wav"), access == Zugriff::Anhaengen ? "abcxyz" : "xyz");
    EXPECT_EQ(one.Files.List(L"C:\\", L"*.wav"), std::vector<Text>{L"Canción.wav"});
  }
  fs::create_symlink("target.txt", home / "link.txt");  // the target does not exist yet
  home.Files.Open(L"C:\\link.txt", Zugriff::Neu)->Write("x", 1);
  EXPECT_EQ(Get(home / "target.txt"), "x");
}

TEST_F(FilesOnDisk, TheLengthOfAnOpenFileFollowsWhatOthersWrite) {
  Put(home / "a.wav", "abc");
  const auto file = home.Files.Open(L"C:\\a.wav", Zugriff::Lesen);
  EXPECT_EQ(file->Length(), 3);
  home.Files.Open(L"C:\\a.wav", Zugriff::Anhaengen)->Write("d", 1);
  EXPECT_EQ(file->Length(), 4);
}

// Small reads use a buffer, which must never return bytes older than the last write.
TEST_F(FilesOnDisk, ReadsAndWritesInAnyOrderAgreeWithAModel) {
  const auto file = home.Files.Open(L"C:\\a.dat", Zugriff::Binaer);
  std::vector<char> model;
  std::mt19937 random(11);
  std::size_t place = 0;
  for (int step = 0; step < 20000; ++step) {
    const std::size_t size = random() % 3 == 0 ? random() % 9000 : random() % 16;
    switch (random() % 8) {
      case 0:
        place = random() % 20000;
        file->Seek(static_cast<std::int64_t>(place));
        break;
      case 1: {
        std::vector<char> bytes(size);
        for (char& byte : bytes) byte = static_cast<char>(random());
        file->Write(bytes.data(), size);
        if (size > 0) model.resize(std::max(model.size(), place + size));
        std::copy(bytes.begin(), bytes.end(),
                  model.begin() + static_cast<std::ptrdiff_t>(size > 0 ? place : 0));
        place += size;
        break;
      }
      case 2:
        if (random() % 10 != 0) break;
        model.resize(random() % 20000);
        file->Truncate(static_cast<std::int64_t>(model.size()));
        break;
      default: {
        std::vector<char> bytes(size);
        const std::size_t left = place < model.size() ? model.size() - place : 0;
        const std::size_t got = file->ReadSome(bytes.data(), size);
        ASSERT_EQ(got, std::min(size, left));
        ASSERT_TRUE(got == 0 || std::memcmp(bytes.data(), model.data() + place, got) == 0);
        place += got;
      }
    }
    ASSERT_EQ(file->Position(), static_cast<std::int64_t>(place));
    ASSERT_EQ(file->Length(), static_cast<std::int64_t>(model.size()));
  }
}

// A copy between two such files uses no buffer; a copy to any other file does.
TEST_F(FilesOnDisk, FromOneFileIntoAnotherGoesWhatIsThereAndBothMoveOn) {
  std::mt19937 random(12);
  std::string model[2];
  const auto source = home.Files.Open(L"C:\\a.dat", Zugriff::Binaer);
  RunningOut other(home.Files);
  const std::unique_ptr<Datei> targets[] = {home.Files.Open(L"C:\\b.dat", Zugriff::Binaer),
                                            other.Open(L"C:\\c.dat", Zugriff::Binaer)};
  std::string bytes(3'000'001, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  source->Write(bytes.data(), bytes.size());
  for (int step = 0; step < 60; ++step) {
    const std::size_t which = step % 2;
    const std::size_t from = random() % (bytes.size() + 1), to = random() % 2'000'000;
    const std::size_t count = step < 6 ? step : random() % 3'000'000;
    const std::size_t copied = std::min(count, bytes.size() - from);
    source->Seek(static_cast<std::int64_t>(from));
    targets[which]->Seek(static_cast<std::int64_t>(to));
    ASSERT_EQ(source->CopyTo(*targets[which], count), copied);
    ASSERT_EQ(source->Position(), static_cast<std::int64_t>(from + copied));
    ASSERT_EQ(targets[which]->Position(), static_cast<std::int64_t>(to + copied));
    if (copied == 0) continue;
    model[which].resize(std::max(model[which].size(), to + copied), '\0');
    model[which].replace(to, copied, bytes, from, copied);
    ASSERT_TRUE(Get(home / (which == 0 ? "b.dat" : "c.dat")) == model[which]);
  }
}

TEST_F(FilesOnDisk, ACopyIsWholeOrNotThere) {
  std::string song(3'500'000, 'x');
  for (std::size_t i = 0; i < song.size(); i += 1000) song[i] = static_cast<char>(i / 1000);
  Put(home / "Music/a.wav", song);
  home.Files.FileCopy(L"C:\\music\\A.WAV", L"C:\\Copies.wav");
  EXPECT_TRUE(Get(home / "Copies.wav") == song);
  EXPECT_EQ(home.Files.FileDateTime(L"C:\\Copies.wav"),
            home.Files.FileDateTime(L"C:\\Music\\a.wav"));
  Put(home / "Full/old.wav", "old");
  {
    const FullDisk disk(1'000'000);
    EXPECT_EQ(ErrorOf([&] { home.Files.FileCopy(L"C:\\Music\\a.wav", L"C:\\Full\\b.wav"); }), 61);
    EXPECT_EQ(ErrorOf([&] { home.Files.FileCopy(L"C:\\Music\\a.wav", L"C:\\Full\\old.wav"); }), 61);
    EXPECT_EQ(Get(home / "Full/old.wav"), "old");
  }
  EXPECT_EQ(NamesIn(home / "Full"), 1U);
  fs::create_symlink(home / "Copies.wav", home / "link.wav");
  home.Files.FileCopy(L"C:\\Full\\old.wav", L"C:\\link.wav");
  EXPECT_TRUE(fs::is_symlink(home / "link.wav"));  // the file behind the link was replaced
  EXPECT_EQ(fs::file_size(home / "Copies.wav"), fs::file_size(home / "Full/old.wav"));
}

TEST_F(FilesOnDisk, AListShowsTheFilesOfItsPatternsAndNothingElse) {
  for (const char* name : {"b.wav", "A.WAV", "c.mp3", "d.mp3.txt", ".hidden.wav", "a\\b.wav",
                           "ñandú.wav", "e.wavx", "f"}) {
    Put(home / "m" / name, "x");
  }
  Put(home / "m" / "broken\xFF.wav", "byte");
  fs::create_directories(home / "m/folder.wav");
  fs::create_directories(home / "m/.git");
  fs::create_symlink(home / "m/b.wav", home / "m/link.wav");
  fs::create_symlink(home / "m/nowhere", home / "m/dangling.wav");
  ASSERT_EQ(::mkfifo((home / "m/pipe.wav").c_str(), 0600), 0);
  const auto list = [&](const Text& pattern) { return home.Files.List(L"C:\\M\\", pattern); };
  EXPECT_EQ(list(L"*.wav"), (std::vector<Text>{L"A.WAV", L"a\\b.wav", L"b.wav", L"broken\xDCFF.wav",
                                               L"link.wav", L"ñandú.wav"}));
  EXPECT_EQ(list(L"*.MP3; c*"), (std::vector<Text>{L"c.mp3"}));
  EXPECT_EQ(list(L"?.wav;f"), (std::vector<Text>{L"A.WAV", L"b.wav", L"f"}));
  EXPECT_EQ(list(L"*.*").size(), 10U);
  EXPECT_TRUE(list(L"*a*a*a*a*a*a*a*a*a*a*a*a*b").empty());
  EXPECT_EQ(home.Files.Folders(L"C:\\m"), (std::vector<Text>{L"folder.wav"}));
  // A file whose name is not valid UTF-8 can be opened too.
  EXPECT_EQ(home.Files.FileLen(L"C:\\m\\broken\xDCFF.wav"), 4);
}

}  // namespace vantora::test
