// The plan of an edit, down to bytes of files. It is made once, from an intact header, and kept in
// the edit's note. Nothing in it has to be read again from a file that may be half written.
#pragma once

#include "backends/sound/files/wave_layout.h"

#include "platform/edits.h"
#include "platform/files.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantora {

// Offsets are bytes from the start of a file.
struct PlanStep {
  enum class Kind : std::uint8_t { Reserve, Move, Copy, Fill, Ramp, Scale, Put, Length };

  Kind What = Kind::Fill;
  std::int64_t To = 0;
  std::int64_t From = 0;   // Copy: in the helper; Put: in Literal
  std::int64_t Bytes = 0;  // Reserve, Length: of the whole file
  std::uint32_t Helper = 0;
  double Start = 1, Slope = 0;

  // True for a change whose source is overwritten by its result, so that it cannot be computed
  // again. `block` is the number of bytes done at a time.
  bool NeedsSlot(std::int64_t block) const;
  // Works from the end of the range to its start, since the target overlaps the rest of the source.
  bool Backwards() const { return What == Kind::Move && To > From; }
  // Bytes that may be done between two records.
  std::int64_t Stride(std::int64_t block) const;
};

// One file's part of an edit.
struct PlanFile {
  Text Path;
  DateiStand Before;
  Text Medium;  // from Dateien::Medium
  std::int64_t LengthAfter = 0;
  std::vector<PlanStep> Steps;
};

// A file that is only read.
struct PlanHelper {
  Text Path;
  DateiStand Stand;
  Text Medium;
};

struct EditPlan {
  std::vector<PlanFile> Files;
  // True for borrowed silence. Both entries of Files then name the same file: the first appends
  // silence, the second, which may run much later, removes it.
  bool Loan = false;
  std::vector<PlanHelper> Helpers;
  std::vector<Text> RunReport;
  std::string Literal;  // bytes for Put: mixed samples and size fields of headers

  bool Names(Dateien& dateien, const Text& file) const;
};

// Plans the steps from a layout to sound of another length, and updates `layout`. `tail` is the new
// offset of the chunks after the sound; by default they follow the sound at an even offset. Raises
// 61 when the file would be too long for a wave file.
PlanFile PlanWave(WaveLayout& layout, const WaveEdit& edit, EditPlan& plan, Dateien& dateien,
                  std::optional<std::int64_t> tail = {});

std::string PlanBytes(const EditPlan& plan);
// Raises 62 for bytes that are not a plan.
EditPlan PlanFromBytes(std::string_view bytes);

}  // namespace vantora
