#include "tests/support/kill_switch.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantora::test {

namespace {

constexpr int kKilled = 9;

struct State {
  int Left = 0;  // calls until it acts; 0: off
  int Error = 0;
  int Made = 0;
  bool Half = false, ForGood = false, Sprung = false;
};
State state;  // one for the process, like the system calls

enum class Fate { Done, Half, Failed };

// Decides what happens to the current call.
Fate Next() {
  if (state.Left == 0) return Fate::Done;
  ++state.Made;
  if (--state.Left > 0) return Fate::Done;
  state.Sprung = true;
  if (state.ForGood) state.Left = 1;
  if (state.Error != 0) return Fate::Failed;
  if (state.Half) return Fate::Half;
  ::_exit(kKilled);
}

template <typename... Arguments>
long Call(long number, Arguments... arguments) {
  const Fate fate = Next();
  if (fate == Fate::Half) ::_exit(kKilled);
  if (fate == Fate::Failed) {
    errno = state.Error;
    return -1;
  }
  return ::syscall(number, arguments...);
}

long Write(int file, const void* bytes, std::size_t count, std::int64_t place) {
  const Fate fate = Next();
  if (fate == Fate::Failed) {
    errno = state.Error;
    return -1;
  }
  if (fate == Fate::Done) return ::syscall(SYS_pwrite64, file, bytes, count, place);
  ::syscall(SYS_pwrite64, file, bytes, count / 2, place);
  ::_exit(kKilled);
}

}  // namespace

void KillSwitch::KillAt(int call, bool half) {
  state = {call, 0, 0, half, false, false};
}

void KillSwitch::FailAt(int call, int error, bool forGood) {
  state = {call, error, 0, false, forGood, false};
}

void KillSwitch::Off() {
  state.Left = 0;
}

bool KillSwitch::Sprung() {
  return state.Sprung;
}

int KillSwitch::Calls() {
  return state.Made;
}

bool RunInProcess(const std::function<void()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      work();
    } catch (const std::exception&) {
      ::_exit(1);  // an unexpected error
    }
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 1;
  if (code != 0 && code != kKilled) std::abort();
  return code == 0;
}

}  // namespace vantora::test

extern "C" {

ssize_t pwrite(int file, const void* bytes, size_t count, off_t place) {
  return vantora::test::Write(file, bytes, count, place);
}
int ftruncate(int file, off_t length) noexcept {
  return static_cast<int>(vantora::test::Call(SYS_ftruncate, file, length));
}
int fallocate(int file, int mode, off_t from, off_t length) {
  return static_cast<int>(vantora::test::Call(SYS_fallocate, file, mode, from, length));
}
int unlink(const char* path) noexcept {
  return static_cast<int>(vantora::test::Call(SYS_unlinkat, AT_FDCWD, path, 0));
}
int rename(const char* from, const char* to) noexcept {
  return static_cast<int>(vantora::test::Call(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
}
