// The program's work in real windows. `bench-windows WORK HOME` prints measurements.

#include "app/frmMBox.h"
#include "backends/qt/desktop/qt_app.h"
#include "bench/stage.h"
#include "catalog/frmHauptForm.h"
#include "catalog/katalog_datei.h"
#include "cdinput/clsCCd.h"
#include "cdinput/frmCDPlayer.h"
#include "cdinput/frmDatenbank.h"
#include "cdwriting/frmCDBrennen.h"
#include "cdwriting/frmSchreibFortschritt.h"
#include "cover/frmPrint.h"
#include "cover/frmPrintStart.h"
#include "dialogs/frmLoadSave.h"
#include "dialogs/frmNeuerInterpret.h"
#include "main/window_platform.h"
#include "medley/frmMedley.h"
#include "tests/emulators/cddb_server.h"

#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;

using Windows = Stage<WindowPlatform>;

// Processes events until nothing remains to be painted.
void Paint(Windows& stage) {
  std::int64_t before = -1;
  while (before != stage.platform.loop.Paints()) {
    before = stage.platform.loop.Paints();
    stage.platform.loop.DoEvents();
  }
}

// Chooses a file in the dialog; returns the time when OK was pressed.
BenchTime::time_point Choose(Windows& stage, frmLoadSave& dialog, const Text& file) {
  stage.platform.hands.Type(dialog.txtDateiName, file);
  stage.platform.hands.Press(dialog.pbButton(1));
  return BenchTime::now();
}

// Prints the time of the machine's monotonic clock, in ms, when the main window is painted.
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

// Prints times in ms from the choice of a catalog until its rows are painted.
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

// A user who imports every file of a folder, burns the catalog and answers every question with no.
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

// Prints the peak memory of the process in KiB, after files were imported, shown and burnt.
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

// Prints times in ms from the press on a button of the main window until the opened window is
// painted. `seen` checks the window and closes it; it returns false if something is missing.
template <typename Window>
int OpenFromMain(const fs::path& home, PictureButton& (*button)(frmHauptForm&),
                 const std::function<bool(Windows&, Window&)>& seen, double extraMs) {
  constexpr int kRounds = 11;
  Windows stage(home);
  // The embedded drive comes after the drives of the machine.
  const auto drives = stage.platform.machine.discDrives.All().size();
  SaveSetting(stage.platform.bundle, L"LastAudioCDSelected", std::to_wstring(drives - 1));
  int round = 0;
  bool complete = true;
  BenchTime::time_point pressed;
  stage.Play([&](Form* front) {
    frmHauptForm& main = stage.prog.frmHauptForm();
    if (auto* window = dynamic_cast<Window*>(front)) {
      Paint(stage);
      std::printf("%.3f\n", Milliseconds(pressed, BenchTime::now()) + extraMs);
      complete = seen(stage, *window) && complete;
      return true;
    }
    if (front != &main) throw std::runtime_error("an unexpected window");
    if (round++ == kRounds) return false;
    pressed = BenchTime::now();
    stage.platform.hands.Press(button(main));
    return true;
  });
  return complete ? 0 : 1;
}

int Contents(const fs::path& home) {
  // The player waits for so long while it opens. The loop passes this time faster, so it is added.
  constexpr double kRestsMs = 200;
  return OpenFromMain<frmCDPlayer>(
      home, [](frmHauptForm& main) -> PictureButton& { return main.imgCDAuslesen; },
      [](Windows& stage, frmCDPlayer& player) {
        const int tracks = player.lstTracks.ListCount();
        stage.platform.hands.Press(player.imgSchliessen);
        return tracks == 20;
      },
      kRestsMs*(1 - 1 / kStorySpeed));
}

int Database(const fs::path& home) {
  return OpenFromMain<frmDatenbank>(
      home, [](frmHauptForm& main) -> PictureButton& { return main.imgDatenBank; },
      [](Windows& stage, frmDatenbank& window) {
        const int discs = window.lstInterpreten.ListCount();
        // Makes the program read the file again the next time.
        fs::last_write_time(stage.platform.machine.files.SystemPath(L"C:\\WINDOWS\\qmaudio.ini"),
                            fs::file_time_type::clock::now());
        stage.platform.hands.Press(window.imgSchliessen);
        return discs == kShownDiscs;
      },
      0);
}

// An entry with the lines that servers usually send for a disc of 20 tracks.
std::string EntryLines() {
  std::string lines =
      "# xmcd\r\nDTITLE=Las olas / Mar de invierno\r\nDYEAR=1998\r\nDGENRE=Rock\r\n";
  for (int i = 0; i < 20; ++i) {
    const std::string number = std::to_string(i) + "=";
    lines.append("TTITLE").append(number).append("Marta Rios / Canci\xF3n del faro\r\n");
    lines.append("EXTT").append(number).append("En directo\\nen la playa, con la banda\r\n");
  }
  return lines + "EXTD=Edici\xF3n de aniversario\r\nPLAYORDER=\r\n";
}

// Looks up a disc with the progress window on the screen; prints pairs of the program's time and
// the server's time in ms.
int LookUp(const fs::path& home) {
  constexpr int kRounds = 21;
  Windows stage(home);
  test::CddbServer server(2 * kRounds);
  int found = 0;
  stage.Play([&](Form*) {
    const std::shared_ptr<frmSchreibFortschritt> progress =
        stage.prog.frmSchreibFortschritt.Laden();
    progress->init_frmSchreibFortschritt();
    stage.prog.Zeigen(*progress);
    Paint(stage);
    const std::string address = server.Address();
    for (int i = 0; i < kRounds; ++i) {
      clsCCd disc(stage.prog.plattform);
      disc.Init(Text(1, stage.platform.machine.discDrives.All().back().Letter) + L":\\");
      const Text id = disc.DiscID();
      if (i == 0) server.Knows("rock", std::string(id.begin(), id.end()), EntryLines());
      CDDBAnfrage request = CDDBAnfrageAusEinstellungen(stage.prog);
      request.Server.assign(address.begin(), address.end());
      std::uint8_t status = 0;
      std::int16_t result = 1;
      const auto before = server.Busy();
      const auto start = BenchTime::now();
      disc.CDDBAbfrage(request, status, result);
      const double whole = Milliseconds(start, BenchTime::now());
      const double served =
          std::chrono::duration<double, std::milli>(server.Busy() - before).count();
      std::printf("%.3f %.3f\n", whole - served, served);
      if (result == 0 && disc.CDDBGetInfo().TrackTitel[20] == L"Canción del faro") ++found;
    }
    stage.prog.frmSchreibFortschritt.Entladen();
    return false;
  });
  return found == kRounds ? 0 : 1;
}

// A picture of sound sixteen times as wide as its visible part, as the wave editor draws it at the
// greatest zoom: two traces of 16 pieces with 10,000 points each.
class WideWave final : public Form {
 public:
  explicit WideWave(EventLoop& loop) : Form(loop, L"frmWide") {
    Window.Width = Window.Height = kSeen;
    for (PictureBox* box : {&picView, &picWide}) {
      box->Width = kSeen;
      box->Height = kHeight;
    }
    picWide.Width = kPieces * kPiece;
    picWide.BackColor = Rgb(0, 0, 64);
    picWide.Container = &picView;
  }
  void Draw(unsigned seed) {
    picWide.Cls();
    for (int piece = 0; piece < 2 * kPieces; ++piece) {
      DrawItem trace;
      trace.Kind = DrawItem::What::Polyline;
      trace.Ink = Rgb(255, 255, 85);
      for (int i = 0; i < kPiece; ++i) {
        seed = seed * 1664525U + 1013904223U;
        const int height = static_cast<int>(seed >> 21U);
        trace.Points.push_back((piece / 2 * kPiece + i) / 15 * 15);
        trace.Points.push_back((piece % 2 * kHeight + height) / 30 * 15);
      }
      picWide.Draw(std::move(trace));
    }
  }

  static constexpr int kPieces = 16, kPiece = 10'000, kSeen = 10'000, kHeight = 4500;
  PictureBox picView{*this, L"picView"};
  PictureBox picWide{*this, L"picWide"};
};

double PaintedAfter(WindowPlatform& platform, const std::function<void()>& change) {
  std::this_thread::sleep_for(std::chrono::milliseconds(30));  // otherwise the paint is delayed
  const std::int64_t before = platform.loop.Paints();
  const auto start = BenchTime::now();
  change();
  platform.loop.DoEvents();
  const double ms = Milliseconds(start, BenchTime::now());
  if (platform.loop.Paints() == before) throw std::runtime_error("nothing was painted");
  return ms;
}

// Makes covers of a catalog and prints several times: in ms, opening the window of the texts, one
// step of dragging a text, loading a photograph, and printing the side to a PDF; in KiB, the peak
// memory of the process up to then.
class CoverMaker {
 public:
  explicit CoverMaker(Windows& stage) : stage_(stage) {}

  bool Act(Form* front) {
    Hands& hands = stage_.platform.hands;
    frmHauptForm& main = stage_.prog.frmHauptForm();
    if (front == &main) {
      if (round_++ == kRounds) return false;
      CatalogOfWaves(stage_.prog, L"3000");
      main.KatalogShow();
      seen_ = false;
      pressed_ = BenchTime::now();
      hands.Press(main.imgPrintCover);
    } else if (auto* texts = dynamic_cast<frmPrintStart*>(front)) {
      Paint(stage_);
      if (!seen_) std::printf("%.3f ", Milliseconds(pressed_, BenchTime::now()));
      hands.Press(seen_ ? texts->imgDruckEnde : texts->imgReady);
      seen_ = true;
    } else {
      auto& sides = dynamic_cast<frmPrint&>(*front);
      Paint(stage_);
      Measure(sides);
      hands.Press(sides.imgBack);
    }
    return true;
  }

 private:
  static constexpr int kRounds = 5;

  void Measure(frmPrint& sides) {
    Label& line = sides.lblBeschriftung(2);
    line.MouseX = line.MouseY = 3000;
    const double dragged =
        PaintedAfter(stage_.platform, [&] { sides.lblBeschriftung_MouseMove(2, kLeftButton); });
    const double loaded = PaintedAfter(stage_.platform, [&] {
      sides.picSource[kTeilRueckseite] = stage_.prog.plattform.bilder.Load(L"C:\\foto.jpg");
      sides.ShowPic(sides.Seite);
    });
    Printer& printer = stage_.prog.plattform.drucker.Printer();
    printer.OutputFile = L"C:\\dorso.pdf";
    const auto start = BenchTime::now();
    sides.PrintCentered();
    const double printed = Milliseconds(start, BenchTime::now());
    std::printf("%.3f %.3f %.3f %ld\n", dragged, loaded, printed, PeakKiB());
  }

  Windows& stage_;
  int round_ = 0;
  bool seen_ = false;
  BenchTime::time_point pressed_;
};

int Cover(const fs::path& home) {
  Windows stage(home);
  CoverMaker maker(stage);
  stage.Play([&maker](Form* front) { return maker.Act(front); });
  return 0;
}

// Prints pairs in ms until the paint: a full redraw, and a step of the scroll bar.
int Wave(const fs::path& home) {
  constexpr int kRounds = 21;
  WindowPlatform platform(home);
  WideWave form(platform.loop);
  platform.loop.Show(form);
  platform.loop.DoEvents();
  for (int i = 1; i <= kRounds; ++i) {
    const double drawn = PaintedAfter(platform, [&] { form.Draw(static_cast<unsigned>(i)); });
    const double scrolled = PaintedAfter(platform, [&] { form.picWide.Left = -i * 7000; });
    std::printf("%.3f %.3f\n", drawn, scrolled);
  }
  return 0;
}

// Prints times in ms from the press that tests a crossfade of 10 s until its first sound.
int Preview(const fs::path& home) {
  constexpr int kRounds = 11;
  // Before a player starts; the loop passes it faster, so it is added.
  constexpr double kRestsMs = 100;
  Windows stage(home);
  bool heard = true;
  stage.Play([&](Form*) {
    CatalogOfWaves(stage.prog, L"60000");
    stage.prog.Medley.assign(2, MedleyEintrag());
    for (std::size_t i = 0; i < 2; ++i) {
      stage.prog.Medley[i].Datei = stage.prog.Katalog.at(i + 1).Datei.Getrimmt();
      stage.prog.Medley[i].Laenge = Text(L"60000");
    }
    const std::shared_ptr<frmMedley> medley = stage.prog.frmMedley.Laden();
    stage.prog.Zeigen(*medley);
    Paint(stage);
    medley->txtBPM.Text = Text(L"120");
    medley->txtDauer.Text = Text(L"10");
    for (int i = 0; i < kRounds; ++i) {
      const std::size_t before = stage.platform.card.Played.size();
      const auto pressed = BenchTime::now();
      medley->imgPreview_MouseUp();
      const double ms = Milliseconds(pressed, BenchTime::now());
      heard = heard && stage.platform.card.Played.size() > before;
      std::printf("%.3f\n", ms + kRestsMs * (1 - 1 / kStorySpeed));
    }
    medley->MedleyBeenden();
    return false;
  });
  return heard ? 0 : 1;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  const std::string work = argc == 3 ? argv[1] : "";
  const vantora::QtApp app(argc, argv);
  if (work == "start") return vantora::RunWork(vantora::Start, argv[2]);
  if (work == "open") return vantora::RunWork(vantora::Open, argv[2]);
  if (work == "memory") return vantora::RunWork(vantora::Memory, argv[2]);
  if (work == "toc") return vantora::RunWork(vantora::Contents, argv[2]);
  if (work == "cddb") return vantora::RunWork(vantora::LookUp, argv[2]);
  if (work == "database") return vantora::RunWork(vantora::Database, argv[2]);
  if (work == "cover") return vantora::RunWork(vantora::Cover, argv[2]);
  if (work == "wave") return vantora::RunWork(vantora::Wave, argv[2]);
  if (work == "preview") return vantora::RunWork(vantora::Preview, argv[2]);
  std::fputs("bench-windows start|open|memory|toc|cddb|database|cover|wave|preview HOME\n", stderr);
  return 2;
}
