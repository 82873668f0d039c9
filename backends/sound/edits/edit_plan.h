// What an edit does, down to bytes of files: worked out once, from a header that is whole, and kept
// in the edit's note. Nothing of it is read again from a file that may be half written.
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

// Places are bytes from the start of a file.
struct PlanStep {
  enum class Kind : std::uint8_t { Reserve, Move, Copy, Fill, Ramp, Scale, Put, Length };

  Kind What = Kind::Fill;
  std::int64_t To = 0;
  std::int64_t From = 0;   // Copy: in the helper; Put: in the plan's own bytes
  std::int64_t Bytes = 0;  // Reserve, Length: of the whole file
  std::uint32_t Helper = 0;
  double Start = 1, Slope = 0;

  // Moves and changes in place, whose result cannot be computed twice once it is written over what
  // it was made of. `block`: the bytes at a time.
  bool NeedsSlot(std::int64_t block) const;
  // From the end of the range to its start, as the target lies over the rest of the source.
  bool Backwards() const { return What == Kind::Move && To > From; }
  // Bytes that may be done between two records.
  std::int64_t Stride(std::int64_t block) const;
};

// A wave before and after its edit.
struct PlanFile {
  Text Path;
  DateiStand Before;
  Text Medium;  // as Dateien::Medium names it
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
  // There are two files, and they are one: the first edit appends silence, the second, which may be
  // asked for much later, takes it out.
  bool Loan = false;
  std::vector<PlanHelper> Helpers;
  std::vector<Text> RunReport;
  std::string Literal;  // the bytes that Put writes: mixed samples, and the sizes in headers

  bool Names(Dateien& dateien, const Text& file) const;
};

// The steps from one layout to sound of another length. `layout` becomes what the file has then.
// `tail`: where the chunks behind the sound go; behind the sound, made even, if nothing is said.
// Error 61 when no wave file can be so long.
PlanFile PlanWave(WaveLayout& layout, const WaveEdit& edit, EditPlan& plan, Dateien& dateien,
                  std::optional<std::int64_t> tail = {});

std::string PlanBytes(const EditPlan& plan);
// Error 62 for bytes that are none.
EditPlan PlanFromBytes(std::string_view bytes);

}  // namespace vantora
