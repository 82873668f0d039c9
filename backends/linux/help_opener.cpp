#include "backends/linux/help_opener.h"

#include "backends/linux/descriptor.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <system_error>

namespace vantora {

namespace fs = std::filesystem;

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr int kLookMs = 40;  // between two looks at a program that runs
constexpr int kRareLookMs = 2000;
// A browser that runs longer than this shows the page, whatever it returns at its end.
constexpr std::chrono::seconds kPatience{20};
constexpr std::chrono::seconds kHeldKey{1};
constexpr std::chrono::seconds kAnswer{3};  // the desktop normally answers in a tenth of a second

// Starts a program in a session of its own. Its output goes to `output`, or nowhere. Returns 0 if
// it cannot be started.
pid_t Start(std::string program, std::vector<std::string> words, int output) {
  std::vector<char*> arguments{program.data()};
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawnattr_t attributes;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawnattr_init(&attributes);
  ::posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_addopen(&files, 1, "/dev/null", O_WRONLY, 0);
  ::posix_spawn_file_actions_addopen(&files, 2, "/dev/null", O_WRONLY, 0);
  if (output >= 0) ::posix_spawn_file_actions_adddup2(&files, output, 1);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  pid_t child = 0;
  const int error =
      ::posix_spawnp(&child, program.c_str(), &files, &attributes, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&files);
  ::posix_spawnattr_destroy(&attributes);
  return error == 0 ? child : 0;
}

// Returns true on success, false on failure, and nothing while the program runs.
std::optional<bool> Result(pid_t child) {
  int status = 0;
  const pid_t ended = ::waitpid(child, &status, WNOHANG);
  if (ended == 0 || (ended < 0 && errno == EINTR)) return std::nullopt;
  return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

// One page on its way to the browser, as slices of a background job. All calls on one thread.
class HelpOpener::Attempt {
 public:
  Attempt(Programs programs, fs::path page)
      : programs_(std::move(programs)), page_(std::move(page)) {}

  bool Shown() const { return shown_; }  // after the last slice

  int Slice() {
    if (!asked_) return Ask();
    if (pipe_.IsOpen()) return Listen();
    if (opener_ == 0) return Open();
    return Watch();
  }

 private:
  int Ask() {
    asked_ = true;
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return 0;
    Descriptor mouth(ends[1]);
    asker_ = Start(programs_.Asker, {"query", "default", "text/html"}, mouth());
    pipe_ = Descriptor(ends[0]);
    if (asker_ == 0) pipe_ = Descriptor();
    since_ = SteadyClock::now();
    return 0;
  }

  // The answer ends with the end of the program's output.
  int Listen() {
    std::array<char, 256> part{};
    pollfd ready{pipe_(), POLLIN, 0};
    ::poll(&ready, 1, kLookMs);
    const ssize_t length = ::read(pipe_(), part.data(), part.size());
    if (length > 0) answer_.append(part.data(), static_cast<std::size_t>(length));
    const bool more = length > 0 || (length < 0 && (errno == EAGAIN || errno == EINTR));
    if (more && SteadyClock::now() - since_ < kAnswer) return 0;
    if (more) ::kill(-asker_, SIGKILL);
    ::waitpid(asker_, nullptr, 0);
    pipe_ = Descriptor();
    return Boxed() ? -1 : 0;
  }

  bool Boxed() const {
    const std::string name = answer_.substr(0, answer_.find('\n'));
    if (name.empty() || name.find('/') != std::string::npos) return false;
    for (const fs::path& folder : programs_.DataFolders) {
      const fs::path file = folder / "applications" / name;
      std::error_code missing;
      if (!fs::exists(file, missing)) continue;
      const std::string place = file.string();
      return place.find("/flatpak/") != std::string::npos ||
             place.find("/snapd/") != std::string::npos;
    }
    return false;
  }

  int Open() {
    opener_ = Start(programs_.Opener, {page_.string()}, -1);
    since_ = SteadyClock::now();
    return opener_ == 0 ? -1 : kLookMs;
  }

  int Watch() {
    const bool early = SteadyClock::now() - since_ < kPatience;
    const std::optional<bool> ended = Result(opener_);
    if (!ended) return early ? kLookMs : kRareLookMs;
    shown_ = *ended || !early;
    return -1;
  }

  Programs programs_;
  fs::path page_;
  bool asked_ = false, shown_ = false;
  Descriptor pipe_;
  std::string answer_;
  pid_t asker_ = 0, opener_ = 0;
  SteadyClock::time_point since_;
};

std::vector<fs::path> HelpOpener::DataFoldersOfDesktop() {
  const auto variable = [](const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value == nullptr || *value == '\0' ? otherwise : std::string(value);
  };
  const std::string home = variable("HOME", "");
  std::istringstream all(variable("XDG_DATA_HOME", home + "/.local/share") + ':' +
                         variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"));
  std::vector<fs::path> folders;
  for (std::string folder; std::getline(all, folder, ':');) folders.emplace_back(folder);
  return folders;
}

HelpOpener::HelpOpener(Programs programs, Background& background, EventLoop& loop,
                       std::function<void(const fs::path&)> viewer)
    : programs_(std::move(programs)),
      background_(background),
      loop_(loop),
      viewer_(std::move(viewer)),
      self_(std::make_shared<HelpOpener*>(this)) {}

HelpOpener::~HelpOpener() {
  *self_ = nullptr;
}

void HelpOpener::Open(const fs::path& page) {
  if (noBrowser_) return viewer_(page);
  const SteadyClock::time_point now = SteadyClock::now();
  // A held key asks again and again for a page that is already on its way.
  for (const auto& [number, way] : underway_) {
    if (way.Page == page && now - way.Since < kHeldKey) return;
  }
  const auto attempt = std::make_shared<Attempt>(programs_, page);
  const int number = ++count_;
  underway_[number] = {page, now, nullptr};
  underway_[number].Job = background_.Start([attempt, number, page, self = self_, &loop = loop_] {
    const int next = attempt->Slice();
    if (next >= 0) return next;
    loop.Post([self, number, shown = attempt->Shown()] {
      if (*self != nullptr) (*self)->Ended(number, shown);
    });
    return next;
  });
}

void HelpOpener::Ended(int number, bool shown) {
  const fs::path page = underway_[number].Page;
  underway_.erase(number);
  if (shown) return;
  noBrowser_ = true;
  viewer_(page);
}

}  // namespace vantora
