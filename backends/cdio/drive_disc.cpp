#include "backends/cdio/drive_disc.h"

#include <cdio/logging.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vantora {

namespace {

constexpr int kRetries = 5;
// Lead-out, lead-in and pregap between the audio of a first session and the data of a second one.
constexpr int kSessionGapSectors = 11400;

void SayNothing(cdio_log_level_t, const char*) {}

// The paranoia reader's callback does not say which reader calls, so the result is kept per thread.
bool& SectorLost() {
  thread_local bool lost = false;
  return lost;
}

void Listen(long, paranoia_cb_mode_t what) {
  if (what == PARANOIA_CB_SKIP) SectorLost() = true;
}

}  // namespace

std::unique_ptr<DriveDisc> DriveDisc::Open(const std::string& device) {
  cdio_log_set_handler(&SayNothing);
  auto disc = std::make_unique<DriveDisc>();
  disc->drive_.reset(cdio_open(device.c_str(), DRIVER_UNKNOWN));
  if (!disc->drive_ || !disc->ReadContents()) return nullptr;
  cdio_get_media_changed(disc->drive_.get());  // resets the flag, so that later changes show
  return disc;
}

bool DriveDisc::ReadContents() {
  const track_t first = cdio_get_first_track_num(drive_.get());
  const track_t count = cdio_get_num_tracks(drive_.get());
  const lsn_t end = cdio_get_track_lsn(drive_.get(), CDIO_CDROM_LEADOUT_TRACK);
  if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK || count == 0 ||
      end == CDIO_INVALID_LSN) {
    return false;
  }
  for (int i = 0; i < count; ++i) {
    const auto number = static_cast<track_t>(first + i);
    const lsn_t start = cdio_get_track_lsn(drive_.get(), number);
    if (start == CDIO_INVALID_LSN) return false;
    const bool audio = cdio_get_track_format(drive_.get(), number) == TRACK_FORMAT_AUDIO;
    const bool raised = cdio_get_track_preemphasis(drive_.get(), number) == CDIO_TRACK_FLAG_TRUE;
    toc_.Tracks.push_back({start, 0, audio, audio && raised});
  }
  toc_.LeadOut = end;
  lsn_t session = 0;
  if (cdio_get_last_session(drive_.get(), &session) != DRIVER_OP_SUCCESS) session = 0;
  for (int i = 1; i <= count; ++i) {
    CdTrack& track = toc_.Tracks[static_cast<std::size_t>(i) - 1];
    track.Sectors = toc_.End(i) - track.Start;
    const bool gap = i < count && session > 0 && toc_.Track(i + 1).Start == session &&
                     track.Sectors > kSessionGapSectors;
    if (gap) track.Sectors -= kSessionGapSectors;
  }
  return true;
}

bool DriveDisc::StillThere() {
  return cdio_get_media_changed(drive_.get()) <= 0;
}

bool DriveDisc::Read(int sector, int count, void* target) {
  next_ = -1;
  return cdio_read_audio_sectors(drive_.get(), target, sector, static_cast<uint32_t>(count)) ==
         DRIVER_OP_SUCCESS;
}

bool DriveDisc::BeginCarefully() {
  if (reader_) return true;
  char* words = nullptr;
  audio_.reset(cdio_cddap_identify_cdio(drive_.get(), CDDA_MESSAGE_FORGETIT, &words));
  if (words != nullptr) cdio_cddap_free_messages(words);
  if (!audio_) return false;
  cdio_cddap_verbose_set(audio_.get(), CDDA_MESSAGE_FORGETIT, CDDA_MESSAGE_FORGETIT);
  // This is the byte order of all MMC drives. Otherwise the library guesses it from the sound, and
  // guesses wrong for sound that resembles noise.
  audio_->bigendianp = 0;
  if (cdio_cddap_open(audio_.get()) != 0) {
    audio_.reset();
    return false;
  }
  reader_.reset(cdio_paranoia_init(audio_.get()));
  if (!reader_) return false;
  cdio_paranoia_modeset(reader_.get(), PARANOIA_MODE_FULL ^ PARANOIA_MODE_NEVERSKIP);
  return true;
}

bool DriveDisc::ReadCarefully(int sector, int count, void* target) {
  if (!BeginCarefully()) return false;
  if (next_ != sector) cdio_paranoia_seek(reader_.get(), sector, SEEK_SET);
  next_ = -1;
  auto* to = static_cast<char*>(target);
  for (int i = 0; i < count; ++i, to += kSectorBytes) {
    SectorLost() = false;
    const std::int16_t* sound = cdio_paranoia_read_limited(reader_.get(), &Listen, kRetries);
    if (sound == nullptr || SectorLost()) return false;
    std::memcpy(to, sound, kSectorBytes);
  }
  next_ = sector + count;
  return true;
}

Text DiscLibraryVersion() {
  const std::string version = cdio_version_string;  // followed by a blank and the kind of machine
  const std::string number = version.substr(0, version.find(' '));
  return {number.begin(), number.end()};
}

}  // namespace vantora
