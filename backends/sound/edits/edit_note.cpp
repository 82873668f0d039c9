#include "backends/sound/edits/edit_note.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

namespace vantora {

namespace {

constexpr std::uint64_t kMark = 0x31'45544F'4E525456ULL;  // "VTRNOTE1", ends with the version
constexpr std::uint64_t kMarkWithoutVersion = 0x00FF'FFFF'FFFF'FFFFULL;
constexpr int kMostNotes = 1000;
constexpr std::int64_t kLargestBlock = 1 << 20;
constexpr std::int64_t kPage = 4096;

struct Head {
  std::uint64_t Mark = kMark;
  std::int64_t BlockBytes = 0, PlanBytes = 0;
  std::uint64_t Checksum = 0;  // of the plan and of the fields above
};

struct DoneEntry {
  DateiStand After;
  std::uint64_t Checksum = 0;
};

// Checksums show whether bytes were written completely.
std::uint64_t Checksum(const char* bytes, std::size_t count, std::uint64_t start) {
  constexpr std::uint64_t kPrime = 0x9E37'79B9'7F4A'7C15ULL;
  std::uint64_t sum = start + count;
  for (std::size_t place = 0; place < count; place += sizeof sum) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes + place, std::min(sizeof word, count - place));
    sum = std::rotl((sum ^ word) * kPrime, 29);
  }
  return sum;
}

template <typename Record>
std::uint64_t ChecksumOf(Record record, const char* data, std::size_t count) {
  record.Checksum = 0;
  std::array<char, sizeof record> bytes{};
  std::memcpy(bytes.data(), &record, sizeof record);
  return Checksum(data, count, Checksum(bytes.data(), bytes.size(), kMark));
}

}  // namespace

std::unique_ptr<EditNote> EditNote::Make(Dateien& dateien, const Text& folder, EditPlan plan,
                                         std::int64_t blockBytes) {
  if (!dateien.IsDirectory(folder)) dateien.MkDir(folder);
  for (int i = 1; i <= kMostNotes; ++i) {
    std::unique_ptr<EditNote> note(
        new EditNote(dateien, folder + L"\\" + std::to_wstring(i) + L".nota"));
    note->file_ = dateien.Open(note->path_, Zugriff::Binaer);
    if (note->file_->Length() != 0 || !note->file_->Lock()) continue;
    note->plan_ = std::move(plan);
    note->block_ = blockBytes;
    try {
      note->WritePlan();
    } catch (const Laufzeitfehler&) {
      note->Remove();
      throw;
    }
    return note;
  }
  throw Laufzeitfehler(kFehlerZugriff, L"Hay demasiadas modificaciones sin terminar");
}

std::unique_ptr<EditNote> EditNote::Open(Dateien& dateien, const Text& path) {
  std::unique_ptr<EditNote> note(new EditNote(dateien, path));
  note->file_ = dateien.Open(path, Zugriff::Binaer);
  if (!note->file_->Lock()) return nullptr;
  note->ReadPlan();
  return note;
}

void EditNote::Arrange(std::int64_t planBytes) {
  doneAt_ = static_cast<std::int64_t>(sizeof(Head)) + planBytes;
  recordsAt_ = doneAt_ + static_cast<std::int64_t>(plan_.Files.size() * sizeof(DoneEntry));
  const std::int64_t end = recordsAt_ + static_cast<std::int64_t>(2 * sizeof(Record));
  dataAt_ = (end + kPage - 1) / kPage * kPage;  // page-aligned writes are faster
}

std::int64_t EditNote::RecordPlace(std::uint64_t number) const {
  return recordsAt_ + static_cast<std::int64_t>(number % 2 * sizeof(Record));
}

std::int64_t EditNote::DataPlace(std::uint64_t number) const {
  return dataAt_ + static_cast<std::int64_t>(number % 2) * block_;
}

// Space is reserved first and the head is written last. A note with a valid head is therefore
// complete.
void EditNote::WritePlan() {
  const std::string bytes = PlanBytes(plan_);
  Head head;
  head.BlockBytes = block_;
  head.PlanBytes = static_cast<std::int64_t>(bytes.size());
  head.Checksum = ChecksumOf(head, bytes.data(), bytes.size());
  Arrange(head.PlanBytes);
  file_->Reserve(dataAt_ + 2 * block_);
  file_->Seek(sizeof head);
  file_->Write(bytes.data(), bytes.size());
  file_->Seek(0);
  file_->Write(&head, sizeof head);
}

void EditNote::ReadPlan() {
  Head head;
  file_->Seek(0);
  if (file_->ReadSome(&head, sizeof head) != sizeof head) return;
  foreign_ =
      head.Mark != kMark && (head.Mark & kMarkWithoutVersion) == (kMark & kMarkWithoutVersion);
  if (head.Mark != kMark || head.PlanBytes < 0 || head.PlanBytes > file_->Length() ||
      head.BlockBytes <= 0 || head.BlockBytes > kLargestBlock) {
    return;
  }
  std::string bytes(static_cast<std::size_t>(head.PlanBytes), '\0');
  if (file_->ReadSome(bytes.data(), bytes.size()) != bytes.size() ||
      head.Checksum != ChecksumOf(head, bytes.data(), bytes.size())) {
    return;
  }
  plan_ = PlanFromBytes(bytes);
  block_ = head.BlockBytes;
  Arrange(head.PlanBytes);
}

// The data is written before its record, so a valid record has valid data. Until the record is
// written, the record in the other slot is the last one.
void EditNote::Write(Record& record, Block& block) {
  record.Number = number_ + 1;
  record.Checksum = ChecksumOf(record, nullptr, 0);
  if (record.DataBytes > 0) {
    file_->Seek(DataPlace(record.Number));
    file_->Write(block.Data(), static_cast<std::size_t>(record.DataBytes));
  }
  file_->Seek(RecordPlace(record.Number));
  file_->Write(&record, sizeof record);
  number_ = record.Number;
}

std::optional<EditNote::Record> EditNote::Last(Block& block) {
  std::optional<Record> last;
  for (const std::uint64_t slot : {0U, 1U}) {
    Record record;
    file_->Seek(RecordPlace(slot));
    file_->Read(&record, sizeof record);
    const bool whole = record.Number != 0 && record.Checksum == ChecksumOf(record, nullptr, 0);
    if (whole && (!last || last->Number < record.Number)) last = record;
  }
  number_ = last ? last->Number : 0;
  if (last && last->DataBytes > 0) {
    file_->Seek(DataPlace(last->Number));
    file_->Read(block.Data(), std::min<std::size_t>(last->DataBytes, block.Room()));
  }
  return last;
}

void EditNote::SetDone(std::size_t file, const DateiStand& after) {
  DoneEntry entry{after, 0};
  entry.Checksum = ChecksumOf(entry, nullptr, 0);
  file_->Seek(doneAt_ + static_cast<std::int64_t>(file * sizeof entry));
  file_->Write(&entry, sizeof entry);
}

std::optional<DateiStand> EditNote::Done(std::size_t file) {
  DoneEntry entry;
  file_->Seek(doneAt_ + static_cast<std::int64_t>(file * sizeof entry));
  file_->Read(&entry, sizeof entry);
  if (entry.Checksum != ChecksumOf(entry, nullptr, 0)) return {};
  return entry.After;
}

// When the note cannot be deleted, it is emptied. An empty note is deleted at a later start.
void EditNote::Remove() {
  try {
    dateien_.Kill(path_);
  } catch (const Laufzeitfehler&) {
    file_->Truncate(0);
  }
}

}  // namespace vantora
