// A stage for whole programs: a program on the headless platform with a home of its own, a catalog
// builder, and a user who answers what the program asks.
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

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantora {

using TemporaryHome = test::TempFolder;
using test::With;

// Answers modal windows in turn from a list of actions; what a message box said is kept.
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
  // A test that brings devices of its own puts them into the bundle before the program is made.
  using Umbau = std::function<Plattform(HeadlessPlatform&)>;
  Buehne() : Buehne([](HeadlessPlatform& p) { return p.bundle; }) {}
  explicit Buehne(const Umbau& umbau);
  ~Buehne();

  // Starts the program up to its main loop, without wizard unless the settings say otherwise.
  void Start();
  // Runs what a user does in the main loop; modal windows are answered by the scripted user.
  void Tu(const std::function<void()>& aktion);

  // A wave file of so many frames at a product path; every frame differs from its neighbours.
  void Wave(const Text& datei, std::int64_t frames);
  void Datei(const Text& pfad, const std::string& bytes);
  std::string Lies(const Text& pfad);
  // A catalog of valid 3-second waves with these titles; "*" behind one marks a crossfade.
  void Katalog(const std::vector<Text>& titel);
  void Waehle(int zeile);
  std::vector<Text> Titel();  // as the list shows them

  // ---- the user's answers, in the order in which windows will ask ----
  Buehne& Antwortet(int code);  // message box: 6 yes, 7 no or the single button
  Buehne& WaehltDatei(const std::vector<Text>& dateien);  // file dialog; none cancels
  Buehne& Macht(ScriptedUser::Action aktion);

  frmHauptForm& Haupt() { return prog.frmHauptForm(); }
  const std::vector<Text>& Gesagt() const { return user.Said; }

  TemporaryHome home;
  HeadlessPlatform platform;
  ScriptedUser user;
  Plattform bundle;
  Programm prog;
};

}  // namespace vantora
