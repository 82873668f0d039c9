#include "main/resource_check.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace vantora {

namespace {

struct TextFile {
  const char* Name;
  std::ptrdiff_t Lines;
};

constexpr TextFile kTextFiles[] = {
#include "resource_lines.inc"
};

std::ptrdiff_t LinesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::count(std::istreambuf_iterator<char>(in), {}, '\n');
}

}  // namespace

std::filesystem::path IncompleteResource(const std::filesystem::path& folder) {
  for (const TextFile& file : kTextFiles) {
    std::filesystem::path place = folder / file.Name;
    if (LinesOf(place) < file.Lines) return place;
  }
  return {};
}

}  // namespace vantora
