// The file that describes an edit in progress. It holds the plan, for each file of the plan whether
// it is done, and two slots for records, which are written alternately: the current block and the
// one before it. A record is written before its block is written to the wave. It includes the bytes
// of the block if they could not be computed again. Whenever the program is killed, the edit is
// completed by writing the block of the last complete record again and continuing after it.
//
// An open note is locked against other programs.
#pragma once

#include "backends/sound/edits/edit_plan.h"

#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vantora {

class EditNote {
 public:
  // A block of a step. `Done` counts bytes from where the step begins, which is the end of its
  // range when the step works backwards.
  struct Record {
    std::uint64_t Number = 0;  // from 1; 0 for none
    std::uint32_t File = 0, Step = 0;
    std::int64_t Done = 0, Bytes = 0;
    DateiStand Before;            // state of the wave before the block
    std::uint64_t DataBytes = 0;  // of the block in the note; 0: it can be computed again
    std::uint64_t Checksum = 0;
  };

  class Block {
   public:
    explicit Block(std::int64_t bytes) : bytes_(static_cast<std::size_t>(bytes)) {}
    char* Data() { return bytes_.data(); }
    std::size_t Room() const { return bytes_.size(); }

   private:
    std::vector<char> bytes_;
  };

  // Creates a note in `folder`, complete and with all the space that it will need. Leaves no file
  // when it fails.
  static std::unique_ptr<EditNote> Make(Dateien& dateien, const Text& folder, EditPlan plan,
                                        std::int64_t blockBytes);
  // Returns null when another program has locked the note. A note whose plan is incomplete, because
  // the program was killed, has an empty plan.
  static std::unique_ptr<EditNote> Open(Dateien& dateien, const Text& path);

  const EditPlan& Plan() const { return plan_; }
  std::int64_t BlockBytes() const { return block_; }
  bool Foreign() const { return foreign_; }  // written by an unknown version of the program

  // Sets the number of `record`. Its data, if any, is in `block`.
  void Write(Record& record, Block& block);
  std::optional<Record> Last(Block& block);  // last complete record, with its data in `block`
  std::int64_t Time() const { return file_->Stand().Time; }  // when the last record was written

  void SetDone(std::size_t file, const DateiStand& after);
  std::optional<DateiStand> Done(std::size_t file);  // state of the file when it was done

  void Remove();

 private:
  EditNote(Dateien& dateien, Text path) : dateien_(dateien), path_(std::move(path)) {}
  void WritePlan();
  void ReadPlan();
  void Arrange(std::int64_t planBytes);
  std::int64_t RecordPlace(std::uint64_t number) const;
  std::int64_t DataPlace(std::uint64_t number) const;

  Dateien& dateien_;
  Text path_;
  std::unique_ptr<Datei> file_;
  EditPlan plan_;
  bool foreign_ = false;
  std::int64_t block_ = 0;
  std::int64_t doneAt_ = 0, recordsAt_ = 0, dataAt_ = 0;  // offsets in the note
  std::uint64_t number_ = 0;                              // of the last record
};

}  // namespace vantora
