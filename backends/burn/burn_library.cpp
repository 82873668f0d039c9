#include "backends/burn/burn_library.h"

#include <array>

namespace vantora {

namespace {

// The lock is held by the whole process, like the library. The first caller starts the library.
std::unique_lock<std::mutex> Hold() {
  static std::mutex mutex;
  std::unique_lock lock(mutex);
  static const bool started = [] {
    // The library's first messages come while it starts, and would go to the terminal.
    std::array<char, 6> all{"DEBUG"}, none{"NEVER"};
    std::array<char, 1> blank{};
    const bool running = burn_initialize() != 0;
    burn_msgs_set_severities(all.data(), none.data(), blank.data());
    return running;
  }();
  // A library that did not start reports no drives, so the result needs no check here.
  static_cast<void>(started);
  return lock;
}

}  // namespace

BurnLibrary::BurnLibrary() : held_(Hold()) {}

std::vector<LibraryMessage> BurnLibrary::Messages() {
  std::vector<LibraryMessage> messages;
  std::array<char, 4> all{"ALL"};
  std::array<char, BURN_MSGS_MESSAGE_LEN + 1> words{};
  std::array<char, 81> severity{};
  LibraryMessage message;
  while (burn_msgs_obtain(all.data(), &message.Code, words.data(), &message.Errno,
                          severity.data()) > 0) {
    burn_text_to_sev(severity.data(), &message.Severity, 0);
    message.Words = words.data();
    messages.push_back(message);
  }
  return messages;
}

Text BurnLibraryVersion() {
  int major = 0, minor = 0, micro = 0;
  burn_version(&major, &minor, &micro);
  return std::to_wstring(major) + L"." + std::to_wstring(minor) + L"." + std::to_wstring(micro);
}

Text FromLibrary(const std::string& words) {
  Text text;
  for (const char c : words) text += c < ' ' ? L' ' : static_cast<wchar_t>(c);
  return text;
}

}  // namespace vantora
