// Random bytes as a settings file: read, changed, and read again as by the next run.
#include "backends/linux/settings_file.h"
#include "tests/backends/linux/home.h"
#include "tests/fuzz/fuzz_body.h"

namespace vantora::test {

void FuzzOne(const std::string& bytes) {
  static const TempFolder folder;
  const fs::path file = folder() / "settings.conf";
  Put(file, bytes);
  const auto read = [&](const Text& key) {
    return SettingsFile(file).GetSetting(L"Quillmark", L"VTR", key, L"none");
  };
  const Text undo = read(L"Undo"), folderOfWaves = read(L"Wave_Export_Dir");
  // Saves the input itself, since any text must be kept.
  const auto* input = reinterpret_cast<const unsigned char*>(bytes.data());
  const Text value(input, input + std::min<std::size_t>(bytes.size(), 300));
  SettingsFile(file).SaveSetting(L"Quillmark", L"VTR", L"Copies", value);
  Require(read(L"Copies") == value, "what is saved is read again");
  SettingsFile(file).SaveSetting(L"Quillmark", L"VTR", L"Other" + value, L"1");
  Require(read(L"Other" + value) == L"1", "any key is found again");
  Require(read(L"Copies") == value && read(L"Undo") == undo &&
              read(L"Wave_Export_Dir") == folderOfWaves,
          "a change leaves the others alone");
}

}  // namespace vantora::test
