#include "backends/forms/keys.h"

#include <cwctype>

namespace vantora {

namespace {

struct Named {
  const wchar_t* Name;
  int Code;
};

constexpr Named kNamed[] = {
    {L"Backspace", kKeyBackspace}, {L"Tab", kKeyTab},       {L"Return", kKeyReturn},
    {L"Escape", kKeyEscape},       {L"Space", kKeySpace},   {L"PageUp", kKeyPageUp},
    {L"PageDown", kKeyPageDown},   {L"End", kKeyEnd},       {L"Home", kKeyHome},
    {L"Left", kKeyLeft},           {L"Up", kKeyUp},         {L"Right", kKeyRight},
    {L"Down", kKeyDown},           {L"Delete", kKeyDelete}, {L"F1", kKeyF1},
    {L"F2", kKeyF1 + 1},           {L"F3", kKeyF1 + 2},     {L"F4", kKeyF1 + 3},
    {L"F5", kKeyF1 + 4},           {L"F6", kKeyF1 + 5},     {L"F7", kKeyF1 + 6},
    {L"F8", kKeyF1 + 7},           {L"F9", kKeyF1 + 8},     {L"F10", kKeyF1 + 9},
    {L"F11", kKeyF1 + 10},         {L"F12", kKeyF12},
};

wchar_t Upper(wchar_t c) {
  return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c)));
}

wchar_t Lower(wchar_t c) {
  return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
}

bool SameName(const Text& name, const Text& other) {
  if (name.size() != other.size()) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (Upper(name[i]) != Upper(other[i])) return false;
  }
  return true;
}

bool TakeOff(Text& name, const Text& prefix) {
  if (name.size() <= prefix.size() || !SameName(name.substr(0, prefix.size()), prefix))
    return false;
  name.erase(0, prefix.size());
  return true;
}

// Other keys than letters, digits and the space bar have no code: the codes of their characters
// would be those of Delete and its neighbours.
int CodeOf(wchar_t c) {
  const wchar_t upper = Upper(c);
  const bool known = (upper >= L'A' && upper <= L'Z') || (c >= L'0' && c <= L'9') || c == L' ';
  return known ? static_cast<int>(upper) : 0;
}

}  // namespace

int CharacterOf(int code, int written, bool control) {
  if (code == kKeyBackspace || code == kKeyReturn || code == kKeyEscape) return code;
  return control ? 0 : written;
}

KeyStroke KeyFor(wchar_t character) {
  KeyStroke stroke;
  if (character == L'\r' || character == L'\n') {
    stroke.Code = stroke.Character = kKeyReturn;
    return stroke;
  }
  stroke.Code = CodeOf(character);
  stroke.Character = int{character};
  stroke.Shift = character != Lower(character);
  return stroke;
}

std::optional<KeyStroke> KeyByName(const Text& name) {
  Text rest = name;
  bool control = false, shift = false, alt = false;
  for (bool more = true; more;) {
    more = false;
    if (TakeOff(rest, L"Ctrl+")) control = more = true;
    if (TakeOff(rest, L"Shift+")) shift = more = true;
    if (TakeOff(rest, L"Alt+")) alt = more = true;
  }
  KeyStroke stroke;
  if (rest.size() == 1) {
    stroke = KeyFor(shift ? Upper(rest[0]) : Lower(rest[0]));
    stroke.Character = CharacterOf(stroke.Code, stroke.Character, control);
  } else {
    for (const Named& named : kNamed) {
      if (SameName(rest, named.Name)) stroke.Code = named.Code;
    }
    if (stroke.Code == 0) return std::nullopt;
    stroke.Character = CharacterOf(stroke.Code, stroke.Code == kKeySpace ? ' ' : 0, control);
  }
  stroke.Control = control;
  stroke.Shift = shift;
  stroke.Alt = alt;
  return stroke;
}

}  // namespace vantora
