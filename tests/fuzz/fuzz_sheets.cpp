// Random bytes as the sheet of a disc image, in both formats: the result must be a disc whose
// sectors can all be read, or a fault with a line.
#include "backends/cdio/image_disc.h"
#include "backends/cdio/track_sound.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/fuzz/fuzz_body.h"

namespace vantora::test {

namespace {

void ReadAll(const std::shared_ptr<Disc>& disc) {
  const CdToc& toc = disc->Toc();
  Require(toc.Count() >= 1 && toc.Count() <= 99, "a disc has 1 to 99 tracks");
  std::string sectors(3 * kSectorBytes, '?');
  int end = 0;
  for (int number = 1; number <= toc.Count(); ++number) {
    const CdTrack& track = toc.Track(number);
    Require(track.Start >= end && track.Sectors > 0, "tracks follow each other");
    end = track.Start + track.Sectors;
    disc->Read(track.Start, 1, sectors.data());
    disc->Read(end - 1, 2, sectors.data());
    TrackSound sound(disc, number, number * 100 - 300);
    sound.Read(0, std::min(3, sound.Sectors()), sectors.data());
    sound.Read(sound.Sectors() - 1, 1, sectors.data());
  }
  Require(end <= toc.LeadOut && toc.LeadOut <= 100 * 60 * 75,
          "a disc holds its tracks and 100 minutes");
}

}  // namespace

void FuzzOne(const std::string& bytes) {
  static Home home;
  static const bool laid = [] {
    Put(home / "a.bin", Noise(std::size_t{20} * kSectorBytes));
    Put(home / "x/b.wav", Wave(Noise(5000)));
    return true;
  }();
  static_cast<void>(laid);
  for (const char* name : {"s.cue", "s.toc"}) {
    Lay(home / name, bytes);
    const Text sheet(name, name + 5);
    try {
      ReadAll(std::make_shared<ImageDisc>(home.Files, L"C:\\" + sheet));
    } catch (const SheetFailure& failure) {
      Require(failure.What.Sheet == sheet && failure.What.Line >= 1, "a fault has its line");
    }
  }
}

}  // namespace vantora::test
