#include "backends/cdio/image_disc.h"
#include "tests/backends/cdio/tray.h"

#include <algorithm>

namespace vantora::test {

namespace {

class Sheets : public Tray {
 protected:
  // The disc that a sheet of this name and text makes; nothing when it makes none.
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

TEST_F(Sheets, WhatMakesNoSenseIsNoDisc) {
  Bin("a.bin", 100);
  const std::string file = "FILE \"a.bin\" BINARY\n", track = "TRACK 01 AUDIO\n";
  std::string many = file;
  for (int i = 0; i < 100; ++i) many += track + "INDEX 01 " + CueTime(i) + "\n";
  for (const std::string& sheet : std::vector<std::string>{
           "", "\xFF\xFE\0x", file, file + track, track + "INDEX 01 00:00:00\n",
           file + track + "INDEX 01 00:00:-1\n", file + track + "INDEX 01 99999999999:00:00\n",
           file + track + "INDEX 01 00:00:20\n" + track + "INDEX 01 00:00:20\n",
           file + track + "INDEX 01 00:00:20\n" + track + "INDEX 01 00:00:10\n",
           file + track + "INDEX 01 00:00:00\n" + track, many,
           file + "TRACK 01 MODE9/1\nINDEX 01 00:00:00\n",
           "FILE \"no.bin\" BINARY\n" + track + "INDEX 01 00:00:00\n",
           "FILE \"a.bin\" WAVE\n" + track + "INDEX 01 00:00:00\n",
           "FILE \"a.bin\" MP3\n" + track + "INDEX 01 00:00:00\n"}) {
    EXPECT_FALSE(Laid("x.cue", sheet)) << sheet;
  }
  fs::remove(Folder() / "x.cue");
  for (const std::string sheet :
       {"CD_DA\nTRACK", "TRACK AUDIO\n", "TRACK AUDIO\nFILE", "TRACK AUDIO\nFILE \"a.bin\" x\n",
        "TRACK AUDIO\nFILE \"a.bin\" 999999999999999999999\n", "CD_TEXT { {",
        "TRACK AUDIO\nSILENCE 999999999 SILENCE 999999999\n"}) {
    EXPECT_FALSE(Laid("x.toc", sheet)) << sheet;
  }
  EXPECT_TRUE(Laid("y.cue", file + track + "INDEX 01 00:00:00\n")) << "the next sheet is the disc";
}

// Whatever a sheet holds, it is a disc or none: nothing is read outside it, and nothing hangs.
TEST_F(Sheets, ADamagedSheetDoesNoHarm) {
  Bin("a.bin", 100);
  const std::string cue =
      "FILE \"a.bin\" BINARY\nTRACK 01 AUDIO\nPREGAP 00:02:10\nINDEX 01 00:00:00\n"
      "TRACK 02 MODE1/2048\nINDEX 00 00:00:40\nINDEX 01 00:00:50\n";
  const std::string toc =
      "TRACK AUDIO\nFILE \"a.bin\" #4 0 00:00:30\nSTART 00:00:05\n{ x }\n"
      "TRACK MODE1\nDATAFILE \"a.bin\" 4096\nZERO 20480\n";
  for (std::uint32_t seed = 1; seed <= 2000; ++seed) {
    const bool other = seed % 2 == 0;
    std::string sheet = other ? toc : cue;
    const std::string dice = Noise(12, seed);
    for (std::size_t i = 0; i + 2 < dice.size(); i += 3) {
      const std::size_t at = static_cast<unsigned char>(dice[i]) * sheet.size() / 256;
      if (dice[i + 2] > 0) {
        sheet[at] = dice[i + 1] > 0 ? dice[i + 1] : '9';
      } else {
        sheet.erase(at, static_cast<std::size_t>(dice[i + 1] & 7));
      }
    }
    const auto disc = Laid(other ? "x.toc" : "x.cue", sheet);
    if (disc) {
      std::string sector(kSector, '?');
      for (const CdTrack& track : disc->Toc().Tracks) {
        EXPECT_GE(track.Start, 0);
        EXPECT_GT(track.Sectors, 0);
        disc->Read(track.Start, 1, sector.data());
      }
    }
    fs::remove(Folder() / (other ? "x.toc" : "x.cue"));
  }
}

}  // namespace vantora::test
