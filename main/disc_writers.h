// All CD writers of the program as one: the devices of the first one have the first numbers, behind
// the one device that the person has chosen, if there was a choice. What is set counts for every
// device; tracks, their texts and the write belong to the current one. There is no layer to work
// with when one of them has none.
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
  int DetermineDrive() override { return current_->DetermineDrive(); }
  void SetDriveType(int type) override { current_->SetDriveType(type); }
  Text GetDescription(int index) override;
  bool CanDAO() override { return current_->CanDAO(); }
  void Speed(int factor) override;
  int Speed() override { return current_->Speed(); }
  void TestMode(bool simulation) override;
  void Eject(bool afterwards) override;
  void Fixate(bool close) override;
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
  // Whose device it is and which of its own.
  using Place = std::pair<Mcd*, int>;
  Place Find(int index) const;  // of the last writer, and none of its own, for an index beyond all
  void Number();
  void PassOn(McdEvents& from);

  std::vector<Mcd*> writers_;
  Mcd* current_;
  std::vector<Place> places_;  // by the number that the program knows
  Text preferred_;             // description of a device; blank: none was chosen
};

}  // namespace vantora
