// The state of reading tracks from a disc. The windows that start a read fill in the tracks and
// their target files; the reader's events keep the rest.
#pragma once

#include "platform/text.h"

#include <cstdint>
#include <vector>

namespace vantora {

struct GrabZustand {
  // GrabTracks, GrabDateien and GrabNamen are parallel, from index 0: track number and target path.
  std::vector<std::int16_t> GrabTracks;
  std::vector<Text> GrabDateien;
  std::vector<Text> KopieDateien;  // the waves of a CD copy, until its burn removes them
  // The names of the tracks; blank when none was typed or found.
  std::vector<Text> GrabNamen;
  Text GrabInterpret;                     // performer of the disc, for tracks with a name
  std::vector<std::int32_t> GrabTrackMB;  // MB of each track of a CD copy
  std::int32_t GrabGesamtSektoren = 0;    // of all tracks to read
  std::int32_t GrabTrackSektoren = 0;     // of the track being read
  std::int32_t GrabTrackMs = 0;           // length of the track being read, in ms
  std::int32_t GrabAktuell = 0;           // sectors of the tracks that are finished
  std::int32_t GrabFertigMs = 0;          // length of the tracks that are finished, in ms
  bool GrabLaeuft = false;                // a track is being read
  bool GrabFertig = false;                // the track has been read whole
  bool GrabAbbruch = false;               // set by the cancel of the progress window
  bool GrabOhneNachfrage = false;         // tracks enter the catalog without a question
};

}  // namespace vantora
