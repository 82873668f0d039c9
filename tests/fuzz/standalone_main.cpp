// Runs a fuzz test without a fuzzer: `fuzz_wave COUNT [FIRST]` runs the mutations FIRST to FIRST +
// COUNT - 1 of its seeds. Mutation N is the same on every machine, so the number printed at a crash
// is enough to repeat it.
#include "tests/fuzz/fuzz_body.h"

#include <array>
#include <cinttypes>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <ranges>
#include <unistd.h>
#include <vector>

namespace vantora::test {

namespace {

constexpr unsigned kSecondsAnInput = 20;

// The message of a crash. It is made before each input, since a signal handler may do little.
std::array<char, 64> message;

void TellNumber(int signal) {
  if (::write(2, message.data(), std::strlen(message.data())) < 0) ::_exit(2);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

// The files of the corpus, in the order of their names.
std::vector<std::string> Seeds() {
  std::map<std::filesystem::path, std::string> seeds;
  for (const auto& entry : std::filesystem::directory_iterator(VANTORA_FUZZ_CORPUS)) {
    std::ifstream in(entry.path(), std::ios::binary);
    seeds[entry.path()].assign(std::istreambuf_iterator<char>(in), {});
  }
  const auto texts = std::views::values(seeds);
  return {texts.begin(), texts.end()};
}

class Mutator {
 public:
  explicit Mutator(std::uint64_t number) : random_(number) {}

  std::string Make(const std::vector<std::string>& seeds) {
    std::string text = seeds[Below(seeds.size())];
    for (std::size_t changes = Below(6); changes > 0; --changes) Change(text, seeds);
    return text;
  }

 private:
  std::size_t Below(std::size_t limit) {
    return limit == 0 ? 0 : static_cast<std::size_t>(random_() % limit);
  }

  void Change(std::string& text, const std::vector<std::string>& seeds) {
    const std::size_t place = Below(text.size() + 1);
    const std::size_t size = Below(Below(4) == 0 ? 5000 : 9);
    const std::size_t what = Below(8);
    if (what == 0) text.resize(place);
    if (what == 1) text.erase(place, size);
    if (what == 2) text.insert(place, text.substr(Below(text.size() + 1), size));
    if (what == 3) text.insert(place, size, static_cast<char>(random_()));
    if (what == 4) {
      const std::string& other = seeds[Below(seeds.size())];
      text.replace(place, size, other.substr(Below(other.size() + 1), Below(200)));
    }
    if (what == 5) {  // a size or a count at the limits of its type
      constexpr std::array<std::uint32_t, 10> kEdges{
          0, 1, 0x7F, 0xFF, 0x7FFF, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFE, 0xFFFFFFFF};
      const std::uint32_t edge = kEdges[Below(kEdges.size())];
      for (std::size_t i = 0; i < 4 && place + i < text.size(); ++i) {
        text[place + i] = static_cast<char>((edge >> (8 * i)) & 0xFFU);
      }
    }
    if (what > 5 && place < text.size()) text[place] = static_cast<char>(random_());
  }

  std::mt19937_64 random_;
};

}  // namespace

}  // namespace vantora::test

int main(int argc, char** argv) {
  using namespace vantora::test;
  const std::uint64_t count = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1000;
  const std::uint64_t first = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 0;
  for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGALRM}) {
    std::signal(signal, TellNumber);
  }
  const std::vector<std::string> seeds = Seeds();
  for (std::uint64_t number = first; number < first + count; ++number) {
    std::snprintf(message.data(), message.size(), "died of mutation number %" PRIu64 "\n", number);
    // The first inputs are the seeds themselves.
    ::alarm(kSecondsAnInput);
    FuzzOne(number < seeds.size() ? seeds[number] : Mutator(number).Make(seeds));
  }
  ::alarm(0);
  std::cout << count << " inputs, nothing broken" << std::endl;
  return 0;
}
