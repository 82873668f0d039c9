// Random bytes as the answers of a CDDB server: the result must be the disc's titles or one of the
// client's own errors. The byte 0x1C separates the first answer from the second.
#include "tests/cdinput/cddb_stage.h"
#include "tests/fuzz/fuzz_body.h"

#include <algorithm>

namespace vantora::test {

namespace {

struct Client {
  TemporaryHome home;
  HeadlessPlatform platform{home.Path(), std::filesystem::path(VANTORA_SOURCE_DIR) / "resources"};
  FakeDisc disc;
  AnsweringSockets network;
  Plattform bundle{With(platform.bundle, disc, network)};
};

}  // namespace

void FuzzOne(const std::string& bytes) {
  static Client machine;
  const std::size_t end = std::min(bytes.find('\x1C'), bytes.size());
  machine.network.Answers = {bytes.substr(0, end), bytes.substr(std::min(end + 1, bytes.size()))};
  machine.network.Requests.clear();
  machine.disc.Starts = {150, 13500};
  machine.disc.LeadOut = 22500;

  clsCCd client(machine.bundle);
  client.Init(L"D:\\");
  std::uint8_t status = 0;
  std::int16_t result = -1;
  const int error = ErrorOf([&] {
    client.CDDBAbfrage({L"127.0.0.1", L"", L"", L"a", L"b", L"c", L"1"}, status, result);
  });
  const bool found = result == 0 && status == kCDDBFertig;
  const bool not_there = result == 1 && (status == kCDDBMehrere || status == kCDDBNichtGefunden);
  Require(error == 0 ? found || not_there : error == 5 || error == 6 || error == 9,
          "a look-up ends in one of its own ways");
  for (const std::string& request : machine.network.Requests) {
    Require(request.ends_with("\r\n\r\n") && std::count(request.begin(), request.end(), '\n') == 3,
            "no answer adds a line to a request");
  }
  if (!found) return;
  const CDDBInfo info = client.CDDBGetInfo();
  for (const Text& title : info.TrackTitel) {
    Require(std::all_of(title.begin(), title.end(), [](wchar_t c) { return c >= L' '; }),
            "a title stands on one line");
  }
}

}  // namespace vantora::test
