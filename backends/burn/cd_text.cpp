#include "backends/burn/cd_text.h"

#include "backends/sound/disc/disc_text.h"

#include <algorithm>
#include <array>
#include <string>

namespace vantora {

namespace {

constexpr int kTitle = 0x80, kPerformer = 0x81;
constexpr int kLatin1 = 0, kSpanish = 0x0A, kKeep = -1;
constexpr int kMostPacks = 255;  // their number is one byte; a pack holds 12 bytes of text
// Maximum lengths of a text, tried in this order. With the last one, 99 tracks always fit.
constexpr std::size_t kLengths[] = {160, 60, 40, 30, 24, 18, 12};

const Text& Part(const CdTexts& texts, int index, int kind) {
  static const Text blank;
  const auto found = texts.find(index);
  if (found == texts.end()) return blank;
  return kind == kTitle ? found->second.first : found->second.second;
}

// When the disc has a text of a kind, every track needs one of that kind as well, even if blank.
void Attach(burn_session* session, const std::vector<burn_track*>& tracks, const CdTexts& texts,
            int kind, std::size_t most) {
  const auto bytes = [&](int index) { return DiscText(Part(texts, index, kind)).substr(0, most); };
  const auto data = [](std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); };
  const auto size = [](const std::string& text) { return static_cast<int>(text.size()) + 1; };
  std::string text = bytes(0);
  burn_session_set_cdtext(session, 0, kind, nullptr, data(text), size(text), 0);
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    text = bytes(static_cast<int>(i) + 1);
    burn_track_set_cdtext(tracks[i], 0, kind, nullptr, data(text), size(text), 0);
  }
}

}  // namespace

bool AttachCdText(burn_session* session, const std::vector<burn_track*>& tracks,
                  const CdTexts& texts) {
  std::array<int, 8> codes{}, keep{}, languages{};
  codes.fill(kKeep);
  keep.fill(kKeep);
  languages.fill(kKeep);
  codes[0] = kLatin1;
  languages[0] = kSpanish;
  std::vector<int> kinds;
  for (const int kind : {kTitle, kPerformer}) {
    for (std::size_t i = 0; i <= tracks.size(); ++i) {
      if (Part(texts, static_cast<int>(i), kind).empty()) continue;
      kinds.push_back(kind);
      break;
    }
  }
  if (kinds.empty()) return false;
  burn_session_set_cdtext_par(session, codes.data(), keep.data(), languages.data(), 0);
  for (const std::size_t most : kLengths) {
    // New texts replace the old ones. They are not removed first: the library's function for that
    // leaves dangling pointers.
    for (const int kind : kinds) Attach(session, tracks, texts, kind, most);
    const int packs = burn_cdtext_from_session(session, nullptr, nullptr, 1);
    if (packs > 0 && packs <= kMostPacks) break;
  }
  return true;
}

}  // namespace vantora
