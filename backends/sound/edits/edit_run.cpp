#include "backends/sound/edits/edit_run.h"

#include "backends/sound/edits/scale.h"

#include "platform/cd_sound.h"
#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vantora {

namespace {

using Kind = PlanStep::Kind;

constexpr std::int64_t kSecond = 1'000'000'000;  // in ns
// Limits for the time between a record and a block whose write was interrupted by a kill. Both
// times come from the file system of the wave, whose clock may differ from ours. Some file systems
// store times in steps of two seconds, and some media need long for a block.
constexpr std::int64_t kCoarsestTime = 2 * kSecond, kLongestBlock = 60 * kSecond;

bool SameContent(const DateiStand& one, const DateiStand& other) {
  return one.Bytes == other.Bytes && one.Time == other.Time;
}

}  // namespace

void EditRun::Start(std::size_t file, const std::function<void(int percent)>& progress) {
  Run(file, nullptr, progress);
}

void EditRun::Run(std::size_t file, const Record* from,
                  const std::function<void(int percent)>& progress) {
  const PlanFile& plan = note_.Plan().Files[file];
  wave_ = dateien_.Open(plan.Path, Zugriff::Binaer);
  helpers_.clear();
  progress_ = &progress;
  written_ = toWrite_ = 0;
  told_ = -1;
  for (const PlanStep& step : plan.Steps) {
    if (step.What != Kind::Reserve && step.What != Kind::Length) toWrite_ += step.Bytes;
  }
  for (std::size_t i = from != nullptr ? from->Step : 0; i < plan.Steps.size(); ++i) {
    const bool again = from != nullptr && from->Step == i;
    Record record;
    if (again) record = *from;
    record.File = static_cast<std::uint32_t>(file);
    record.Step = static_cast<std::uint32_t>(i);
    RunStep(plan.Steps[i], record, again);
  }
  CloseWave(file);
}

void EditRun::CloseWave(std::size_t file) {
  wave_->Flush();
  note_.SetDone(file, wave_->Stand());
  wave_.reset();
}

// With `again`, the record's block is done first, although it may already be in the wave.
void EditRun::RunStep(const PlanStep& step, Record& record, bool again) {
  const bool inOneGo = step.What == Kind::Reserve || step.What == Kind::Length;
  const bool slot = step.NeedsSlot(note_.BlockBytes());
  const std::int64_t stride = step.Stride(note_.BlockBytes());
  if (again) {
    DoBlock(step, record);
    record.Done += record.Bytes;
  }
  while (record.Done < step.Bytes) {
    record.Bytes = inOneGo ? step.Bytes : std::min(stride, step.Bytes - record.Done);
    record.DataBytes = slot ? static_cast<std::uint64_t>(record.Bytes) : 0;
    if (slot) Compute(step, record);
    record.Before = wave_->Stand();
    note_.Write(record, block_);
    begun_ = begun_ || step.What != Kind::Reserve;
    DoBlock(step, record);
    record.Done += record.Bytes;
    written_ += record.Bytes;
    const int percent = static_cast<int>(std::min<std::int64_t>(written_ * 100 / toWrite_, 100));
    if (*progress_ && step.What != Kind::Reserve && percent != told_) (*progress_)(told_ = percent);
  }
}

// The offset of a block in a range that begins at `start`.
std::int64_t EditRun::Place(const PlanStep& step, std::int64_t start, const Record& record) {
  return step.Backwards() ? start + step.Bytes - record.Done - record.Bytes : start + record.Done;
}

void EditRun::Compute(const PlanStep& step, Record& record) {
  const bool move = step.What == Kind::Move;
  const auto bytes = static_cast<std::size_t>(record.Bytes);
  wave_->Seek(Place(step, move ? step.From : step.To, record));
  wave_->Read(block_.Data(), bytes);
  if (move) return;
  auto* const samples = reinterpret_cast<std::int16_t*>(block_.Data());
  if (step.What == Kind::Ramp) {
    ramp_(samples, bytes / kFrameBytes, record.Done / kFrameBytes, step.Start, step.Slope);
  } else {
    ScaleSamples(samples, bytes / sizeof *samples, static_cast<float>(step.Start));
  }
}

void EditRun::DoBlock(const PlanStep& step, const Record& record) {
  if (record.DataBytes > 0) {
    wave_->Seek(Place(step, step.To, record));
    wave_->Write(block_.Data(), static_cast<std::size_t>(record.DataBytes));
    return;
  }
  switch (step.What) {
    case Kind::Reserve:
      return wave_->Reserve(step.Bytes);
    case Kind::Move:
      return MoveFar(step, record);
    case Kind::Copy:
      return CopyFromHelper(step, record);
    case Kind::Fill:
      return Fill(step.To + record.Done, record.Bytes);
    case Kind::Put:
      wave_->Seek(step.To + record.Done);
      return wave_->Write(
          note_.Plan().Literal.data() + static_cast<std::size_t>(step.From + record.Done),
          static_cast<std::size_t>(record.Bytes));
    case Kind::Length:
      return wave_->Truncate(step.Bytes);
    case Kind::Ramp:
    case Kind::Scale:
      return;  // their result is in the note
  }
}

// Moves a block that is no longer than the distance from source to target, so that it does not
// overwrite its own source.
void EditRun::MoveFar(const PlanStep& step, const Record& record) {
  const std::int64_t from = Place(step, step.From, record), to = Place(step, step.To, record);
  for (std::int64_t done = 0; done < record.Bytes;) {
    const std::int64_t some =
        std::min(record.Bytes - done, static_cast<std::int64_t>(block_.Room()));
    wave_->Seek(from + done);
    wave_->Read(block_.Data(), static_cast<std::size_t>(some));
    wave_->Seek(to + done);
    wave_->Write(block_.Data(), static_cast<std::size_t>(some));
    done += some;
  }
}

void EditRun::Fill(std::int64_t at, std::int64_t bytes) {
  std::memset(block_.Data(), 0, block_.Room());
  wave_->Seek(at);
  for (std::int64_t left = bytes; left > 0;) {
    const std::int64_t some = std::min(left, static_cast<std::int64_t>(block_.Room()));
    wave_->Write(block_.Data(), static_cast<std::size_t>(some));
    left -= some;
  }
}

void EditRun::CopyFromHelper(const PlanStep& step, const Record& record) {
  std::unique_ptr<Datei>& helper = helpers_[step.Helper];
  if (!helper) {
    helper = dateien_.Open(note_.Plan().Helpers[step.Helper].Path, Zugriff::Lesen);
  }
  helper->Seek(step.From + record.Done);
  wave_->Seek(step.To + record.Done);
  const auto bytes = static_cast<std::size_t>(record.Bytes);
  if (helper->CopyTo(*wave_, bytes) != bytes) {
    throw Laufzeitfehler(kFehlerDateiEnde, L"El archivo ha cambiado");
  }
}

EditRun::State EditRun::Finish() {
  const std::optional<Record> last = note_.Last(block_);
  if (!last) return State::NotBegun;
  const std::vector<PlanFile>& files = note_.Plan().Files;
  const bool between = note_.Done(last->File).has_value();
  const std::size_t next = last->File + 1U;
  State state = between ? State::Finished : Look(last->File, &*last);
  for (std::size_t i = next; i < files.size() && state == State::Finished; ++i) {
    state = Look(i, nullptr);
  }
  if (state != State::Finished) return state;
  if (!between) {
    const bool onlyReserved = files[last->File].Steps[last->Step].What == Kind::Reserve;
    if (onlyReserved && last->File == 0) return UndoReserve(0);
    Run(last->File, &*last, {});
  }
  for (std::size_t i = next; i < files.size(); ++i) Start(i);
  return State::Finished;
}

EditRun::State EditRun::UndoReserve(std::size_t file) {
  const PlanFile& plan = note_.Plan().Files[file];
  const std::unique_ptr<Datei> wave = dateien_.Open(plan.Path, Zugriff::Binaer);
  if (wave->Length() > plan.Before.Bytes) wave->Truncate(plan.Before.Bytes);
  return State::NotBegun;
}

std::optional<DateiStand> EditRun::Before(std::size_t file) {
  return note_.Plan().Loan && file == 1 ? note_.Done(0) : note_.Plan().Files[file].Before;
}

// Checks that the file is the one of the note and is unchanged since then, except for the block
// that was being written when the program was killed.
EditRun::State EditRun::Look(std::size_t file, const Record* from) {
  const PlanFile& plan = note_.Plan().Files[file];
  const std::optional<DateiStand> before = from != nullptr ? from->Before : Before(file);
  if (!before) return State::Finished;
  DateiStand now;
  const State there = Find(plan.Path, *before, plan.Medium, now);
  if (there != State::Finished) return there;
  if (!SameContent(now, *before) && (from == nullptr || !MayBeBlock(plan, *from, now))) {
    return State::Changed;
  }
  return LookAtHelpers(plan, from != nullptr ? from->Step : 0);
}

bool EditRun::MayBeBlock(const PlanFile& plan, const Record& record, const DateiStand& now) {
  const Kind kind = plan.Steps[record.Step].What;
  // A medium that has been plugged in again may have another device number and other file numbers.
  if (now.Device == record.Before.Device && !now.SameFile(record.Before)) return false;
  if (kind == Kind::Reserve) return IsReserved(plan, record, now);
  const bool size =
      now.Bytes == record.Before.Bytes || (kind == Kind::Length && now.Bytes == plan.LengthAfter);
  const std::int64_t since = now.Time - record.Before.Time;
  return size && since >= -kCoarsestTime && since <= kLongestBlock;
}

// True when the reserved space is still all zeros.
bool EditRun::IsReserved(const PlanFile& plan, const Record& record, const DateiStand& now) {
  if (now.Bytes < record.Before.Bytes || now.Bytes > record.Bytes) return false;
  const std::unique_ptr<Datei> file = dateien_.Open(plan.Path, Zugriff::Lesen);
  file->Seek(record.Before.Bytes);
  for (std::size_t some = 1; some > 0;) {
    some = file->ReadSome(block_.Data(), block_.Room());
    const char* const end = block_.Data() + some;
    if (std::find_if(block_.Data(), block_.Data() + some, [](char c) { return c != 0; }) != end) {
      return false;
    }
  }
  return true;
}

EditRun::State EditRun::LookAtHelpers(const PlanFile& plan, std::size_t step) {
  for (std::size_t i = step; i < plan.Steps.size(); ++i) {
    if (plan.Steps[i].What != Kind::Copy) continue;
    const PlanHelper& helper = note_.Plan().Helpers[plan.Steps[i].Helper];
    DateiStand now;
    const State there = Find(helper.Path, helper.Stand, helper.Medium, now);
    if (there != State::Finished) return there;
    if (!SameContent(now, helper.Stand)) return State::Changed;
  }
  return State::Finished;
}

// When the file is missing or is another file, the result is MediumAway, unless its folder is on
// the medium of the note.
EditRun::State EditRun::Find(const Text& path, const DateiStand& known, const Text& medium,
                             DateiStand& now) {
  const auto missing = [](const Laufzeitfehler& fehler) {
    return fehler.Nummer == kFehlerDateiFehlt || fehler.Nummer == kFehlerPfadFehlt;
  };
  bool found = true;
  try {
    now = dateien_.Stand(path);
    if (now.SameFile(known)) return State::Finished;
  } catch (const Laufzeitfehler& fehler) {
    if (!missing(fehler)) throw;
    found = false;
  }
  try {
    const Text folder = path.substr(0, path.find_last_of(L'\\') + 1);
    if (dateien_.Medium(folder) != medium) return State::MediumAway;
    return found ? State::Finished : State::Changed;
  } catch (const Laufzeitfehler& fehler) {
    if (!missing(fehler)) throw;
    return State::MediumAway;
  }
}

}  // namespace vantora
