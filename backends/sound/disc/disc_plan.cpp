#include "backends/sound/disc/disc_plan.h"

#include "backends/sound/files/wave_layout.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>

namespace vantora {

namespace {

std::int64_t Bytes(const std::vector<DiscPart>& parts, std::size_t from = 0) {
  std::int64_t bytes = 0;
  for (std::size_t i = from; i < parts.size(); ++i) bytes += parts[i].Bytes;
  return bytes;
}

}  // namespace

DiscPart SoundForDisc(Dateien& files, const Text& wave) {
  const WaveLayout layout = ReadWaveLayout(*files.Open(wave, Zugriff::Lesen));
  DiscPart sound{wave, layout.DataOffset, layout.DataBytes / kFrameBytes * kFrameBytes};
  if (layout.SampleRate != kSampleRate || layout.BitsPerSample != kSampleBits ||
      layout.Channels != kChannels || sound.Bytes == 0) {
    throw Laufzeitfehler(kFehlerEinAusgabe,
                         wave.substr(wave.find_last_of(L'\\') + 1) + L" no es una pista de audio.");
  }
  return sound;
}

std::vector<PlannedTrack> PlanDisc(const std::vector<DiscPart>& waves, const DiscRules& rules) {
  std::vector<PlannedTrack> tracks;
  std::int64_t sector = 0;
  std::vector<DiscPart> rest;  // of the previous wave, less than a sector
  for (std::size_t i = 0; i < waves.size(); ++i) {
    PlannedTrack track;
    track.File = waves[i].File;
    track.Gap = i > 0 && !rules.OneStream ? rules.Gap : 0;
    track.Start = sector + track.Gap;
    track.Parts = std::move(rest);
    track.Parts.push_back(waves[i]);
    rest.clear();
    const std::int64_t bytes = Bytes(track.Parts);
    const bool goesOn = rules.OneStream && i + 1 < waves.size();
    const std::int64_t full = goesOn ? bytes : bytes + kSectorBytes - 1;
    track.Sectors = std::max(full / kSectorBytes, rules.Least);
    const std::int64_t over = bytes - track.Sectors * kSectorBytes;
    if (over > 0) {
      // The bytes over all come from this track's own wave: the rest in front of it is less than a
      // sector.
      DiscPart& own = track.Parts.back();
      own.Bytes -= over;
      rest.push_back({own.File, own.Offset + own.Bytes, over});
    } else if (over < 0) {
      track.Parts.push_back({{}, 0, -over});
    }
    sector = track.Start + track.Sectors;
    tracks.push_back(std::move(track));
  }
  return tracks;
}

std::int64_t PartReader::Left() const {
  return Bytes(parts_, next_);
}

void PartReader::Skip(std::int64_t bytes) {
  while (bytes > 0) {
    DiscPart& part = parts_.at(next_);
    const std::int64_t count = std::min(bytes, part.Bytes);
    part.Offset += count;
    part.Bytes -= count;
    bytes -= count;
    if (part.Bytes == 0) ++next_;
  }
}

void PartReader::Read(char* target, std::int64_t bytes) {
  while (bytes > 0) {
    DiscPart& part = parts_.at(next_);
    const std::int64_t count = std::min(bytes, part.Bytes);
    if (part.File.empty()) {
      std::fill_n(target, count, '\0');
    } else {
      if (!file_) {
        file_ = files_.Open(part.File, Zugriff::Lesen);
        file_->Seek(part.Offset);
      }
      file_->Read(target, static_cast<std::size_t>(count));
    }
    target += count;
    bytes -= count;
    part.Bytes -= count;
    if (part.Bytes > 0) continue;
    file_.reset();
    ++next_;
  }
}

}  // namespace vantora
