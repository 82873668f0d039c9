// The program's work in real windows. `bench-windows WORK HOME` prints what was measured.

#include "app/frmMBox.h"
#include "backends/qt/qt_app.h"
#include "bench/stage.h"
#include "catalog/frmHauptForm.h"
#include "catalog/frmNeuerInterpret.h"
#include "catalog/katalog_datei.h"
#include "cdwriting/frmCDBrennen.h"
#include "dialogs/frmLoadSave.h"
#include "main/window_platform.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;

using Windows = Stage<WindowPlatform>;

// Until all that is to be seen has been painted.
void Paint(Windows& stage) {
  std::int64_t before = -1;
  while (before != stage.platform.loop.Paints()) {
    before = stage.platform.loop.Paints();
    stage.platform.loop.DoEvents();
  }
}

// Chooses a file in the dialog; the returned time is that of the press on OK.
BenchTime::time_point Choose(Windows& stage, frmLoadSave& dialog, const Text& file) {
  stage.platform.hands.Type(dialog.txtDateiName, file);
  stage.platform.hands.Press(dialog.pbButton(1));
  return BenchTime::now();
}

// The time of the machine's monotonic clock, in ms, when the main window stands.
int Start(const fs::path& home) {
  Windows stage(home);
  stage.Play([&stage](Form*) {
    Paint(stage);
    const auto now = BenchTime::now().time_since_epoch();
    std::printf("%.3f\n", std::chrono::duration<double, std::milli>(now).count());
    return false;
  });
  return 0;
}

// From the choice of a catalog to the picture of its rows, in ms, several times.
int Open(const fs::path& home) {
  constexpr int kRounds = 11;
  const Text file = L"C:\\Vantora\\lista.vtr";
  Windows stage(home);
  CatalogOfWaves(stage.prog, L"3000");
  KatalogSchreiben(stage.platform.machine.files, file, stage.prog.Katalog);
  int round = 0, rows = 0;
  BenchTime::time_point chosen;
  stage.Play([&](Form* front) {
    frmHauptForm& window = stage.prog.frmHauptForm();
    if (auto* dialog = dynamic_cast<frmLoadSave*>(front)) {
      chosen = Choose(stage, *dialog, file);
      ++round;
      return true;
    }
    if (front != &window) throw std::runtime_error("an unexpected window");
    if (round > 0) {
      Paint(stage);
      std::printf("%.3f\n", Milliseconds(chosen, BenchTime::now()));
      rows = window.lvwKatalog.ListItems.Count();
    }
    if (round == kRounds) return false;
    stage.platform.hands.Press(window.imgKatalogÖffnen);
    return true;
  });
  return rows == 99 ? 0 : 1;
}

long PeakKiB() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6));
  }
  throw std::runtime_error("the system does not tell the peak of memory");
}

// A person who imports every file of a folder, burns the catalog and says no to every question.
class Customer {
 public:
  explicit Customer(Windows& stage)
      : stage_(stage), names_(stage.platform.machine.files.List(kFolder, L"*.wav;*.mp3")) {}

  bool Act(Form* front) {
    Hands& hands = stage_.platform.hands;
    if (auto* box = dynamic_cast<frmMBox*>(front)) {
      hands.Press(box->picMboxButton(box->picMboxButton(2).Visible ? 2 : 1));
    } else if (auto* dialog = dynamic_cast<frmLoadSave*>(front)) {
      Choose(stage_, *dialog, kFolder + names_[chosen_++]);
    } else if (auto* title = dynamic_cast<frmNeuerInterpret*>(front)) {
      hands.Key(*title, L"Return");
    } else if (auto* burner = dynamic_cast<frmCDBrennen*>(front)) {
      stage_.prog.ZeigeTAOHinweis = false;
      hands.Press(burner->imgBrennen);
    } else if (front == &stage_.prog.frmHauptForm()) {
      return Next();
    } else {
      throw std::runtime_error("an unexpected window");
    }
    return true;
  }
  int Tracks() const { return static_cast<int>(names_.size()); }

 private:
  static constexpr const wchar_t* kFolder = L"C:\\Música\\";

  bool Next() {
    frmHauptForm& window = stage_.prog.frmHauptForm();
    if (chosen_ < names_.size()) {
      stage_.platform.hands.Press(window.imgLiedImport);
    } else if (!burned_) {
      burned_ = true;
      stage_.platform.hands.Press(window.imgBrennen);
    } else {
      return false;
    }
    return true;
  }

  Windows& stage_;
  std::vector<Text> names_;
  std::size_t chosen_ = 0;
  bool burned_ = false;
};

// The process's highest use of memory, in KiB, when files have been imported, shown and burned.
int Memory(const fs::path& home) {
  Windows stage(home);
  Customer customer(stage);
  int rows = 0;
  stage.Play([&](Form* front) {
    rows = std::max(rows, stage.prog.frmHauptForm().lvwKatalog.ListItems.Count());
    return customer.Act(front);
  });
  std::printf("%ld\n", PeakKiB());
  const bool burned = !stage.platform.machine.writer.LastImage().empty();
  return burned && rows == customer.Tracks() ? 0 : 1;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  const std::string work = argc == 3 ? argv[1] : "";
  const vantora::QtApp app(argc, argv, vantora::ResourceFolder() / "pictures");
  if (work == "start") return vantora::RunWork(vantora::Start, argv[2]);
  if (work == "open") return vantora::RunWork(vantora::Open, argv[2]);
  if (work == "memory") return vantora::RunWork(vantora::Memory, argv[2]);
  std::fputs("bench-windows start|open|memory HOME\n", stderr);
  return 2;
}
