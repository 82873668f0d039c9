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

TEST_F(Sheets, SoundLiesWhereTheSheetSays) {
  const std::string bin = Bin("a.bin", 100), one = Bin("1.bin", 10), other = Bin("2.bin", 10, 5);
  const std::string sound = Noise(kSector * 3 + 400, 9), odd = Noise(kSector * 5 + 8, 7);
  Put(Folder() / "canción.wav", Wave(sound, Chunk("LIST", "tail")));
  Put(Folder() / "b.wav", Wave(odd));
  std::string withSubchannel;
  for (int sector = 0; sector < 10; ++sector) {
    withSubchannel += Part(one, sector, sector + 1) + std::string(96, '\x7F');
  }
  Put(Folder() / "s.bin", withSubchannel);
  struct Case {
    const char* Name;
    std::string Sheet;
    std::vector<int> Starts;
    std::string Sound;  // up to the end; data may lie in front
  };
  std::vector<Case> cases = {
      {"x.cue",
       "REM x\nFILE \"folder\\A.BIN\" BINARY\n"
       "TRACK 01 AUDIO\nINDEX 00 00:00:00\nINDEX 01 00:00:10\n"
       "TRACK 02 AUDIO\nPREGAP 00:00:05\nINDEX 01 00:00:40\nINDEX 02 00:00:50\n"
       "TRACK 03 AUDIO\nINDEX 00 00:00:60\nINDEX 01 00:00:70\n",
       {10, 45, 75, 105},
       Part(bin, 0, 40) + Silence(5) + Part(bin, 40, 100)},
      {"x.cue",
       "FILE \"1.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"
       "TRACK 02 AUDIO\nINDEX 00 00:00:08\nFILE \"canci\xF3n.wav\" WAVE\nINDEX 01 00:00:00\n"
       "FILE \"2.bin\" MOTOROLA\nTRACK 03 AUDIO\nINDEX 01 00:00:02\n",
       {0, 10, 16, 24},
       one + sound + std::string(kSector - 400, '\0') + Swapped(other)},
      {"x.toc",
       "CD_DA\nCD_TEXT { LANGUAGE 0 { TITLE \"TRACK AUDIO }\" } }\n"
       "TRACK AUDIO\nNO COPY // FILE\nFILE \"a.bin\" 0 00:00:30\n"
       "TRACK AUDIO\nTITLE \"x\"\nSILENCE 00:00:04\nSTART\nFILE \"a.bin\" 00:00:30 00:00:20\n"
       "TRACK AUDIO\nFILE \"a.bin\" SWAP 00:00:50 00:00:20\nSTART 00:00:05\n"
       "TRACK AUDIO\nAUDIOFILE \"b.wav\" 2\n",
       {0, 34, 59, 74, 79},
       Swapped(Part(bin, 0, 30)) + Silence(4) + Swapped(Part(bin, 30, 50)) + Part(bin, 50, 70) +
           odd.substr(8)},
      {"x.cue", "FILE s.bin BINARY\nTRACK 01 CDG\nINDEX 01 00:00:00\n", {0, 10}, one},
      {"x.toc", "TRACK AUDIO RW_RAW\nDATAFILE \"s.bin\"\n", {0, 10}, Swapped(one)},
  };
  for (const int bytes : {2048, 2336, 2352}) {
    const std::string measure = std::to_string(bytes);
    Put(Folder() / (measure + ".bin"), Noise(static_cast<std::size_t>(bytes) * 20, 3) + one);
    cases.push_back({"x.cue",
                     "FILE " + measure + ".bin BINARY\nTRACK 01 MODE1/" + measure +
                         "\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 00:00:20\n",
                     {0, 20, 30},
                     one});
  }
  for (const Case& each : cases) {
    SCOPED_TRACE(each.Sheet);
    const auto disc = Laid(each.Name, each.Sheet);
    ASSERT_TRUE(disc);
    EXPECT_EQ(Starts(*disc), each.Starts);
    const int end = each.Starts.back(), first = end - static_cast<int>(each.Sound.size() / kSector);
    EXPECT_EQ(disc->Toc().Track(1).Audio, first == 0);
    EXPECT_TRUE(Read(*disc, first, end) == each.Sound);
    for (int sector = first; sector < end; ++sector) {
      EXPECT_TRUE(Read(*disc, sector, sector + 1) ==
                  Part(each.Sound, sector - first, sector - first + 1));
    }
    EXPECT_EQ(Read(*disc, end, end + 1) + Read(*disc, -1, 0), "");
    fs::remove(Folder() / each.Name);
  }
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
