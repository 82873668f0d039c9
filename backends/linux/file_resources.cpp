#include "backends/linux/file_resources.h"

#include "backends/linux/utf8.h"

#include "platform/laufzeitfehler.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

namespace vantora {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* kTexts = L"strings.tsv";

std::string FileText(const fs::path& file) {
  std::error_code failed;
  const std::uintmax_t length = fs::file_size(file, failed);
  if (failed) return {};
  std::ifstream in(file, std::ios::binary);
  std::string text(static_cast<std::size_t>(length), '\0');
  in.read(text.data(), static_cast<std::streamsize>(length));
  text.resize(static_cast<std::size_t>(in.gcount()));
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  return text;
}

std::string Unescape(std::string_view escaped) {
  std::string text;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    const char next = escaped[i] == '\\' && i + 1 < escaped.size() ? escaped[i + 1] : '\0';
    if (next == 'n' || next == 't' || next == 'r' || next == '\\') {
      text += next == 'n' ? '\n' : next == 't' ? '\t' : next == 'r' ? '\r' : '\\';
      ++i;
    } else {
      text += escaped[i];
    }
  }
  return text;
}

// Resources have plain names; a path is not a name.
bool IsName(const Text& name) {
  return !name.empty() && name.front() != L'.' && name.find_first_of(L"/\\") == Text::npos;
}

}  // namespace

Text FileResources::LoadResString(int id) {
  ReadTexts();
  const auto text = texts_.find(id);
  if (text == texts_.end()) {
    throw Laufzeitfehler(kFehlerRessource, L"No se encuentra el texto número " +
                                               std::to_wstring(id) + L" en " + kTexts);
  }
  return FromUtf8(Unescape(text->second));
}

void FileResources::ReadTexts() {
  if (read_) return;
  read_ = true;
  const std::string table = FileText(folder_ / kTexts);
  std::string_view rest = table;
  while (!rest.empty()) {
    const auto end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto tab = line.find('\t');
    int id = 0;
    if (tab == std::string_view::npos) continue;
    const auto number = std::from_chars(line.data(), line.data() + tab, id);
    if (number.ec != std::errc() || number.ptr != line.data() + tab) continue;
    texts_.insert_or_assign(texts_.end(), id, line.substr(tab + 1));
  }
}

Text FileResources::Layout(const Text& name) {
  if (!IsName(name)) return {};
  return FromUtf8(FileText(folder_ / "layouts" / (ToUtf8(name) + ".layout")));
}

Text FileResources::Supplement(const Text& name) {
  if (!IsName(name)) return {};
  return FromUtf8(FileText(folder_ / ToUtf8(name)));
}

}  // namespace vantora
