#include "backends/linux/linux_system.h"

#include "backends/linux/utf8.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cwchar>
#include <fcntl.h>
#include <sstream>
#include <sys/file.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace vantora {

namespace fs = std::filesystem;

LinuxSystem::LinuxSystem(LinuxPlaces places, Options options)
    : places_(std::move(places)), options_(std::move(options)) {}

bool LinuxSystem::PrevInstance() {
  if (!locks_.empty()) return false;
  for (const fs::path& folder : {places_.Runtime, places_.Cache}) {
    if (folder.empty()) continue;
    std::error_code left;
    fs::create_directories(folder, left);
    Descriptor mark(::open((folder / "vantora.lock").c_str(),
                           O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    if (!mark.IsOpen()) continue;
    if (::flock(mark(), LOCK_EX | LOCK_NB) == 0) {
      locks_.push_back(std::move(mark));
    } else if (errno == EWOULDBLOCK) {
      locks_.clear();
      return true;
    }
  }
  // Without a lock file another instance cannot be found. The program starts all the same.
  return false;
}

int LinuxSystem::VersionPart(int index) const {
  const wchar_t* rest = options_.Version.c_str();
  for (int i = 0; i < index && rest; ++i) {
    rest = std::wcschr(rest, L'.');
    if (rest) ++rest;
  }
  return rest ? static_cast<int>(std::wcstol(rest, nullptr, 10)) : 0;
}

Text LinuxSystem::FileVersion(const Text& path) {
  const auto found = options_.Versions.find(LowerCase(path));
  return found == options_.Versions.end() ? Text() : found->second;
}

bool LinuxSystem::OpenFile(const fs::path& file) {
  return Show(file.string());
}

bool LinuxSystem::OpenHelp(const Text& /*file*/, const Text& topic) {
  std::error_code failed;
  fs::path page = options_.HelpFolder / "index.html";
  const bool plain = !topic.empty() && topic.find_first_of(L"/\\") == Text::npos;
  const fs::path wanted = options_.HelpFolder / (ToUtf8(topic) + ".html");
  if (plain && fs::is_regular_file(wanted, failed)) page = wanted;
  if (!fs::is_regular_file(page, failed)) return false;
  if (!help_) return Show(page.string());
  help_->Open(page);
  return true;
}

void LinuxSystem::ShowHelpWith(Background& background, EventLoop& loop,
                               std::function<void(const fs::path&)> viewer) {
  help_ = std::make_unique<HelpOpener>(
      HelpOpener::Programs{options_.Opener, "xdg-mime", HelpOpener::DataFoldersOfDesktop()},
      background, loop, std::move(viewer));
}

void LinuxSystem::OpenLink(const Text& address) {
  const Text lower = LowerCase(address);
  if (lower.starts_with(L"www.")) {
    Show("https://" + ToUtf8(address));
  } else if (lower.starts_with(L"http://") || lower.starts_with(L"https://") ||
             lower.starts_with(L"mailto:")) {
    Show(ToUtf8(address));
  }
}

bool LinuxSystem::OpenerThere() const {
  if (options_.Opener.find('/') != std::string::npos) {
    return ::access(options_.Opener.c_str(), X_OK) == 0;
  }
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (::access((fs::path(folder) / options_.Opener).c_str(), X_OK) == 0) return true;
  }
  return false;
}

// Between the forks only system calls are allowed, since other threads may hold locks. The child in
// the middle exits at once, so that init waits for the viewer's end and this program need not.
bool LinuxSystem::Show(const std::string& what) const {
  if (!OpenerThere()) return false;
  std::string opener = options_.Opener, argument = what;
  std::array<char*, 3> arguments{opener.data(), argument.data(), nullptr};
  const pid_t child = ::fork();
  if (child == 0) {
    ::setsid();
    if (::fork() == 0) {
      const int nowhere = ::open("/dev/null", O_RDWR);
      for (int stream = 0; stream < 3 && nowhere >= 0; ++stream) ::dup2(nowhere, stream);
      ::execvp(arguments[0], arguments.data());
    }
    ::_exit(0);
  }
  if (child > 0) ::waitpid(child, nullptr, 0);
  return child > 0;
}

}  // namespace vantora
