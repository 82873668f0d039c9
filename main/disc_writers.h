// Presents all CD writers of the program as one. The devices are numbered writer by writer; a
// device that the user has preferred comes first. Settings apply to all devices; tracks, CD-Text
// and the write apply to the current device. Init_Prog fails when it fails for one of the writers.
#pragma once

#include "platform/mcd.h"

#include <utility>
#include <vector>

namespace vantora {

class DiscWriters final : public Mcd {
 public:
  explicit DiscWriters(std::vector<Mcd*> writers);  // at least one

  void BufferSize(int sectors) override;
  int Init_Prog() override;
  void TimeOut(int seconds) override;
  int BurnerCount() override;
  void SelectBurner(int index) override;
  void PreferBurner(int index) override;
  bool MakesFiles(int index) override;
  Text LastImage() const override { return current_->LastImage(); }
  int DetermineDrive() override { return current_->DetermineDrive(); }
  void SetDriveType(int type) override { current_->SetDriveType(type); }
  Text GetDescription(int index) override;
  bool CanDAO() override { return current_->CanDAO(); }
  void Speed(int factor) override;
  int Speed() override { return current_->Speed(); }
  void TestMode(bool simulation) override;
  void Eject(bool afterwards) override;
  void Fixate(bool close) override;
  void VerifyDiscs(bool verify) override;
  void StopVerify() override;
  int AddTrack(const Text& file, int reserved) override {
    return current_->AddTrack(file, reserved);
  }
  void CdText(int index, const Text& title, const Text& performer) override {
    current_->CdText(index, title, performer);
  }
  bool CheckIfBurnerOK() override { return current_->CheckIfBurnerOK(); }
  void SetBurnMode(int mode) override;
  int WriteTAO() override { return current_->WriteTAO(); }
  int WriteDAO() override { return current_->WriteDAO(); }
  void StopBurn() override;
  void ResetBurner() override;

 private:
  // A writer, and the number of one of its devices.
  using Place = std::pair<Mcd*, int>;
  Place Find(int index) const;  // for an invalid index: the last writer and no device of it
  void Number();
  void PassOn(McdEvents& from);

  std::vector<Mcd*> writers_;
  Mcd* current_;
  std::vector<Place> places_;  // by the number that the program uses
  Text preferred_;             // description of a device; blank: none was chosen
};

}  // namespace vantora
