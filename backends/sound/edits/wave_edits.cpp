#include "backends/sound/edits/wave_edits.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <utility>

namespace vantora {

namespace {

using State = EditRun::State;

// A disc may need up to 99 notes of silence, and files rarely have chunks after their sound, so
// these notes are small.
constexpr std::int64_t kLoanBlockBytes = 1 << 14;

void Add(std::vector<Text>& lines, const Text& line) {
  if (std::find(lines.begin(), lines.end(), line) == lines.end()) lines.push_back(line);
}

void Add(std::vector<Text>& files, const EditPlan& plan) {
  for (const PlanFile& file : plan.Files) Add(files, file.Path);
}

// The note of the run's second-to-last edit may still exist. Its report is shorter.
void AddReport(std::vector<Text>& lines, std::vector<Text> report) {
  if (report.size() > lines.size()) std::swap(lines, report);
  for (const Text& line : report) Add(lines, line);
}

// Reads the layout of a file and checks that it can be written.
WaveLayout LayoutOf(Dateien& dateien, const Text& path, DateiStand& stand) {
  WaveLayout layout;
  {
    const std::unique_ptr<Datei> file = dateien.Open(path, Zugriff::Lesen);
    stand = file->Stand();
    layout = ReadWaveLayout(*file);
  }
  dateien.Open(path, Zugriff::Binaer);
  return layout;
}

// Reserves the blocks of sparse files first: when the disk has no space for one file, no file is
// changed.
void FillHoles(Dateien& dateien, const Edit& edit) {
  if (edit.Waves.size() < 2) return;
  for (const WaveEdit& wave : edit.Waves) {
    const std::int64_t length = dateien.FileLen(wave.File);  // raises when the file does not exist
    dateien.Open(wave.File, Zugriff::Binaer)->Reserve(length);
  }
}

}  // namespace

void WaveEdits::Apply(const Edit& edit) {
  EditPlan plan;
  plan.RunReport = edit.RunReport;
  for (const WaveEdit& wave : edit.Waves) Ready(wave.File);
  FillHoles(dateien_, edit);
  for (const WaveEdit& wave : edit.Waves) {
    DateiStand before;
    WaveLayout layout = LayoutOf(dateien_, wave.File, before);
    plan.Files.push_back(PlanWave(layout, wave, plan, dateien_));
    plan.Files.back().Before = before;
    plan.Files.back().Medium = dateien_.Medium(wave.File);
  }
  Note note = Begin(std::move(plan), blockBytes_);
  running_ = running_ || !edit.RunReport.empty();
  EditRun run(dateien_, ramp_, *note);
  try {
    for (std::size_t i = 0; i < note->Plan().Files.size(); ++i) run.Start(i, edit.Progress);
  } catch (const Laufzeitfehler& fehler) {
    // Settle completes the edit from where the error occurred. If that is impossible, the edit's
    // files are blocked until it can be completed.
    const bool begun = run.Begun();
    State state = State::Finished;
    try {
      state = Settle(std::move(note));
    } catch (const Laufzeitfehler&) {
      // The first error is more useful.
    }
    if (begun && state != State::Changed) throw FinishedAfterError(fehler);
    throw;
  }
  Conclude(std::move(note));
}

EditRun::State WaveEdits::Settle(Note note) {
  State state = State::Finished;
  try {
    state = EditRun(dateien_, ramp_, *note).Finish();
  } catch (const Laufzeitfehler&) {
    open_.push_back(std::move(note));
    throw;
  }
  if (state == State::MediumAway) {
    open_.push_back(std::move(note));
  } else if (state == State::Finished) {
    Conclude(std::move(note));
  } else {
    Drop(std::move(note));
  }
  return state;
}

bool WaveEdits::Ready(const Text& file) {
  std::vector<Note> notes;
  std::swap(notes, open_);
  const auto concerned = std::stable_partition(notes.begin(), notes.end(), [&](const Note& note) {
    return !note->Plan().Names(dateien_, file);
  });
  std::vector<Note> mine(std::make_move_iterator(concerned), std::make_move_iterator(notes.end()));
  notes.erase(concerned, notes.end());
  open_ = std::move(notes);
  bool waits = false;
  for (Note& note : mine) {
    try {
      waits = Settle(std::move(note)) == State::MediumAway || waits;
    } catch (const Laufzeitfehler&) {
      waits = true;
    }
  }
  if (waits) throw Laufzeitfehler(kFehlerZugriff, L"Hay una modificación anterior sin terminar");
  return !mine.empty();
}

// The last note of a run stays until the next edit of the run is done. A kill at any moment
// therefore leaves a note with the run's report.
void WaveEdits::Conclude(Note note) {
  if (running_ && !note->Plan().RunReport.empty()) std::swap(note, run_);
  if (note) Drop(std::move(note));
}

void WaveEdits::EndRun() {
  running_ = false;
  if (run_) Drop(std::move(run_));
}

// A note that cannot be deleted is emptied or says that all is done, so it does no harm.
void WaveEdits::Drop(Note note) {
  try {
    note->Remove();
  } catch (const Laufzeitfehler&) {
    open_.push_back(std::move(note));
  }
}

bool WaveEdits::Needs(const Text& file) const {
  const auto names = [&](const Note& note) { return note->Plan().Names(dateien_, file); };
  return std::any_of(open_.begin(), open_.end(), names) ||
         std::any_of(loan_.begin(), loan_.end(), names);
}

EditPlan WaveEdits::LoanPlan(const Silence& silence) {
  EditPlan plan;
  DateiStand before;
  WaveLayout layout = LayoutOf(dateien_, silence.File, before);
  const std::int64_t sound = layout.DataBytes, longer = sound + silence.Bytes;
  const std::int64_t tail = layout.TailOffset;
  const WaveEdit append{silence.File, sound, longer, {ZeroStep(sound, silence.Bytes)}};
  const WaveEdit remove{silence.File, longer, sound, {}};
  plan.Loan = true;
  plan.Files.push_back(PlanWave(layout, append, plan, dateien_));
  plan.Files.push_back(PlanWave(layout, remove, plan, dateien_, tail));
  for (PlanFile& file : plan.Files) file.Medium = dateien_.Medium(silence.File);
  plan.Files.front().Before = before;
  return plan;
}

void WaveEdits::Lend(const std::vector<Silence>& silences) {
  Forget();
  // A file may be listed more than once, by its own name and by links.
  std::vector<std::pair<Silence, DateiStand>> merged;
  for (const Silence& silence : silences) {
    const DateiStand stand = dateien_.Stand(silence.File);
    const auto same = std::find_if(merged.begin(), merged.end(),
                                   [&](const auto& other) { return other.second.SameFile(stand); });
    if (same == merged.end()) {
      merged.emplace_back(silence, stand);
    } else {
      same->first.Bytes += silence.Bytes;
    }
  }
  try {
    for (const auto& [silence, stand] : merged) {
      Ready(silence.File);
      loan_.push_back(Begin(LoanPlan(silence), kLoanBlockBytes));
      EditRun(dateien_, ramp_, *loan_.back()).Start(0);
    }
  } catch (const Laufzeitfehler&) {
    TakeBack();
    throw;
  }
}

std::vector<Text> WaveEdits::TakeBack() {
  std::vector<Note> notes;
  std::swap(notes, loan_);
  std::vector<Text> left;
  for (Note& note : notes) {
    const Text file = note->Plan().Files.front().Path;
    try {
      const State state = Settle(std::move(note));
      if (state == State::Changed || state == State::MediumAway) left.push_back(file);
    } catch (const Laufzeitfehler&) {
      left.push_back(file);
    }
  }
  return left;
}

void WaveEdits::Forget() {
  std::vector<Note> notes;
  std::swap(notes, loan_);
  for (Note& note : notes) Drop(std::move(note));
}

MendedEdits WaveEdits::Mend() {
  MendedEdits mended;
  if (!dateien_.IsDirectory(kFolder)) return mended;
  for (const Text& name : dateien_.List(kFolder, L"*.nota")) {
    try {
      Note note = EditNote::Open(dateien_, Text(kFolder) + L"\\" + name);
      if (note) MendNote(std::move(note), mended);
    } catch (const Laufzeitfehler&) {
      // The files of a note that cannot be read are unknown. It is tried again at the next start.
    }
  }
  return mended;
}

void WaveEdits::MendNote(Note note, MendedEdits& mended) {
  const EditPlan plan = note->Plan();
  if (plan.Files.empty()) {
    if (!note->Foreign()) note->Remove();
    return;
  }
  try {
    switch (Settle(std::move(note))) {
      case State::Finished:
        if (!plan.RunReport.empty()) return AddReport(mended.RunReport, plan.RunReport);
        return Add(plan.Loan ? mended.SilenceTaken : mended.Finished, plan);
      case State::Changed:
        return Add(mended.Left, plan);
      case State::NotBegun:
      case State::MediumAway:
        return;
    }
  } catch (const Laufzeitfehler&) {
    Add(mended.Failed, plan);
  }
}

}  // namespace vantora
