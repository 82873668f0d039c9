// The wave editor's work on a long file. `bench-edits WORK HOME` prints alternating CPU times in s:
// the editor's, and the yardstick's plain reads and writes of 1 MiB. The work changes the file
// C:\Vantora\Wavs\larga.wav of the home.

#include "bench/plain_file.h"
#include "bench/stage.h"
#include "main/headless_platform.h"
#include "waveeditor/frmWaveEditor.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantora {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* kFile = L"C:\\Vantora\\Wavs\\larga.wav";
constexpr std::int64_t kHeader = PlainFile::kHeader, kFrameBytes = 4;
constexpr std::int32_t kTenSeconds = 441'000, kHalfSecond = 22'050;  // frames
constexpr int kRounds = 9;

using Desk = Stage<HeadlessPlatform>;
using Round = std::function<void(Desk& desk, const fs::path& file)>;

void ByTurns(Desk& desk, const Round& ours, const Round& plain) {
  const fs::path file = desk.platform.machine.files.SystemPath(kFile);
  for (int round = 0; round <= kRounds; ++round) {
    const double theirs = Spent([&] { plain(desk, file); });
    const double mine = Spent([&] { ours(desk, file); });
    if (round > 0) std::printf("%.4f %.4f\n", mine, theirs);
  }
}

std::int32_t Frames(const fs::path& file) {
  return static_cast<std::int32_t>((static_cast<std::int64_t>(fs::file_size(file)) - kHeader) /
                                   kFrameBytes);
}

std::int64_t Place(std::int32_t frame) {
  return kHeader + frame * kFrameBytes;
}

// Moves everything after the middle in place.
void MoveTail(const fs::path& file, std::int32_t by = kTenSeconds) {
  const std::int32_t middle = Frames(file) / 2;
  PlainFile(file).Move(Place(middle + by), Place(middle));
}

int Cut(const fs::path& home, std::int32_t frames) {
  Desk desk(home);
  ByTurns(
      desk,
      [frames](Desk& d, const fs::path& file) {
        const std::int32_t middle = Frames(file) / 2;
        d.platform.machine.cutter.Cut(kFile, middle, middle + frames);
      },
      [frames](Desk&, const fs::path& file) { MoveTail(file, frames); });
  return 0;
}

int Normalize(const fs::path& home) {
  Desk desk(home);
  int percent = 100;
  ByTurns(
      desk,
      [&percent](Desk& d, const fs::path&) {
        percent = percent == 100 ? 90 : 100;  // alternates, so that each run has to change samples
        d.platform.mmtools.NormalizeFile(kFile, {}, percent);
      },
      [](Desk&, const fs::path& path) {
        PlainFile file(path);
        file.ReadAll();
        file.Move(kHeader, kHeader);
      });
  return 0;
}

// Runs once as a process of its own, because the program that it is compared with is a process too.
int NormalizeOnce(const fs::path& home) {
  HeadlessPlatform platform(home);
  platform.mmtools.NormalizeFile(kFile, {}, 100);
  return 0;
}

// Runs an edit of the wave editor. Painting the new picture has its own row in the results, so it
// is left out here, as in a batch.
int Edit(const fs::path& home, const std::function<void(frmWaveEditor& editor)>& prepare,
         const std::function<void(frmWaveEditor& editor)>& edit,
         const std::function<void(const fs::path& file)>& plain) {
  Desk desk(home);
  desk.Play([&](Form* front) {
    if (front != nullptr && front->Find(L"lblMbMeldung") != nullptr) {
      std::fputs("bench: the program has something to say in the middle of its work\n", stderr);
      std::_Exit(1);
    }
    desk.prog.WaveEditorDatei = kFile;
    desk.prog.EditorBatch = true;
    frmWaveEditor& editor = *desk.prog.frmWaveEditor.Laden();
    desk.prog.Zeigen(editor);
    desk.platform.loop.DoEvents();
    prepare(editor);
    ByTurns(
        desk, [&](Desk&, const fs::path&) { edit(editor); },
        [&](Desk&, const fs::path& file) { plain(file); });
    desk.prog.frmWaveEditor.Entladen();
    return false;
  });
  return 0;
}

void Select(frmWaveEditor& editor, std::int32_t from, std::int32_t to) {
  editor.Waehlen({.MarkerAnfang = from, .MarkerEnde = to});
}

void SelectAll(frmWaveEditor& editor) {
  Select(editor, 0, editor.Kette().SourceFile().Wave.DataSize());
}

int Paste(const fs::path& home) {
  return Edit(
      home,
      [](frmWaveEditor& editor) {
        Select(editor, 1000, 1000 + kTenSeconds);
        editor.imgCopy_MouseUp();
      },
      [](frmWaveEditor& editor) {
        const std::int32_t middle = editor.Kette().SourceFile().Wave.DataSize() / 2;
        Select(editor, middle, middle);
        editor.imgPaste_MouseUp();
      },
      [](const fs::path& file) {
        MoveTail(file);
        MoveTail(file);
      });
}

int Fade(const fs::path& home) {
  return Edit(
      home, SelectAll, [](frmWaveEditor& editor) { editor.imgFadeOut_MouseUp(); },
      [](const fs::path& file) { PlainFile(file).Move(kHeader, kHeader); });
}

int Mute(const fs::path& home) {
  return Edit(
      home, SelectAll, [](frmWaveEditor& editor) { editor.imgMute_MouseUp(); },
      [](const fs::path& file) { PlainFile(file).WriteAll(); });
}

}  // namespace
}  // namespace vantora

int main(int argc, char** argv) {
  const std::string work = argc == 3 ? argv[1] : "";
  const auto cut = [](std::int32_t frames) {
    return [frames](const std::filesystem::path& home) { return vantora::Cut(home, frames); };
  };
  if (work == "cut") return vantora::RunWork(cut(vantora::kTenSeconds), argv[2]);
  if (work == "cut-near") return vantora::RunWork(cut(vantora::kHalfSecond), argv[2]);
  if (work == "paste") return vantora::RunWork(vantora::Paste, argv[2]);
  if (work == "normalize") return vantora::RunWork(vantora::Normalize, argv[2]);
  if (work == "normalize-once") return vantora::RunWork(vantora::NormalizeOnce, argv[2]);
  if (work == "fade") return vantora::RunWork(vantora::Fade, argv[2]);
  if (work == "mute") return vantora::RunWork(vantora::Mute, argv[2]);
  std::fputs("bench-edits cut|cut-near|paste|normalize|normalize-once|fade|mute HOME\n", stderr);
  return 2;
}
