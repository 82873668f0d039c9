#include "backends/sound/edits/edit_plan.h"

#include "backends/sound/files/wave_header.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>

namespace vantora {

namespace {

// Bytes between two records in a step that can be repeated from its source.
constexpr std::int64_t kFarStride = 1 << 22;

std::int64_t Even(std::int64_t bytes) {
  return bytes + bytes % 2;
}

[[noreturn]] void RaiseChanged() {
  throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
}

// Adds a helper to the plan if needed and returns its number. `layout` receives the layout of the
// helper.
std::uint32_t HelperOf(EditPlan& plan, const Text& path, Dateien& dateien, WaveLayout& layout) {
  const std::unique_ptr<Datei> file = dateien.Open(path, Zugriff::Lesen);
  layout = ReadWaveLayout(*file);
  plan.Helpers.push_back({path, file->Stand(), dateien.Medium(path)});
  return static_cast<std::uint32_t>(plan.Helpers.size() - 1);
}

PlanStep Lowered(const EditStep& step, std::int64_t dataOffset, EditPlan& plan, Dateien& dateien) {
  PlanStep low;
  low.To = dataOffset + step.At;
  low.From = dataOffset + step.From;
  low.Bytes = step.Bytes;
  low.Start = step.Start;
  low.Slope = step.Slope;
  switch (step.What) {
    case EditStep::Kind::Move:
      low.What = PlanStep::Kind::Move;
      break;
    case EditStep::Kind::Copy: {
      low.What = PlanStep::Kind::Copy;
      WaveLayout source;
      low.Helper = HelperOf(plan, step.Source, dateien, source);
      low.From = source.DataOffset + step.From;
      if (step.From + step.Bytes > source.DataBytes) RaiseChanged();
      break;
    }
    case EditStep::Kind::Zero:
      low.What = PlanStep::Kind::Fill;
      break;
    case EditStep::Kind::Ramp:
      low.What = PlanStep::Kind::Ramp;
      break;
    case EditStep::Kind::Scale:
      low.What = PlanStep::Kind::Scale;
      break;
    case EditStep::Kind::Mix:
      low.What = PlanStep::Kind::Put;
      low.From = static_cast<std::int64_t>(plan.Literal.size());
      plan.Literal.append(step.Samples.begin(), step.Samples.end());
      break;
  }
  return low;
}

PlanStep Whole(PlanStep::Kind what, std::int64_t bytes) {
  PlanStep step;
  step.What = what;
  step.Bytes = bytes;
  return step;
}

PlanStep SizeField(std::int64_t place, std::int64_t size, EditPlan& plan) {
  PlanStep step = Whole(PlanStep::Kind::Put, 4);
  step.To = place;
  step.From = static_cast<std::int64_t>(plan.Literal.size());
  for (int i = 0; i < 4; ++i) plan.Literal += static_cast<char>((size >> (8 * i)) & 0xFF);
  return step;
}

PlanStep MoveTail(std::int64_t from, std::int64_t to, std::int64_t bytes) {
  PlanStep step = Whole(PlanStep::Kind::Move, bytes);
  step.From = from;
  step.To = to;
  return step;
}

}  // namespace

bool PlanStep::NeedsSlot(std::int64_t block) const {
  if (What == Kind::Ramp || What == Kind::Scale) return true;
  return What == Kind::Move && std::abs(To - From) < block;
}

std::int64_t PlanStep::Stride(std::int64_t block) const {
  if (NeedsSlot(block)) return block;
  if (What != Kind::Move) return kFarStride;
  return std::min(std::abs(To - From) / block * block, kFarStride);
}

bool EditPlan::Names(Dateien& dateien, const Text& file) const {
  // Compares the file's identity, since a link is another name for it, and also the name, in case
  // the file cannot be reached.
  std::optional<DateiStand> stand;
  try {
    stand = dateien.Stand(file);
  } catch (const Laufzeitfehler&) {
  }
  const auto same = [&](const Text& path, const DateiStand& known) {
    return path == file || (stand && stand->SameFile(known));
  };
  return std::any_of(Files.begin(), Files.end(),
                     [&](const PlanFile& one) { return same(one.Path, one.Before); }) ||
         std::any_of(Helpers.begin(), Helpers.end(),
                     [&](const PlanHelper& one) { return same(one.Path, one.Stand); });
}

PlanFile PlanWave(WaveLayout& layout, const WaveEdit& edit, EditPlan& plan, Dateien& dateien,
                  std::optional<std::int64_t> tailAfter) {
  using Kind = PlanStep::Kind;
  if (layout.DataBytes != edit.Before) RaiseChanged();
  const std::int64_t soundEnd = layout.DataOffset + edit.After;
  // Not every file has a padding byte after sound of odd length. If the sound keeps its length, the
  // chunks after it stay where they are.
  if (!tailAfter && edit.After == edit.Before) tailAfter = layout.TailOffset;
  const std::int64_t tail = tailAfter.value_or(layout.DataOffset + Even(edit.After));
  const std::int64_t length = tail + layout.TailBytes;
  if (length > kMaxWaveFileBytes) {
    throw Laufzeitfehler(kFehlerPlattenVoll, L"El archivo de sonido es demasiado largo");
  }
  const std::int64_t lengthBefore = layout.TailOffset + layout.TailBytes;

  PlanFile file;
  file.Path = edit.File;
  file.LengthAfter = length;
  file.Steps.push_back(Whole(Kind::Reserve, std::max(length, lengthBefore)));
  const PlanStep moved = MoveTail(layout.TailOffset, tail, layout.TailBytes);
  if (tail > layout.TailOffset) file.Steps.push_back(moved);
  for (const EditStep& step : edit.Steps) {
    if (step.Bytes > 0) {
      file.Steps.push_back(Lowered(step, layout.DataOffset, plan, dateien));
    }
  }
  if (edit.After != edit.Before && tail > soundEnd) {
    PlanStep filler = Whole(Kind::Fill, 1);
    filler.To = soundEnd;
    file.Steps.push_back(filler);
  }
  if (tail < layout.TailOffset) file.Steps.push_back(moved);
  file.Steps.push_back(SizeField(4, length - 8, plan));
  file.Steps.push_back(SizeField(layout.DataOffset - 4, edit.After, plan));
  if (length < lengthBefore) file.Steps.push_back(Whole(Kind::Length, length));
  std::erase_if(file.Steps, [](const PlanStep& step) {
    return step.What == Kind::Move && (step.Bytes == 0 || step.To == step.From);
  });
  layout.DataBytes = edit.After;
  layout.TailOffset = tail;
  return file;
}

namespace {

constexpr std::uint32_t kMostNamed = 100'000;  // more files, steps or letters than any edit has

enum class PlanKind : std::uint8_t { Plain, Loan, OfRun };

class Writer {
 public:
  template <typename Number>
  void Put(Number value) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    Bytes.append(bytes, sizeof value);
  }
  void Put(const Text& text) {
    Count(text.size());
    for (const wchar_t letter : text) Put(static_cast<std::uint32_t>(letter));
  }
  void Put(const DateiStand& stand) {
    Put(stand.Device);
    Put(stand.Inode);
    Put(stand.Born);
    Put(stand.Bytes);
    Put(stand.Time);
  }
  void Count(std::size_t count) { Put(static_cast<std::uint32_t>(count)); }

  std::string Bytes;
};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  template <typename Number>
  void Get(Number& value) {
    if (bytes_.size() < sizeof value) RaiseChanged();
    std::memcpy(&value, bytes_.data(), sizeof value);
    bytes_.remove_prefix(sizeof value);
  }
  void Get(Text& text) {
    text.resize(Count());
    for (wchar_t& letter : text) {
      std::uint32_t code = 0;
      Get(code);
      letter = static_cast<wchar_t>(code);
    }
  }
  void Get(DateiStand& stand) {
    Get(stand.Device);
    Get(stand.Inode);
    Get(stand.Born);
    Get(stand.Bytes);
    Get(stand.Time);
  }
  std::size_t Count() {
    std::uint32_t count = 0;
    Get(count);
    if (count > kMostNamed) RaiseChanged();
    return count;
  }
  std::string Rest() const { return std::string(bytes_); }

 private:
  std::string_view bytes_;
};

// Lists the fields of a step for writing and for reading.
template <typename Way>
void Fields(PlanStep& step, Way way) {
  way(step.What);
  way(step.To);
  way(step.From);
  way(step.Bytes);
  way(step.Helper);
  way(step.Start);
  way(step.Slope);
}

}  // namespace

std::string PlanBytes(const EditPlan& plan) {
  Writer out;
  const auto put = [&out](const auto& value) { out.Put(value); };
  out.Count(plan.Files.size());
  for (const PlanFile& file : plan.Files) {
    put(file.Path);
    put(file.Before);
    put(file.Medium);
    put(file.LengthAfter);
    out.Count(file.Steps.size());
    for (PlanStep step : file.Steps) Fields(step, put);
  }
  const bool ofRun = !plan.RunReport.empty();
  put(plan.Loan ? PlanKind::Loan : (ofRun ? PlanKind::OfRun : PlanKind::Plain));
  if (ofRun) {
    out.Count(plan.RunReport.size());
    for (const Text& line : plan.RunReport) put(line);
  }
  out.Count(plan.Helpers.size());
  for (const PlanHelper& helper : plan.Helpers) {
    put(helper.Path);
    put(helper.Stand);
    put(helper.Medium);
  }
  return out.Bytes + plan.Literal;
}

EditPlan PlanFromBytes(std::string_view bytes) {
  Reader in(bytes);
  const auto get = [&in](auto& value) { in.Get(value); };
  EditPlan plan;
  plan.Files.resize(in.Count());
  for (PlanFile& file : plan.Files) {
    get(file.Path);
    get(file.Before);
    get(file.Medium);
    get(file.LengthAfter);
    file.Steps.resize(in.Count());
    for (PlanStep& step : file.Steps) Fields(step, get);
  }
  PlanKind kind{};
  get(kind);
  plan.Loan = kind == PlanKind::Loan;
  if (kind == PlanKind::OfRun) {
    plan.RunReport.resize(in.Count());
    for (Text& line : plan.RunReport) get(line);
  }
  plan.Helpers.resize(in.Count());
  for (PlanHelper& helper : plan.Helpers) {
    get(helper.Path);
    get(helper.Stand);
    get(helper.Medium);
  }
  plan.Literal = in.Rest();
  return plan;
}

}  // namespace vantora
