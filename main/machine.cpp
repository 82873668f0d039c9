#include "main/machine.h"

#include <string_view>

namespace vantora {

std::filesystem::path ResourceFolder() {
  std::error_code none;
  const std::filesystem::path program =
      std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
  for (const auto& folder : {program / "resources", program / ".." / "share" / "vantora"}) {
    if (std::filesystem::exists(folder / "strings.tsv", none)) return folder;
  }
  return {};
}

Text ProgramVersion() {
  constexpr std::string_view kVersion = VANTORA_VERSION;
  return {kVersion.begin(), kVersion.end()};
}

}  // namespace vantora
