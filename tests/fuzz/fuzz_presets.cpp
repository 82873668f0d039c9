// Random bytes as the presets of effects in the settings: chosen in the wave editor, each must set
// its controls within their ranges, or be reported as incomplete or too large. One line is one
// preset.
#include "tests/fuzz/fuzz_body.h"
#include "tests/waveeditor/editor_stage.h"

#include <array>
#include <sstream>

namespace vantora::test {

namespace {

constexpr std::array<const wchar_t*, 4> kKeys = {L"ZFXEQU0", L"ZFXVOL0", L"ZFXRES0", L"ZFXFLA0"};
constexpr std::array<int, 4> kPanels = {0, 1, 3, 4};
constexpr std::array<int, 4> kValues = {11, 5, 6, 4};  // of a complete preset

struct Editor : EditorBuehne {
  Editor() { Oeffne(1000); }

  PictureButton& Button(std::size_t kind) {
    return *std::array<PictureButton*, 4>{&E().imgEQPresets, &E().imgVolumePresets,
                                          &E().imgRestPresets, &E().imgFlangerPresets}[kind];
  }
};

void CheckSliders(Form& window) {
  for (Control* control : window.Controls) {
    const auto* slider = dynamic_cast<Slider*>(control);
    if (slider == nullptr) continue;
    const int low = std::min(slider->Min(), slider->Max());
    const int high = std::max(slider->Min(), slider->Max());
    Require(slider->Value() >= low && slider->Value() <= high, "a slider stays in its range");
  }
}

}  // namespace

void FuzzOne(const std::string& bytes) {
  static Editor editor;
  std::istringstream lines(bytes);
  for (std::size_t kind = 0; kind < kKeys.size(); ++kind) {
    std::string line;
    std::getline(lines, line);
    Text preset;
    for (const char byte : line) preset += static_cast<unsigned char>(byte);
    SaveSetting(editor.b.platform.bundle, kKeys[kind], preset);
    editor.Druecke(editor.E().imgEffekt(kPanels[kind]));
    editor.Druecke(editor.Button(kind));
    // The answer to the message about an incomplete preset.
    if (editor.b.user.Left() == 0) editor.b.Antwortet(kNein);
    if (!editor.E().lstPresets.Items().empty()) {
      editor.b.platform.hands.Select(editor.E().lstPresets, {1});
    }
    CheckSliders(editor.E());
    const bool whole = std::count(preset.begin(), preset.end(), L';') >= kValues[kind];
    for (const Text& said : editor.b.Gesagt()) {
      Require(said.ends_with(L"(6)") || (!whole && said.ends_with(L"(9)")),
              "only what is missing or too large is reported");
    }
    editor.b.user.Said.clear();
    editor.Druecke(editor.E().imgOK);
  }
}

}  // namespace vantora::test
