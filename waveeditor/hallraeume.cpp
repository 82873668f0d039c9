#include "waveeditor/hallraeume.h"

#include "app/programm.h"
#include "app/werte/weiter.h"
#include "app/werte/zeichen.h"

#include <string>

namespace vantora {

namespace {

constexpr const wchar_t* kReverbDatei = L"Reverb.ini";

}  // namespace

Text Hallraeume::Datei() const {
  return AddBackslash(prog.AppPfad) + kReverbDatei;
}

void Hallraeume::DateiAnlegen() const {
  const Text datei = Datei();
  if (prog.DateiExistiert(datei)) return;
  std::string bytes;
  for (const wchar_t zeichen : prog.plattform.ressourcen.Supplement(kReverbDatei)) {
    bytes += static_cast<char>(ByteIn1252(zeichen));
  }
  if (bytes.empty()) return;
  const bool ganz = Weiter(
      [&] { prog.plattform.dateien.Open(datei, Zugriff::Neu)->Write(bytes.data(), bytes.size()); });
  // A half-written file is deleted. Otherwise it would look like a file of the user, and would
  // never be completed.
  if (!ganz) Weiter([&] { prog.plattform.dateien.Kill(datei); });
}

std::vector<Text> Hallraeume::Namen() const {
  DateiAnlegen();
  MMHelperX& helfer = prog.plattform.mmtools.Helper();
  std::vector<Text> namen;
  for (int i = 0;; ++i) {
    const Text name = helfer.IniSection(i, Datei());
    if (helfer.Len(name) == 0) return namen;
    namen.push_back(helfer.Mid(name, helfer.InStr(name, L".") + 1));
  }
}

}  // namespace vantora
