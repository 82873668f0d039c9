// The stage on which the robot plays: the machine around the program, and the program itself. The
// composition builds it, once headless and once with real windows.
#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/hands.h"

#include <optional>
#include <string>

namespace vantora {

struct WriterFaults;  // backends/discimage/image_writer.h
class HeadlessMixer;  // backends/headless/headless_mixer.h
class OutputVolume;   // backends/sound/mixer/output_volume.h
struct PrinterSetup;  // platform/printer.h

// Whatever a stage cannot do it raises as std::exception; the message is the robot's.
class RobotStage {
 public:
  virtual ~RobotStage() = default;

  // Before the start. The home comes first and is made when it is missing.
  virtual void Home(const std::string& folder) = 0;
  virtual void Screen(int width, int height) = 0;  // pixels
  virtual void Colours(int bits) = 0;
  virtual void Sound(bool present) = 0;
  virtual void SetClock(const DateTime& now) = 0;
  virtual void Setting(const Text& key, const Text& value) = 0;
  virtual Dateien& Files() = 0;  // of the home; before the start and after the end too

  // Starts the program with `user` in front of it (EventLoop::TheUser) and returns when its process
  // has ended. Can be called again afterwards; loop and hands are then others.
  virtual void Start(User& user) = 0;
  virtual EventLoop& Loop() = 0;  // of the running program, and of the one that ended last
  virtual Hands& TheHands() = 0;  // the same
  virtual Text ExitButton() = 0;  // what `close` presses, "frmX.imgExit"
  // Whether a message asks if the program is to end. `close` says yes to it, and no to all others.
  virtual bool AsksToLeave(const Text& message) = 0;

  // The devices; before and after the start.
  virtual void InsertDisc(const Text& sheet) = 0;  // a product path of a .cue
  virtual void EjectDisc() = 0;
  virtual WriterFaults& Writer() = 0;                  // of the embedded writer
  virtual void Bottle(const std::string& script) = 0;  // what befalls the emulated drive
  virtual void Load(std::optional<int> percent) = 0;   // of the processor; nothing: unknown
  virtual void LineIn(const Text& waveFile) = 0;       // the input hears it once, from now on
  virtual void LineInOverrun(int ms) = 0;              // the input loses so much
  virtual HeadlessMixer& Mixer() = 0;                  // the card's lines
  virtual PrinterSetup& Printing() = 0;                // the printers
  virtual OutputVolume& OwnVolume() = 0;               // the line of waves where the card has none
};

}  // namespace vantora
