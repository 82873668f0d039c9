#include "backends/cdio/image_layout.h"

#include "backends/sound/wave_layout.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <cstdio>

namespace vantora {

namespace {

constexpr std::int64_t kMostSheetBytes = 1 << 20;
constexpr std::size_t kMostTracks = 99;
constexpr int kMostSectors = 100 * 60 * kCdSectorsPerSecond;

// The wide characters of UTF-8; blank for what is none.
Text FromUtf8(const std::string& bytes) {
  Text text;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[at++]);
    const int more = lead < 0x80 ? 0 : lead < 0xC2 ? -1 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    if (more < 0 || lead > 0xF4 || at + static_cast<std::size_t>(more) > bytes.size()) return {};
    unsigned letter = more == 0 ? lead : lead & (0x3FU >> static_cast<unsigned>(more));
    for (int i = 0; i < more; ++i) {
      const auto next = static_cast<unsigned char>(bytes[at++]);
      if ((next & 0xC0U) != 0x80) return {};
      letter = letter << 6U | (next & 0x3FU);
    }
    text += static_cast<wchar_t>(letter);
  }
  return text;
}

// Sheets carry no word about their letters: UTF-8 when it is that, the Latin letters of old if not.
Text Decoded(const std::string& bytes) {
  Text text = FromUtf8(bytes);
  if (!text.empty() || bytes.empty()) return text;
  for (const char byte : bytes) text += static_cast<wchar_t>(static_cast<unsigned char>(byte));
  return text;
}

bool Exists(Dateien& files, const Text& path) {
  try {
    files.FileLen(path);
    return true;
  } catch (const Laufzeitfehler&) {
    return false;
  }
}

void Check(const CdToc& toc) {
  if (toc.Tracks.empty() || toc.Tracks.size() > kMostTracks || toc.LeadOut > kMostSectors) {
    SheetMakesNoSense();
  }
  int before = -1;
  for (const CdTrack& track : toc.Tracks) {
    if (track.Start <= before) SheetMakesNoSense();
    before = track.Start;
  }
  if (toc.LeadOut <= before) SheetMakesNoSense();
}

}  // namespace

void SheetMakesNoSense() {
  throw Laufzeitfehler(kFehlerEinAusgabe, L"La imagen del disco no se entiende.");
}

Text FileOfSheet(Dateien& files, const Text& sheet, const std::string& name) {
  const Text plain = Decoded(name.substr(name.find_last_of("/\\") + 1));
  Text beside = sheet.substr(0, sheet.rfind(L'\\') + 1) + plain;
  if (Exists(files, beside)) return beside;
  // A pair that was given another name together.
  const std::size_t dot = plain.rfind(L'.');
  Text renamed =
      sheet.substr(0, sheet.rfind(L'.')) + (dot == Text::npos ? Text() : plain.substr(dot));
  if (!plain.empty() && renamed != sheet && Exists(files, renamed)) return renamed;
  throw Laufzeitfehler(kFehlerDateiFehlt, L"Falta un archivo de la imagen del disco.");
}

int SheetTime(const std::string& text) {
  int minutes = 0, seconds = 0, frames = 0, end = 0;
  const int found = std::sscanf(text.c_str(), "%3d:%2d:%2d%n", &minutes, &seconds, &frames, &end);
  const bool whole = found == 3 && static_cast<std::size_t>(end) == text.size();
  if (!whole || minutes < 0 || seconds < 0 || seconds > 59 || frames < 0 ||
      frames >= kCdSectorsPerSecond) {
    return -1;
  }
  return (minutes * 60 + seconds) * kCdSectorsPerSecond + frames;
}

SoundPlace PlaceOfWave(Dateien& files, const Text& file) {
  const auto wave = files.Open(file, Zugriff::Lesen);
  const WaveLayout layout = ReadWaveLayout(*wave);
  if (layout.SampleRate != 44100 || layout.BitsPerSample != 16 || layout.Channels != 2) {
    SheetMakesNoSense();
  }
  return {layout.DataOffset, layout.DataBytes};
}

ImageLayout ReadSheet(Dateien& files, const Text& sheet) {
  const auto file = files.Open(sheet, Zugriff::Lesen);
  if (file->Length() > kMostSheetBytes) SheetMakesNoSense();
  std::string text(static_cast<std::size_t>(file->Length()), '\0');
  file->Read(text.data(), text.size());

  Text ending = sheet.substr(std::max<std::size_t>(sheet.size(), 4) - 4);
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](wchar_t c) { return c >= L'A' && c <= L'Z' ? c - (L'A' - L'a') : c; });
  ImageLayout layout =
      ending == L".toc" ? LayoutOfToc(files, sheet, text) : LayoutOfCue(files, sheet, text);
  Check(layout.Toc);
  for (int track = 1; track <= layout.Toc.Count(); ++track) {
    CdTrack& entry = layout.Toc.Tracks[static_cast<std::size_t>(track) - 1];
    entry.Sectors = layout.Toc.End(track) - entry.Start;
  }
  return layout;
}

}  // namespace vantora
