// cddb-server FILE COMMAND [WORD ...]: runs the CDDB servers described in FILE, each on a free
// port of 127.0.0.1, while COMMAND runs. COMMAND finds the ports in its environment, and its exit
// code is that of cddb-server.
//
// FILE is UTF-8, with one entry per line:
//   server NAME         a server, whose port is in the variable NAME
//   disc CATEGORY ID    a disc of this server; the lines below are its data
//   similar ID          a disc for which the server has only similar ones
//   closes-at N         the server closes its connections after N bytes of an answer
// Lines that begin with # are comments.

#include "backends/linux/utf8.h"
#include "backends/linux/windows1252.h"
#include "tests/emulators/cddb_server.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <list>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace vantora::test {
namespace {

constexpr int kConnections = 1000;

// Starts the servers and puts their ports into the environment of processes started from here.
class Servers {
 public:
  explicit Servers(const std::string& file) {
    std::ifstream text(file);
    if (!text) throw std::runtime_error("cannot read " + file);
    for (std::string line; std::getline(text, line);) {
      if (!line.starts_with('#') && !line.empty()) Take(line);
    }
  }

 private:
  void Take(const std::string& line) {
    std::istringstream words(line);
    std::string what, first, second;
    words >> what >> first >> second;
    if (what == "server") {
      const CddbServer& server = servers_.emplace_back(kConnections);
      ::setenv(first.c_str(), std::to_string(server.Port()).c_str(), 1);
    } else if (servers_.empty()) {
      throw std::runtime_error("no server has been named before: " + line);
    } else if (what == "disc") {
      category_ = first;
      id_ = second;
      lines_.clear();
    } else if (what == "similar") {
      servers_.back().KnowsOnlySimilar(first);
    } else if (what == "closes-at") {
      servers_.back().Faults.CloseAt = std::stol(first);
    } else {
      lines_ += ToWindows1252(FromUtf8(line)) + "\r\n";
      servers_.back().Knows(category_, id_, lines_);
    }
  }

  std::list<CddbServer> servers_;
  std::string category_, id_, lines_;
};

// Runs a program from the path and returns its exit code.
int RunCommand(char** words) {
  pid_t child = 0;
  if (::posix_spawnp(&child, words[0], nullptr, nullptr, words, environ) != 0) {
    throw std::runtime_error(std::string("cannot start ") + words[0]);
  }
  int status = 0;
  if (::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return 1;
  return WEXITSTATUS(status);
}

}  // namespace
}  // namespace vantora::test

int main(int argc, char** argv) {
  if (argc < 3) {
    std::cerr << "usage: cddb-server FILE COMMAND [WORD ...]\n";
    return 2;
  }
  try {
    const vantora::test::Servers servers(argv[1]);
    return vantora::test::RunCommand(argv + 2);
  } catch (const std::exception& error) {
    std::cerr << "cddb-server: " << error.what() << "\n";
    return 2;
  }
}
