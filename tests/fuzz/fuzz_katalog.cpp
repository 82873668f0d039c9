// Random bytes as a catalog file: it must be refused with its error, or read and written again
// unchanged.
#include "catalog/katalog_datei.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/wave_bytes.h"
#include "tests/fuzz/fuzz_body.h"

namespace vantora::test {

constexpr std::size_t kRecordBytes = 822;  // size of a record without a date

void FuzzOne(const std::string& bytes) {
  static Home home;
  Lay(home / "a.vtr", bytes);

  KatalogFeld katalog(3);
  const int error = ErrorOf([&] { KatalogLesen(home.Files, L"C:\\a.vtr", katalog); });
  Require(
      error == 0 || error == kFehlerDateiEnde || error == kFehlerIndex || error == kFehlerSpeicher,
      "a file that is no catalog raises the error for it");
  const bool negative = bytes.size() >= 4 && (bytes[3] & 0x80) != 0;
  Require(negative == (error == kFehlerIndex), "a count below 0 is an index out of range");
  Require(!negative || katalog.size() == 3, "a count below 0 leaves all as it was");
  // The vector may grow to twice the records of the file, but must not reserve what a false count
  // promises.
  Require(katalog.capacity() <= 2 * (bytes.size() / kRecordBytes) + 3,
          "no room for invented tracks");
  if (error != 0) return;

  Require(UBound(katalog) >= 0 &&
              Number(static_cast<std::uint64_t>(UBound(katalog)), 4) == bytes.substr(0, 4),
          "the count is the highest index");
  KatalogSchreiben(home.Files, L"C:\\b.vtr", katalog);
  const std::string written = Taken(home / "b.vtr");
  Require(written.size() >= 4 + kRecordBytes * katalog.size(), "every record is written");
  Require(bytes.starts_with(written), "what was read is written again, byte by byte");
}

}  // namespace vantora::test
