// The tests of a disc writer: its waves, and its events as words, such as "track 1", "lead-in" and
// "failure 811".
#pragma once

#include "tests/backends/bench.h"

#include "platform/mcd.h"

namespace vantora::test {

class Burning : public Bench {
 protected:
  void Listen(Mcd& writer) {
    const auto note = [this](const std::string& what) {
      Note();
      Log.push_back(what);
    };
    const auto number = [](int value) { return std::to_string(value); };
    McdEvents& events = writer.Events;
    events.MCD_ActTrack = [=](int track) { note("track " + number(track)); };
    events.MCD_StatusChange = [=](int state) { note("status " + number(state)); };
    events.MCD_WriteLeadIn = [=](int) { note("lead-in"); };
    events.MCD_WriteLeadOut = [=](int) { note("lead-out"); };
    events.MCD_Fixating = [=] { note("fixating"); };
    events.MCD_BurningProcessComplete = [=](int success) { note("complete " + number(success)); };
    events.MCD_Verify = [=, this](int track, int state) {
      Note();
      if (state == kMcdVerifyBegins) return;
      Verified += (Verified.empty() ? "" : ", ") + number(track) +
                  (state == kMcdVerifySame      ? " same"
                   : state == kMcdVerifyDiffers ? " differs"
                                                : " failed");
    };
    events.MCD_UserStop = [=] { note("stopped"); };
    events.MCD_Failure = [=](int code, const Text&) { note("failure " + number(code)); };
    events.MCD_ScsiEvents = [=](int, int, int code, int, const Text&) {
      note("scsi " + number(code));
    };
    events.MCD_ASPIEvent = [=](int code, const Text&) { note("aspi " + number(code)); };
    events.MCD_TrackPercent = [=, this](int percent) {
      note("%");
      Percents.push_back(percent);
    };
    events.MCD_InfoMessage = [=, this](int, const Text& text) {
      if (text.starts_with(L"Open")) note("open");
      if (text.starts_with(L"Close")) note("close");
    };
  }
  // Creates a wave file and adds it to the next write.
  void Add(Mcd& writer, const std::string& wave) {
    const std::string name = std::to_string(++waves_) + ".wav";
    Put(home / "" / name, wave);
    EXPECT_EQ(writer.AddTrack(Text(L"C:\\") + Text(name.begin(), name.end()), 0), 0);
  }
  // The log without the events whose number depends on the speed of the machine.
  std::string Story() const {
    std::string story;
    for (const std::string& what : Log) {
      if (what != "%") story += (story.empty() ? "" : ", ") + what;
    }
    return story;
  }

  std::vector<std::string> Log;
  std::string Verified;  // the results of reading the disc again
  std::vector<int> Percents;

 private:
  int waves_ = 0;
};

}  // namespace vantora::test
