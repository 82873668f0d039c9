// A stage for tests of whole programs: a program on the headless platform with its own home, a
// builder of catalogs, and a user who answers the program's questions.
#pragma once

#include "app/frmKomponenten.h"
#include "app/frmMBox.h"
#include "app/frmStartUp.h"
#include "app/programm.h"
#include "catalog/frmHauptForm.h"
#include "catalog/frmLiedAusKatalog.h"
#include "cdwriting/frmCDBrennen.h"
#include "cdwriting/frmSchreibFortschritt.h"
#include "dialogs/frmLoadSave.h"
#include "dialogs/frmNeuerInterpret.h"
#include "dialogs/frmStartAssistent.h"
#include "main/headless_platform.h"
#include "mixer/frmMixer.h"
#include "tests/backends/linux/home.h"
#include "tests/support/exchange.h"

#include <vector>

namespace vantora {

using TemporaryHome = test::TempFolder;
using test::With;

// Answers modal windows with a list of actions in order, and keeps the texts of message boxes.
class ScriptedUser final : public User {
 public:
  using Action = std::function<void(Form&)>;
  bool Act(Form* front) override;
  void Then(Action action) { actions_.push_back(std::move(action)); }
  std::size_t Left() const { return actions_.size() - next_; }

  std::vector<Text> Said;  // texts of the message boxes, in order

 private:
  std::vector<Action> actions_;
  std::size_t next_ = 0;
};

class Buehne {
 public:
  // A test with its own devices puts them into the bundle before the program is created.
  using Umbau = std::function<Plattform(HeadlessPlatform&)>;
  Buehne() : Buehne([](HeadlessPlatform& p) { return p.bundle; }) {}
  explicit Buehne(const Umbau& umbau);
  ~Buehne();

  // Starts the program up to its main loop, without the wizard unless the settings ask for it.
  void Start();
  // Performs a user's action in the main loop. The scripted user answers modal windows.
  void Tu(const std::function<void()>& aktion);

  // Creates a wave file of `frames` frames at a product path. Every frame differs from its
  // neighbours.
  void Wave(const Text& datei, std::int64_t frames);
  void Datei(const Text& pfad, const std::string& bytes);
  std::string Lies(const Text& pfad);
  bool NochNotizen();  // of edits that have not been finished
  // Creates a catalog of valid 3-second waves with these titles. "*" after a title marks a
  // crossfade.
  void Katalog(const std::vector<Text>& titel);
  void Setze(const Text& schluessel, const Text& wert);
  Text Einstellung(const Text& schluessel);  // "-" when it has no value
  void Waehle(int zeile);
  std::vector<Text> Titel();  // as shown in the list

  // Answers of the user, in the order in which the windows will ask.
  Buehne& Antwortet(int code);             // a message box: 6 yes, 7 no or the only button
  Buehne& WaehltDatei(const Text& datei);  // a file dialog; blank cancels
  Buehne& Macht(ScriptedUser::Action aktion);

  frmHauptForm& Haupt() { return prog.frmHauptForm(); }
  const std::vector<Text>& Gesagt() const { return user.Said; }

  TemporaryHome home;
  HeadlessPlatform platform;
  ScriptedUser user;
  Plattform bundle;
  Programm prog;
};

// Tests of a program, before its start and after it.
class VorDemStart : public testing::Test {
 protected:
  Text Sagt(int nummer) { return b.prog.Text(nummer); }
  Hands& hand() { return b.platform.hands; }

  Buehne b;
};

class MitProgramm : public VorDemStart {
 protected:
  MitProgramm() { b.Start(); }
};

}  // namespace vantora
