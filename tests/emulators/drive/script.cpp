#include "tests/emulators/drive/script.h"

#include <fstream>
#include <sstream>

namespace vantora::emulated {

Script Script::Load(const std::filesystem::path& folder) {
  Script script;
  std::ifstream file(folder / "script");
  for (std::string line, word; std::getline(file, line);) {
    std::istringstream words(line);
    word.clear();
    words >> word;
    if (word == "disc") words >> script.Disc >> script.MadeAs;
    if (word == "getting-ready") words >> script.GettingReady;
    if (word == "read-error") words >> script.ReadError;
    if (word == "wrong-sample") words >> script.WrongSample;
    if (word == "late") words >> script.Late;
    if (word == "write-error") words >> script.WriteError;
    if (word == "disconnect-at") words >> script.DisconnectAt;
    if (word == "pace") words >> script.Pace;
    script.NoSao |= word == "no-sao";
    script.NoCdText |= word == "no-cdtext";
    script.NoWriter |= word == "no-writer";
    script.Busy |= word == "busy";
    script.Disconnected |= word == "disconnected";
    script.Log |= word == "log";
  }
  return script;
}

}  // namespace vantora::emulated
