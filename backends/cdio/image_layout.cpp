#include "backends/cdio/image_layout.h"

#include "backends/cdio/sheet_text.h"
#include "backends/sound/files/wave_layout.h"

#include "platform/cd_sound.h"

#include <algorithm>

namespace vantora {

namespace {

constexpr std::int64_t kMostSheetBytes = 1 << 20;

bool Exists(Dateien& files, const Text& path) {
  try {
    files.FileLen(path);
    return !files.IsDirectory(path);
  } catch (const Laufzeitfehler&) {
    return false;
  }
}

void Check(const CdToc& toc) {
  if (toc.Tracks.empty() || toc.Tracks.size() > kMostDiscTracks || toc.LeadOut > kMostDiscSectors) {
    SheetMakesNoSense();
  }
  int before = -1;
  for (const CdTrack& track : toc.Tracks) {
    if (track.Start <= before) SheetMakesNoSense();
    before = track.Start;
  }
  if (toc.LeadOut <= before) SheetMakesNoSense();
}

bool EndsWith(const Text& name, const Text& ending) {
  const std::size_t length = std::min(name.size(), ending.size());
  return std::equal(
      name.end() - static_cast<std::ptrdiff_t>(length), name.end(), ending.begin(), ending.end(),
      [](wchar_t a, wchar_t b) { return (a >= L'A' && a <= L'Z' ? a - L'A' + L'a' : a) == b; });
}

ImageLayout LayoutOf(Dateien& files, const Text& sheet, SheetFault& where) {
  const auto file = files.Open(sheet, Zugriff::Lesen);
  if (file->Length() > kMostSheetBytes) SheetMakesNoSense();
  std::string bytes(static_cast<std::size_t>(file->Length()), '\0');
  file->Read(bytes.data(), bytes.size());
  const std::string text = SheetText(bytes);
  ImageLayout layout = EndsWith(sheet, L".toc") ? LayoutOfToc(files, sheet, text, where)
                                                : LayoutOfCue(files, sheet, text, where);
  Check(layout.Toc);
  return layout;
}

}  // namespace

void SheetMakesNoSense() {
  throw Laufzeitfehler(kFehlerEinAusgabe, L"La imagen del disco no se entiende.");
}

Text FileOfSheet(Dateien& files, const Text& sheet, const Text& name) {
  const Text folder = sheet.substr(0, sheet.rfind(L'\\') + 1);
  Text path = name;
  std::replace(path.begin(), path.end(), L'/', L'\\');
  const Text plain = path.substr(path.rfind(L'\\') + 1);
  if (plain.empty()) SheetMakesNoSense();
  // Refuses absolute paths of the machine on which the sheet was written, and paths that lead out
  // of the folder.
  const bool below = path[0] != L'\\' && path.find(L':') == Text::npos &&
                     (L'\\' + path).find(L"\\..\\") == Text::npos;
  if (below && Exists(files, folder + path)) return folder + path;
  if (Exists(files, folder + plain)) return folder + plain;
  // The sheet and its file may have been renamed together.
  const std::size_t dot = plain.rfind(L'.');
  Text renamed =
      sheet.substr(0, sheet.rfind(L'.')) + (dot == Text::npos ? Text() : plain.substr(dot));
  if (renamed != sheet && Exists(files, renamed)) return renamed;
  throw Laufzeitfehler(kFehlerDateiFehlt, L"Falta un archivo de la imagen del disco.");
}

SoundPlace PlaceOfWave(Dateien& files, const Text& file) {
  const auto wave = files.Open(file, Zugriff::Lesen);
  const WaveLayout layout = ReadWaveLayout(*wave);
  if (layout.SampleRate != kSampleRate || layout.BitsPerSample != kSampleBits ||
      layout.Channels != kChannels) {
    SheetMakesNoSense();
  }
  return {layout.DataOffset, layout.DataBytes};
}

bool NamedAsWave(const Text& file) {
  return EndsWith(file, L".wav");
}

ImageLayout ReadSheet(Dateien& files, const Text& sheet) {
  SheetFault where;
  where.Sheet = sheet.substr(sheet.rfind(L'\\') + 1);
  try {
    ImageLayout layout = LayoutOf(files, sheet, where);
    for (int track = 1; track <= layout.Toc.Count(); ++track) {
      CdTrack& entry = layout.Toc.Tracks[static_cast<std::size_t>(track) - 1];
      entry.Sectors = layout.Toc.End(track) - entry.Start;
    }
    return layout;
  } catch (const Laufzeitfehler& cause) {
    where.Line = std::max(where.Line, 1);
    throw SheetFailure(cause, where);
  }
}

}  // namespace vantora
