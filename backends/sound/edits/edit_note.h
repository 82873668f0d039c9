// The file that says what an edit is about to do. It holds the plan, for each file of the plan
// whether it is done, and two records that are written by turns: the block that is being done now
// and the one before it. A record is written before its block goes into the wave, and carries the
// block's bytes where these could not be computed again. So whatever moment the program is killed
// at, writing the last whole record's block again and going on behind it ends the edit.
//
// While a note is open, it is locked against other programs.
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
  // A stretch of a step. `Done` counts from where the step begins, which is the end of its range
  // when it works backwards.
  struct Record {
    std::uint64_t Number = 0;  // from 1; 0 for none
    std::uint32_t File = 0, Step = 0;
    std::int64_t Done = 0, Bytes = 0;
    DateiStand Before;            // the wave before the block
    std::uint64_t DataBytes = 0;  // of the block itself; 0 when it can be computed again
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

  // A new note in the folder, whole on the disk with all the room that it will need. Fails without
  // leaving a file.
  static std::unique_ptr<EditNote> Make(Dateien& dateien, const Text& folder, EditPlan plan,
                                        std::int64_t blockBytes);
  // Nothing when another program holds it. A note that was killed before its plan was whole has an
  // empty plan.
  static std::unique_ptr<EditNote> Open(Dateien& dateien, const Text& path);

  const EditPlan& Plan() const { return plan_; }
  std::int64_t BlockBytes() const { return block_; }
  bool Foreign() const { return foreign_; }  // a version of the program that we don't know wrote it

  // `record` gets its number; its data, if any, stands in the block.
  void Write(Record& record, Block& block);
  std::optional<Record> Last(Block& block);  // the last whole one, with its data in the block
  std::int64_t Time() const { return file_->Stand().Time; }  // of the last record

  void SetDone(std::size_t file, const DateiStand& after);
  std::optional<DateiStand> Done(std::size_t file);  // what the file was then

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
  std::int64_t doneAt_ = 0, recordsAt_ = 0, dataAt_ = 0;  // places in the note
  std::uint64_t number_ = 0;                              // of the last record
};

}  // namespace vantora
