// A disk that can fill up and fail, and drives with free space set by the test.
#pragma once

#include "backends/sound/edits/cutter.h"
#include "backends/sound/edits/wave_edits.h"
#include "backends/sound/sound_tools.h"
#include "klang/rampe.h"
#include "main/headless_platform.h"
#include "tests/backends/running_out.h"
#include "tests/support/exchange.h"

#include <map>
#include <optional>

namespace vantora {

class Geraete : private Drives {
 public:
  Plattform Umbau(HeadlessPlatform& p) {
    echt = &p.machine.letters;
    platte = std::make_unique<test::RunningOut>(p.machine.files);
    edits = std::make_unique<WaveEdits>(*platte, Rampe);
    werkzeug = std::make_unique<SoundTools>(
        p.loop, *platte, *edits, p.machine.profiles,
        SoundTools::Card{[&p] { return p.mmtools.NewPlayer(); },
                         [] { return std::vector<Text>{L"Altavoces"}; }, p.sound, p.input},
        [&p] { return p.mmtools.NewPitch(); });
    cutter = std::make_unique<Cutter>(*platte, *edits);
    return With(p.bundle, *platte, static_cast<Drives&>(*this), *werkzeug, *cutter, *edits);
  }

  double frei = 1e12;             // of a drive that is not in the map
  std::map<Text, double> freiIn;  // by the paths that the program passes
  std::unique_ptr<test::RunningOut> platte;

 private:
  Text GetLogicalDrives() override { return echt->GetLogicalDrives(); }
  int GetDriveType(const Text& root) override { return echt->GetDriveType(root); }
  std::optional<double> GetDiskFreeSpaceEx(const Text& path) override {
    const auto ort = freiIn.find(path);
    return ort == freiIn.end() ? frei : ort->second;
  }
  std::optional<double> GetDiskTotalBytes(const Text& /*path*/) override { return 2e12; }
  Text NetworkPath(wchar_t letter) override { return echt->NetworkPath(letter); }

  std::unique_ptr<WaveEdits> edits;
  std::unique_ptr<SoundTools> werkzeug;
  std::unique_ptr<Cutter> cutter;
  Drives* echt = nullptr;
};

}  // namespace vantora
