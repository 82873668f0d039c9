#include "backends/burn/failure_log.h"

#include <array>
#include <cstdio>
#include <cwchar>

namespace vantora {

namespace {

constexpr int kWriteFailed = 0x0002011D, kWriterEnded = 0x00020178;
constexpr int kNoTransfer = 0x0002010C, kConnectionLost = 0x000201A6;
// The prefix of messages that only the log shows. Without it, the first letter of some messages
// would have a meaning to the receiver.
constexpr const wchar_t* kLogMark = L"Grabadora: ";
constexpr const char* kPlanCommand = "on command 5Dh";  // SEND CUE SHEET

const wchar_t* Meaning(int key) {
  switch (key) {
    case 0x2:
      return L"La grabadora no está lista";
    case 0x3:
      return L"Error de medio";
    case 0x4:
      return L"Error de la grabadora";
    case 0x5:
      return L"La grabadora no admite la orden";
    case 0x6:
      return L"El disco ha cambiado";
    case 0x7:
      return L"El disco está protegido";
    case 0x8:
      return L"El disco no está virgen";
    case 0xB:
      return L"La grabadora ha interrumpido la orden";
    case 0xD:
      return L"El disco está lleno";
    default:
      return L"Error";
  }
}

}  // namespace

// Finds sense codes in, for example, "SCSI error on write(1024,27): [3 0C 00] Medium error. Write
// error."
std::optional<FailureLog::Sense> FailureLog::SenseIn(const std::string& words) {
  for (std::size_t at = words.find('['); at != std::string::npos; at = words.find('[', at + 1)) {
    unsigned key = 0, asc = 0, ascq = 0;
    if (std::sscanf(&words[at], "[%1x %2x %2x]", &key, &asc, &ascq) == 3 && key != 0) {
      return Sense{static_cast<int>(key), static_cast<int>(asc), static_cast<int>(ascq)};
    }
  }
  return std::nullopt;
}

void FailureLog::Hear(const LibraryMessage& message) {
  if (message.Code == kWriterEnded) ended_ = true;
  if (message.Code == kNoTransfer || message.Code == kConnectionLost) {
    lost_ = true;
    if (lostErrno_ == 0) lostErrno_ = message.Errno;
  }
  if (message.Severity < BurnLibrary::kSorry) return;
  if (words_.empty()) words_ = FromLibrary(message.Words);
  if (message.Severity < BurnLibrary::kFailure) return;
  const auto sense = SenseIn(message.Words);
  if (!sense) return;
  if (message.Words.find(kPlanCommand) != std::string::npos) planRefused_ = true;
  // The sense of a failed write explains most. Otherwise the first sense is the cause of the later
  // ones.
  const bool write = message.Code == kWriteFailed;
  if (!sense_ || (write && !whileWriting_)) {
    sense_ = sense;
    whileWriting_ = write;
  }
}

BurnEvent FailureLog::Event(int code) const {
  if (lost_) {
    return [error = lostErrno_](McdEvents& events) {
      if (events.MCD_ASPIEvent) events.MCD_ASPIEvent(error, L"Se ha perdido la grabadora");
    };
  }
  if (sense_) {
    return [sense = *sense_](McdEvents& events) {
      std::array<wchar_t, 16> bytes{};
      std::swprintf(bytes.data(), bytes.size(), L" (%X %02X %02X)",
                    static_cast<unsigned>(sense.Key), static_cast<unsigned>(sense.Asc),
                    static_cast<unsigned>(sense.Ascq));
      const int whole = sense.Key << 16 | sense.Asc << 8 | sense.Ascq;
      if (events.MCD_ScsiEvents) {
        events.MCD_ScsiEvents(sense.Key, sense.Asc, whole, sense.Ascq,
                              Meaning(sense.Key) + Text(bytes.data()));
      }
    };
  }
  return FailureEvent(code, words_.empty() ? L"La grabación ha fracasado" : words_);
}

BurnEvent LogEvent(const LibraryMessage& message) {
  return [code = message.Code, text = FromLibrary(message.Words)](McdEvents& events) {
    if (events.MCD_InfoMessage) events.MCD_InfoMessage(code, kLogMark + text);
  };
}

BurnEvent FailureEvent(int code, const Text& text) {
  return [code, text](McdEvents& events) {
    if (events.MCD_InfoMessage) events.MCD_InfoMessage(code, kLogMark + text);
    if (events.MCD_Failure) events.MCD_Failure(code, text);
  };
}

}  // namespace vantora
