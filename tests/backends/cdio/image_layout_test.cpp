#include "backends/cdio/image_disc.h"
#include "tests/backends/cdio/tray.h"

namespace vantora::test {

namespace {

class Sheets : public Tray {
 protected:
  // Opens the disc of a sheet with this name and text; null when the sheet is refused.
  std::unique_ptr<Disc> Laid(const std::string& name, const std::string& sheet) {
    Put(Folder() / name, sheet);
    return drives.Open(Machine[0]);
  }
  static std::string Read(Disc& disc, int from, int to) {
    std::string bytes(static_cast<std::size_t>(to - from) * kSector, '?');
    EXPECT_TRUE(disc.Read(from, to - from, bytes.data())) << from;
    return bytes;
  }
  static std::vector<int> Starts(const Disc& disc) {
    std::vector<int> starts;
    for (const CdTrack& track : disc.Toc().Tracks) starts.push_back(track.Start);
    starts.push_back(disc.Toc().LeadOut);
    return starts;
  }
  std::string Bin(const char* name, int sectors, std::uint32_t seed = 1) {
    const std::string bytes = Noise(static_cast<std::size_t>(sectors) * kSector, seed);
    Put(Folder() / name, bytes);
    return bytes;
  }
  static std::string Swapped(std::string bytes) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
    return bytes;
  }
};

std::string Utf16(const std::string& ascii, bool bigEndian) {
  std::string text;
  for (const char c : ascii) text += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
  return text;
}

std::string Silence(int sectors) {
  return std::string(static_cast<std::size_t>(sectors) * kSector, '\0');
}

}  // namespace

TEST_F(Sheets, GapsAndHiddenSoundLieWhereTheIndexesSay) {
  const std::string bin = Bin("a.bin", 100);
  const auto disc = Laid("x.cue",
                         "REM x\nFILE \"folder\\A.BIN\" BINARY\n"
                         "TRACK 01 AUDIO\nINDEX 00 00:00:00\nINDEX 01 00:00:10\n"
                         "TRACK 02 AUDIO\nPREGAP 00:00:05\nINDEX 01 00:00:40\nINDEX 02 00:00:50\n"
                         "TRACK 03 AUDIO\nINDEX 00 00:00:60\nINDEX 01 00:00:70\n");
  ASSERT_TRUE(disc);
  EXPECT_EQ(Starts(*disc), (std::vector<int>{10, 45, 75, 105}));
  EXPECT_TRUE(Read(*disc, 0, 105) == Part(bin, 0, 40) + Silence(5) + Part(bin, 40, 100));
  std::string beyond(kSector, '?');
  EXPECT_FALSE(disc->Read(105, 1, beyond.data()));
  EXPECT_FALSE(disc->Read(-1, 1, beyond.data()));
}

TEST_F(Sheets, ASheetMayNameAFileForEachTrackWavesAmongThem) {
  const std::string one = Bin("1.bin", 10), other = Bin("2.bin", 10, 5);
  const std::string sound = Noise(kSector * 3 + 400, 9);
  Put(Folder() / "canción.wav", Wave(sound, Chunk("LIST", "tail")));
  const auto disc = Laid("x.cue",
                         "FILE \"1.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"
                         "TRACK 02 AUDIO\nINDEX 00 00:00:08\n"
                         "FILE \"canci\xF3n.wav\" WAVE\nINDEX 01 00:00:00\n"
                         "FILE \"2.bin\" MOTOROLA\nTRACK 03 AUDIO\nINDEX 01 00:00:02\n");
  ASSERT_TRUE(disc);
  EXPECT_EQ(Starts(*disc), (std::vector<int>{0, 10, 16, 24}));
  std::string expected = one + sound;
  expected.resize(14 * kSector);
  EXPECT_TRUE(Read(*disc, 0, 24) == expected + Swapped(other));
  for (int sector = 0; sector < 24; ++sector) {
    EXPECT_TRUE(Read(*disc, sector, sector + 1) ==
                Part(expected + Swapped(other), sector, sector + 1));
  }
}

TEST_F(Sheets, AudioBehindDataIsFoundWhateverTheDatasSectorsMeasure) {
  for (const int bytes : {2048, 2336, 2352}) {
    SCOPED_TRACE(bytes);
    const std::string data = Noise(static_cast<std::size_t>(bytes) * 20, 3);
    const std::string sound = Noise(kSector * 10, 4);
    Put(Folder() / "x.bin", data + sound);
    const auto disc =
        Laid("x.cue", "FILE \"x.bin\" BINARY\nTRACK 01 MODE1/" + std::to_string(bytes) +
                          "\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 00:00:20\n");
    ASSERT_TRUE(disc);
    EXPECT_EQ(Starts(*disc), (std::vector<int>{0, 20, 30}));
    EXPECT_FALSE(disc->Toc().Track(1).Audio);
    EXPECT_TRUE(Read(*disc, 20, 30) == sound);
  }
}

TEST_F(Sheets, TheOtherNotationCountsPartsOfFilesSilenceAndStarts) {
  const std::string bin = Bin("a.bin", 100);
  Put(Folder() / "b.wav", Wave(Noise(kSector * 5 + 8, 7)));
  const auto disc = Laid("x.toc",
                         "CD_DA\nCD_TEXT { LANGUAGE 0 { TITLE \"TRACK AUDIO }\" } }\n"
                         "TRACK AUDIO\nNO COPY // FILE\nFILE \"a.bin\" 0 00:00:30\n"
                         "TRACK AUDIO\nTITLE \"x\"\nSILENCE 00:00:04\nSTART\n"
                         "FILE \"a.bin\" 00:00:30 00:00:20\n"
                         "TRACK AUDIO\nFILE \"a.bin\" SWAP 00:00:50 00:00:20\nSTART 00:00:05\n"
                         "TRACK AUDIO\nAUDIOFILE \"b.wav\" 2\n");
  ASSERT_TRUE(disc);
  EXPECT_EQ(Starts(*disc), (std::vector<int>{0, 34, 59, 74, 79}));
  const std::string wave = Noise(kSector * 5 + 8, 7).substr(8);
  EXPECT_TRUE(Read(*disc, 0, 79) == Swapped(Part(bin, 0, 30)) + Silence(4) +
                                        Swapped(Part(bin, 30, 50)) + Part(bin, 50, 70) + wave);
}

TEST_F(Sheets, SheetsAreReadAsProgramsWriteThemAndNotAsManualsHaveThem) {
  const std::string bin = Bin("a.bin", 100);
  for (const char* name : {"mi disco.bin", "12\" mix.bin", "dos \u2013 \u20AC\u2122.bin"}) {
    Put(Folder() / name, bin);
  }
  Put(Folder() / "CD 1/a.bin", Noise(kSector * 7, 8));
  Put(Folder() / "CD 1/b.wav", Wave(Noise(kSector * 3)));
  const std::string track = "TRACK 01 AUDIO\nINDEX 01 00:00:00\n";
  const std::string two = "FILE \"a.bin\" BINARY\n" + track + "TRACK 02 AUDIO\nINDEX 01 00:00:40\n";
  std::string returns = two;
  std::replace(returns.begin(), returns.end(), '\n', '\r');
  const struct {
    const char* What;
    std::string Sheet;
    std::vector<int> Starts;
  } cases[] = {
      {"small letters", "file \"a.bin\" binary\ntrack 01 audio\n\tindex 1 0:0:5\n", {5, 100}},
      {"no quotes", "FILE mi disco.bin BINARY\n" + track, {0, 100}},
      {"neither quotes nor a kind", "FILE mi disco.bin\n" + track, {0, 100}},
      {"a quote in the name", "FILE \"12\" mix.bin\" BINARY\n" + track, {0, 100}},
      {"a quote that is never closed", "FILE \"a.bin\n" + track, {0, 100}},
      {"a wave without a kind", "FILE \"CD 1/b.WAV\"\n" + track, {0, 3}},
      {"a file in a folder", "FILE \"CD 1\\a.bin\" BINARY\n" + track, {0, 7}},
      {"a path of another machine", "FILE \"D:\\CD 1\\a.bin\" BINARY\n" + track, {0, 100}},
      {"lines that end in CR", returns, {0, 40, 100}},
      {"UTF-8 with its mark", "\xEF\xBB\xBF" + two, {0, 40, 100}},
      {"UTF-16", "\xFF\xFE" + Utf16(two, false), {0, 40, 100}},
      {"UTF-16, big-endian", "\xFE\xFF" + Utf16(two, true), {0, 40, 100}},
      {"UTF-16 without a mark", Utf16(two, false), {0, 40, 100}},
      {"letters of Windows", "FILE \"dos \x96 \x80\x99.bin\" BINARY\n" + track, {0, 100}},
  };
  for (const auto& each : cases) {
    const auto disc = Laid("x.cue", each.Sheet);
    ASSERT_TRUE(disc) << each.What;
    EXPECT_EQ(Starts(*disc), each.Starts) << each.What;
  }
  fs::remove(Folder() / "x.cue");
  // Data tracks before and after an audio track, and escapes, as cdrdao writes them.
  const auto mixed =
      Laid("x.toc",
           "CD_ROM\ntrack MODE1_RAW\nNO COPY\nDATAFILE \"a.bin\" 00:00:30 // bytes\n"
           "TRACK AUDIO\nSILENCE 00:00:04\nSTART\nFILE \"a\\056bin\" #70560 0 0:0:20\n"
           "TRACK MODE1 RW\nZERO MODE1 00:00:05\nSTART 00:00:05\nZERO MODE1 RW 0:0:9\n");
  ASSERT_TRUE(mixed);
  EXPECT_EQ(Starts(*mixed), (std::vector<int>{0, 34, 59, 68}));
  EXPECT_TRUE(Read(*mixed, 34, 54) == Swapped(Part(bin, 30, 50)));
}

TEST_F(Sheets, LessThanASectorBehindAnImageIsNoSector) {
  const std::string track = "TRACK 01 AUDIO\nINDEX 01 00:00:00\n";
  for (const std::size_t surplus : {std::size_t{1}, kSector - 1}) {
    const std::string sound = Noise(kSector * 5 + surplus);
    Put(Folder() / "a.bin", sound);
    Put(Folder() / "b.wav", Wave(sound));
    EXPECT_EQ(Starts(*Laid("x.cue", "FILE a.bin BINARY\n" + track)), (std::vector<int>{0, 5}));
    EXPECT_EQ(Starts(*Laid("x.cue", "FILE b.wav WAVE\n" + track)), (std::vector<int>{0, 6}));
  }
}

TEST_F(Sheets, SubchannelDataBetweenSectorsIsNotHeard) {
  std::string image, sound;
  for (std::uint32_t i = 1; i <= 5; ++i) {
    sound += Noise(kSector, i);
    image += Noise(kSector, i) + std::string(96, '\x7F');
  }
  Put(Folder() / "a.bin", image);
  const auto disc = Laid("x.cue", "FILE a.bin BINARY\nTRACK 01 CDG\nINDEX 01 00:00:00\n");
  ASSERT_TRUE(disc);
  EXPECT_TRUE(disc->Toc().Track(1).Audio);
  EXPECT_TRUE(Read(*disc, 0, 5) == sound);
  fs::remove(Folder() / "x.cue");
  const auto other = Laid("x.toc", "TRACK AUDIO RW_RAW\nDATAFILE \"a.bin\"\n");
  ASSERT_TRUE(other);
  EXPECT_TRUE(Read(*other, 0, 5) == Swapped(sound));
}

TEST_F(Sheets, ASheetThatIsNotUnderstoodIsToldByItsLineAndTheFileThatIsMissing) {
  Bin("a.bin", 100);
  const std::string start = "REM x\r\nFILE \"a.bin\" BINARY\r\n  TRACK 01 AUDIO\r\n";
  const auto gaps = [&](int tracks) {
    std::string sheet = start + "INDEX 01 00:00:00\n";
    for (int i = 1; i < tracks; ++i) {
      sheet += "TRACK 02 AUDIO\nPREGAP 999:59:74\nINDEX 01 " + CueTime(i) + "\n";
    }
    return sheet;
  };
  const struct {
    const char* Name;
    std::string Sheet;
    int Line;
    Text File;
  } cases[] = {
      {"x.cue", "", 1, L""},
      {"x.cue", start + "    INDEX 01 00:60:00\r\n", 4, L""},
      {"x.cue", start + "INDEX 01 00:00:50\nTRACK 02 AUDIO\nINDEX 01 00:00:20\n", 3, L""},
      {"x.cue", start + "INDEX 01 00:00:00\nTRACK 02 AUDIO\nREM no index\n", 5, L""},
      {"x.cue", start + "INDEX 01 00:00:00\nTRACK 02\n", 5, L""},
      {"x.cue",
       "FILE \"D:\\m\\ca\xF1"
       "a.flac\" WAVE\nTRACK 01 AUDIO\n",
       1, L"D:\\m\\caña.flac"},
      {"x.cue", "REM\rFILE \"a.bin\" WAVE\r", 2, L"a.bin"},
      {"x.cue", gaps(600), 299, L""},  // the hundredth track is refused
      {"x.cue", gaps(90), 5, L""},
      {"x.toc", "CD_DA\n// one\nTRACK AUDIO\nFILE \"a.bin\" once\n", 4, L""},
      {"x.toc", "CD_DA\nTRACK AUDIO\nFIEL \"a.bin\" 0\n\nTRACK AUDIO\nFILE \"a.bin\" 0\n", 2, L""},
      {"x.toc", "TRACK AUDIO\nFILE\n  \"b.bin\" 0\n", 3, L"b.bin"},
  };
  for (const auto& each : cases) {
    Put(Folder() / each.Name, each.Sheet);
    SheetFault fault;
    EXPECT_FALSE(drives.Open(Machine[0], &fault)) << each.Sheet;
    EXPECT_EQ(fault.Sheet, Text(each.Name, each.Name + 5));
    EXPECT_EQ(fault.Line, each.Line) << each.Sheet.substr(0, 200);
    EXPECT_EQ(fault.File, each.File);
    fs::remove(Folder() / each.Name);
  }
  SheetFault fault;
  EXPECT_FALSE(drives.Open(Machine[0], &fault));
  EXPECT_EQ(fault.Sheet, L"") << "an empty tray";
}

}  // namespace vantora::test
