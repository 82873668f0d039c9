// Runs a medley that a text file describes, for a model in another language: `medley-run HOME
// PLAN`. The first line of the plan is 1 when the tempo box is ticked, else 0. Each further line is
// a track with fields separated by tabs: name of its wave below C:\, tempo, duration, 1 for a
// slide. Prints the texts of the message boxes. The slid sound of transition n stays in
// C:\Temp\slid-n.dat.

#include "app/programm.h"
#include "backends/linux/utf8.h"
#include "main/headless_platform.h"
#include "medley/ueberblendung.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace vantora {
namespace {

class Reader final : public User {
 public:
  explicit Reader(HeadlessPlatform& platform) : platform_(platform) {}
  bool Act(Form* front) override {
    if (front == nullptr) return false;
    if (auto* text = dynamic_cast<Label*>(front->Find(L"lblMbMeldung"))) {
      std::printf("%s\n", ToUtf8(text->Caption).c_str());
    }
    Control* button = front->Find(L"picMboxButton", 2);
    if (button == nullptr) return false;
    platform_.hands.Press(*button);
    return true;
  }

 private:
  HeadlessPlatform& platform_;
};

int Run(const char* home, const char* plan) {
  HeadlessPlatform platform(home);
  Programm prog(platform.bundle);
  Reader reader(platform);
  platform.loop.TheUser = &reader;
  Form form(platform.loop, L"frm");
  CheckBox box(form, L"chkPitch");
  prog.Temporary_Directory = L"C:\\Temp\\";
  prog.Medley.clear();
  std::ifstream in(plan);
  std::string line;
  std::getline(in, line);
  box.Value = line == "1" ? 1 : 0;
  while (std::getline(in, line)) {
    std::istringstream fields(line);
    std::string name, tempo, duration, slide;
    std::getline(fields, name, '\t');
    std::getline(fields, tempo, '\t');
    std::getline(fields, duration, '\t');
    std::getline(fields, slide, '\t');
    const auto wide = [](const std::string& text) { return Text(text.begin(), text.end()); };
    MedleyEintrag& row = prog.Medley.emplace_back();
    row.Titel = wide(name);
    row.Datei = L"C:\\" + wide(name);
    row.BPM = wide(tempo);
    row.Dauer = wide(duration);
    row.PitchKorrektur = slide == "1" ? std::int16_t{-1} : std::int16_t{0};
  }
  Ueberblendung engine(prog, box);
  engine.LaufBeginnen();
  for (int n = 0; n + 1 < static_cast<int>(prog.Medley.size()); ++n) {
    engine.UeberblendungAusfuehren(n, n + 1);
    const Text slid = L"C:\\Temp\\xfade2.dat";
    if (prog.DateiExistiert(slid)) {
      platform.bundle.dateien.FileCopy(slid, L"C:\\Temp\\slid-" + std::to_wstring(n) + L".dat");
      platform.bundle.dateien.Kill(slid);
    }
  }
  engine.KatalogMarkieren();
  platform.loop.TheUser = nullptr;
  return 0;
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  try {
    return vantora::Run(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "medley-run: %s\n", error.what());
    return 1;
  }
}
