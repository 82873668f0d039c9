// Random bytes as a settings file: read, changed, and read again as by the next run.
#include "backends/linux/settings_file.h"
#include "tests/backends/linux/home.h"
#include "tests/fuzz/fuzz_body.h"

#include <optional>

namespace vantora::test {

void FuzzOne(const std::string& bytes) {
  static const TempFolder folder;
  const fs::path file = folder() / "settings.conf";
  Lay(file, bytes);
  // Each run of the program reads the file anew.
  std::optional<SettingsFile> run(file);
  const auto read = [&](const Text& key) {
    return run->GetSetting(L"Quillmark", L"VTR", key, L"none");
  };
  const Text undo = read(L"Undo"), folderOfWaves = read(L"Wave_Export_Dir");
  // Saves the input itself, since any text must be kept.
  const auto* input = reinterpret_cast<const unsigned char*>(bytes.data());
  const Text value(input, input + std::min<std::size_t>(bytes.size(), 300));
  run->SaveSetting(L"Quillmark", L"VTR", L"Copies", value);
  run.emplace(file);
  Require(read(L"Copies") == value, "what is saved is read again");
  run->SaveSetting(L"Quillmark", L"VTR", L"Other" + value, L"1");
  run.emplace(file);
  Require(read(L"Other" + value) == L"1", "any key is found again");
  Require(read(L"Copies") == value && read(L"Undo") == undo &&
              read(L"Wave_Export_Dir") == folderOfWaves,
          "a change leaves the others alone");
}

}  // namespace vantora::test
