#include "main/kept_volume.h"

#include "app/einstellungen.h"

#include <cwchar>

namespace vantora {

namespace {

constexpr const wchar_t* kVolume = L"OutputVolume";
constexpr const wchar_t* kMuted = L"OutputMuted";
constexpr int kRestMs = 300;  // a dragged knob is saved after it has rested for so long

}  // namespace

KeptVolume::KeptVolume(OutputVolume& volume, SettingsStore& settings, EventLoop& loop)
    : volume_(volume), settings_(settings), loop_(loop) {
  const auto kept = [this](const wchar_t* key) {
    return settings_.GetSetting(kAnwendung, kAbschnitt, key, L"");
  };
  const Text known = kept(kVolume);
  wchar_t* end = nullptr;
  const long value = std::wcstol(known.c_str(), &end, 10);
  if (!known.empty() && *end == L'\0' && value >= 0 && value <= kFullVolume) {
    volume_.SetVolume(static_cast<int>(value));
  }
  volume_.SetOn(kept(kMuted) != L"1");
  volume_.OnChange = [this] { Changed(); };
}

KeptVolume::~KeptVolume() {
  volume_.OnChange = nullptr;
  Save();
}

void KeptVolume::Changed() {
  if (unsaved_) return;
  unsaved_ = true;
  loop_.PostAfter(kRestMs, [this, watch = std::weak_ptr(token_)] {
    if (!watch.expired()) Save();
  });
}

void KeptVolume::Save() {
  if (!unsaved_) return;
  unsaved_ = false;
  settings_.SaveSettings(
      kAnwendung, kAbschnitt,
      {{kVolume, std::to_wstring(volume_.Volume())}, {kMuted, volume_.On() ? L"0" : L"1"}});
}

}  // namespace vantora
