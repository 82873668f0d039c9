// Turns the events of a disc writer into words: "track 1", "lead-in", "failure 811".
#pragma once

#include "platform/mcd.h"

#include <functional>
#include <string>

namespace vantora {

// Notes all events but percents and messages, which each test handles itself.
inline void NoteEvents(McdEvents& events, const std::function<void(const std::string&)>& note) {
  const auto number = [](int value) { return std::to_string(value); };
  events.MCD_ActTrack = [=](int track) { note("track " + number(track)); };
  events.MCD_StatusChange = [=](int state) { note("status " + number(state)); };
  events.MCD_WriteLeadIn = [=](int) { note("lead-in"); };
  events.MCD_WriteLeadOut = [=](int) { note("lead-out"); };
  events.MCD_Fixating = [=] { note("fixating"); };
  events.MCD_BurningProcessComplete = [=](int success) { note("complete " + number(success)); };
  events.MCD_UserStop = [=] { note("stopped"); };
  events.MCD_Failure = [=](int code, const Text&) { note("failure " + number(code)); };
  events.MCD_ScsiEvents = [=](int, int, int code, int, const Text&) {
    note("scsi " + number(code));
  };
  events.MCD_ASPIEvent = [=](int code, const Text&) { note("aspi " + number(code)); };
}

}  // namespace vantora
