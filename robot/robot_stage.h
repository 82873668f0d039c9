// The stage of the robot: the program and the machine around it. The composition builds two kinds:
// one without a screen, one with real windows.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/hands.h"

#include <optional>
#include <string>

namespace vantora {

struct WriterFaults;  // backends/discimage/writer_faults.h
class HeadlessMixer;  // backends/headless/headless_mixer.h
class OutputVolume;   // backends/sound/mixer/output_volume.h
struct PrinterSetup;  // platform/printer.h

// If a stage cannot do an operation, it raises std::exception; the robot reports it in its message.
class RobotStage {
 public:
  virtual ~RobotStage() = default;

  // Called before the start. `Home` comes first and creates a missing folder.
  virtual void Home(const std::string& folder) = 0;
  virtual void Screen(int width, int height) = 0;  // pixels
  virtual void Colours(int bits) = 0;
  virtual void Sound(bool present) = 0;
  virtual void SetClock(const DateTime& now) = 0;
  virtual void Setting(const Text& key, const Text& value) = 0;
  // The files of the home folder. They can be used also before the start and after the end.
  virtual Dateien& Files() = 0;

  // Starts the program for `user` (EventLoop::TheUser) and returns when its process has ended. It
  // can be called again; loop and hands are then new objects.
  virtual void Start(User& user) = 0;
  virtual EventLoop& Loop() = 0;  // of the running program or of the last one
  virtual Hands& TheHands() = 0;  // of the running program or of the last one
  // The page that the help shows, "frmX". Blank if there is none.
  virtual Text HelpPage() = 0;
  virtual Text ExitButton() = 0;  // the control that `close` presses, "frmX.imgExit"
  // Returns whether a message asks if the program is to end. `close` answers such messages with
  // yes, and all others with no.
  virtual bool AsksToLeave(const Text& message) = 0;

  // The devices; they may be set before and after the start.
  virtual void InsertDisc(const Text& sheet) = 0;  // product path of a .cue file
  virtual void EjectDisc() = 0;
  virtual WriterFaults& Writer() = 0;                       // faults of the embedded writer
  virtual void DriveFaults(const std::string& script) = 0;  // faults of the emulated drive
  virtual void Load(std::optional<int> percent) = 0;  // load of the processor; nothing: unknown
  virtual void LineIn(const Text& waveFile) = 0;  // the input receives the file once, from now on
  virtual void LineInOverrun(int ms) = 0;         // the input loses so many ms of sound
  virtual HeadlessMixer& Mixer() = 0;             // the lines of the sound card
  virtual PrinterSetup& Printing() = 0;           // the printers
  virtual OutputVolume& OwnVolume() = 0;  // the volume of waves for a card without such a line
};

}  // namespace vantora
