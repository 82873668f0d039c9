#include "main/disc_writers.h"

#include <algorithm>
#include <functional>

namespace vantora {

namespace {

// Forwards events. The target handler is read when an event comes, because the program sets its
// handlers only when it starts.
template <typename... Arguments>
void Lead(std::function<void(Arguments...)>& from, const std::function<void(Arguments...)>& to) {
  from = [&to](Arguments... arguments) {
    if (to) to(arguments...);
  };
}

}  // namespace

DiscWriters::DiscWriters(std::vector<Mcd*> writers)
    : writers_(std::move(writers)), current_(writers_.front()) {
  for (Mcd* writer : writers_) PassOn(writer->Events);
  Number();
}

void DiscWriters::PassOn(McdEvents& from) {
  Lead(from.MCD_ActTrack, Events.MCD_ActTrack);
  Lead(from.MCD_TrackPercent, Events.MCD_TrackPercent);
  Lead(from.MCD_InfoMessage, Events.MCD_InfoMessage);
  Lead(from.MCD_StatusChange, Events.MCD_StatusChange);
  Lead(from.MCD_WriteLeadIn, Events.MCD_WriteLeadIn);
  Lead(from.MCD_WriteLeadOut, Events.MCD_WriteLeadOut);
  Lead(from.MCD_Fixating, Events.MCD_Fixating);
  Lead(from.MCD_Verify, Events.MCD_Verify);
  Lead(from.MCD_BurningProcessComplete, Events.MCD_BurningProcessComplete);
  Lead(from.MCD_UserStop, Events.MCD_UserStop);
  Lead(from.MCD_Failure, Events.MCD_Failure);
  Lead(from.MCD_ScsiEvents, Events.MCD_ScsiEvents);
  Lead(from.MCD_ASPIEvent, Events.MCD_ASPIEvent);
}

int DiscWriters::Init_Prog() {
  int result = 0;
  for (Mcd* writer : writers_) result = std::max(result, writer->Init_Prog());
  Number();
  SelectBurner(0);
  return result;
}

void DiscWriters::Number() {
  places_.clear();
  for (Mcd* writer : writers_) {
    for (int i = 0; i < writer->BurnerCount(); ++i) places_.emplace_back(writer, i);
  }
  if (preferred_.empty()) return;
  std::stable_partition(places_.begin(), places_.end(), [this](const Place& place) {
    return place.first->GetDescription(place.second) == preferred_;
  });
}

int DiscWriters::BurnerCount() {
  return static_cast<int>(places_.size());
}

DiscWriters::Place DiscWriters::Find(int index) const {
  const auto number = static_cast<std::size_t>(index);
  if (index >= 0 && number < places_.size()) return places_[number];
  return {writers_.back(), writers_.back()->BurnerCount()};
}

void DiscWriters::PreferBurner(int index) {
  preferred_ = GetDescription(index);
}

void DiscWriters::SelectBurner(int index) {
  const auto [writer, own] = Find(index);
  current_ = writer;
  writer->SelectBurner(own);
}

bool DiscWriters::MakesFiles(int index) {
  const auto [writer, own] = Find(index);
  return writer->MakesFiles(own);
}

Text DiscWriters::GetDescription(int index) {
  const auto [writer, own] = Find(index);
  return writer->GetDescription(own);
}

void DiscWriters::BufferSize(int sectors) {
  for (Mcd* writer : writers_) writer->BufferSize(sectors);
}

void DiscWriters::TimeOut(int seconds) {
  for (Mcd* writer : writers_) writer->TimeOut(seconds);
}

void DiscWriters::Speed(int factor) {
  for (Mcd* writer : writers_) writer->Speed(factor);
}

void DiscWriters::TestMode(bool simulation) {
  for (Mcd* writer : writers_) writer->TestMode(simulation);
}

void DiscWriters::Eject(bool afterwards) {
  for (Mcd* writer : writers_) writer->Eject(afterwards);
}

void DiscWriters::Fixate(bool close) {
  for (Mcd* writer : writers_) writer->Fixate(close);
}

void DiscWriters::SetBurnMode(int mode) {
  for (Mcd* writer : writers_) writer->SetBurnMode(mode);
}

void DiscWriters::VerifyDiscs(bool verify) {
  for (Mcd* writer : writers_) writer->VerifyDiscs(verify);
}

void DiscWriters::StopVerify() {
  for (Mcd* writer : writers_) writer->StopVerify();
}

void DiscWriters::StopBurn() {
  for (Mcd* writer : writers_) writer->StopBurn();
}

void DiscWriters::ResetBurner() {
  for (Mcd* writer : writers_) writer->ResetBurner();
}

}  // namespace vantora
