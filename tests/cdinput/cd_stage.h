// A program with a CD drive of the test's own, and a disc of three songs in it.
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
  // `questions` answers for the media identity and the table of contents, in place of the machine.
  explicit CdBuehne(Mci* questions = nullptr) : questions_(questions) { b.Start(); }

  // Opens the player on the disc that lies in the drive.
  void Oeffnen() {
    b.Tu([this] { b.Haupt().imgCDAuslesen_MouseUp(); });
  }
  frmCDPlayer& Player() { return b.prog.frmCDPlayer(); }
  FakeDrive& Laufwerk() { return cd->drive; }
  Text Sagt(int nummer) { return b.prog.Text(nummer); }
  void Druecke(Control& control) { b.platform.hands.Press(control); }
  // What is done with these answers to what will be asked, and nothing of what was said before.
  void Mit(std::initializer_list<int> antworten, const std::function<void()>& aktion) {
    b.user.Said.clear();
    for (const int antwort : antworten) b.Antwortet(antwort);
    aktion();
  }
  // The audio of a file of the home, behind the 44 bytes of its header.
  std::string Ton(const Text& datei) {
    const std::string bytes = b.Lies(datei);
    return bytes.size() < 44 ? bytes : bytes.substr(44);
  }
  std::string Soll(int track) { return FakeDrive::Sound(track, cd->drive.Find(track)->Sectors); }

  Mci* questions_;
  std::unique_ptr<CdMachine> cd;
  Buehne b{[this](HeadlessPlatform& p) {
    cd = std::make_unique<CdMachine>(p);
    const Plattform& m = p.bundle;
    return MitLaufwerk(m, m.mcd, cd->reader, cd->player, questions_ ? *questions_ : m.mci,
                       m.sockets);
  }};
};

}  // namespace vantora
