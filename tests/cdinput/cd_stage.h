// A program with a simulated CD drive that holds a disc of three songs.
#pragma once

#include "cdinput/frmCDPlayer.h"
#include "tests/emulators/fake_cd_drive.h"
#include "tests/support/buehne.h"

namespace vantora {

struct CdMachine {
  explicit CdMachine(HeadlessPlatform& platform)
      : reader(drive, platform.loop, platform.machine.files) {}
  FakeDrive drive{{{75 * 10}, {75 * 20}, {75 * 5}}};
  FakeReader reader;
  FakePlayer player{drive};
};

class CdBuehne {
 public:
  // `questions` replaces the machine's answers on media identity and table of contents.
  explicit CdBuehne(Mci* questions = nullptr) : questions_(questions) { b.Start(); }

  // Opens the player for the disc in the drive.
  void Oeffnen() {
    b.Tu([this] { b.Haupt().imgCDAuslesen_MouseUp(); });
  }
  frmCDPlayer& Player() { return b.prog.frmCDPlayer(); }
  FakeDrive& Laufwerk() { return cd->drive; }
  Text Sagt(int nummer) { return b.prog.Text(nummer); }
  void Druecke(Control& control) { b.platform.hands.Press(control); }
  // Runs `aktion` with these answers to coming questions. Returns the messages.
  std::vector<Text> Mit(std::initializer_list<int> antworten, const std::function<void()>& aktion) {
    b.user.Said.clear();
    for (const int antwort : antworten) b.Antwortet(antwort);
    aktion();
    return b.Gesagt();
  }
  std::string Ton(const Text& datei) { return test::SoundOf(b.Lies(datei)); }
  std::string Soll(int track) { return FakeDrive::Sound(track, cd->drive.Find(track)->Sectors); }

  Mci* questions_;
  std::unique_ptr<CdMachine> cd;
  Buehne b{[this](HeadlessPlatform& p) {
    cd = std::make_unique<CdMachine>(p);
    return With(p.bundle, cd->reader, cd->player, questions_ ? *questions_ : p.bundle.mci);
  }};
};

}  // namespace vantora
