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

class Servers {
 public:
  explicit Servers(const std::string& file) {
    std::ifstream text(file);
    if (!text) throw std::runtime_error("cannot read " + file);
    for (std::string line; std::getline(text, line);) {
      if (!line.starts_with('#') && !line.empty()) Take(line);
    }
    FinishDisc();
  }
  // Puts the ports into the environment of processes started from here.
  void TellPorts() const {
    for (const Named& one : servers_) {
      ::setenv(one.Name.c_str(), std::to_string(one.Server.Port()).c_str(), 1);
    }
  }

 private:
  struct Named {
    std::string Name;
    CddbServer Server{kConnections};
  };

  void Take(const std::string& line) {
    std::istringstream words(line);
    std::string what, first, second;
    words >> what >> first >> second;
    if (what == "server") {
      FinishDisc();
      servers_.emplace_back().Name = first;
    } else if (servers_.empty()) {
      throw std::runtime_error("no server has been named before: " + line);
    } else if (what == "disc") {
      FinishDisc();
      category_ = first;
      id_ = second;
    } else if (what == "similar") {
      FinishDisc();
      servers_.back().Server.KnowsOnlySimilar(first);
    } else if (what == "closes-at") {
      servers_.back().Server.Faults.CloseAt = std::stol(first);
    } else {
      lines_ += ToWindows1252(FromUtf8(line)) + "\r\n";
    }
  }
  void FinishDisc() {
    if (!id_.empty()) servers_.back().Server.Knows(category_, id_, lines_);
    id_.clear();
    lines_.clear();
  }

  std::list<Named> servers_;
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
    servers.TellPorts();
    return vantora::test::RunCommand(argv + 2);
  } catch (const std::exception& error) {
    std::cerr << "cddb-server: " << error.what() << "\n";
    return 2;
  }
}
