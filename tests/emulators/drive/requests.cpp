#include "tests/emulators/drive/requests.h"

#include "tests/emulators/drive/wire.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <linux/cdrom.h>
#include <scsi/sg.h>
#include <thread>
#include <utility>

namespace vantora::emulated {

namespace {

// From the kernel's <scsi/scsi.h>, which is hidden by the C library's header of the same name.
constexpr unsigned long kGetIdLun = 0x5382, kGetBusNumber = 0x5386;
constexpr int kRetries = 10;

Bytes SenseBytes(const Sense& trouble) {
  Bytes sense(18);
  sense[0] = 0x70;
  sense[2] = static_cast<unsigned char>(trouble.Key);
  sense[7] = 10;
  sense[12] = static_cast<unsigned char>(trouble.Asc);
  sense[13] = static_cast<unsigned char>(trouble.Ascq);
  return sense;
}

Bytes From(const void* bytes, std::size_t count) {
  const auto* first = static_cast<const unsigned char*>(bytes);
  return bytes == nullptr ? Bytes{} : Bytes(first, first + count);
}

// Returns the number of bytes copied.
std::size_t Into(void* target, std::size_t room, const Bytes& data) {
  const std::size_t count = target == nullptr ? 0 : std::min(room, data.size());
  if (count > 0) std::memcpy(target, data.data(), count);
  return count;
}

int ErrorOf(const Sense& trouble) {
  if (trouble.Key == 2 || trouble.Key == 6) return ENOMEDIUM;
  return trouble.Key == 5 && trouble.Asc == 0x20 ? EOPNOTSUPP : EIO;
}

}  // namespace

Answer Requests::Ask(const Bytes& command, const Bytes& sent) {
  Answer answer = drive_.Do(command, sent);
  changed_ |= answer.Trouble.Key == 6 && answer.Trouble.Asc == 0x28;
  return answer;
}

int Requests::Driver(const Bytes& command, Bytes& data, const Bytes& sent) {
  for (int i = 0;; ++i) {
    Answer answer = Ask(command, sent);
    if (answer.Gone) return ENODEV;
    data = std::move(answer.Data);
    const Sense& trouble = answer.Trouble;
    if (trouble.Key == 0) return 0;
    const bool gettingReady = trouble.Key == 2 && trouble.Asc == 4;
    if ((!gettingReady && trouble.Key != 6) || i == kRetries) return ErrorOf(trouble);
    if (gettingReady) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

// A refused command is a successful request that returns sense data.
int Requests::Generic(void* argument) {
  auto& header = *static_cast<sg_io_hdr_t*>(argument);
  const bool sends = header.dxfer_direction == SG_DXFER_TO_DEV;
  const Answer answer = Ask(From(header.cmdp, header.cmd_len),
                            sends ? From(header.dxferp, header.dxfer_len) : Bytes{});
  if (answer.Gone) return ENODEV;
  header.status = header.masked_status = header.sb_len_wr = 0;
  header.host_status = header.driver_status = 0;
  header.info = 0;
  header.resid = 0;
  if (header.dxfer_direction == SG_DXFER_FROM_DEV) {
    const std::size_t came = Into(header.dxferp, header.dxfer_len, answer.Data);
    header.resid = static_cast<int>(header.dxfer_len - came);
  }
  if (answer.Trouble.Key == 0) return 0;
  header.status = 2;  // check condition
  header.masked_status = 1;
  header.driver_status = 8;  // sense data is valid
  header.info = SG_INFO_CHECK;
  header.sb_len_wr =
      static_cast<unsigned char>(Into(header.sbp, header.mx_sb_len, SenseBytes(answer.Trouble)));
  return 0;
}

int Requests::Packet(void* argument) {
  auto& packet = *static_cast<cdrom_generic_command*>(argument);
  const bool sends = packet.data_direction == CGC_DATA_WRITE;
  const Bytes sent = sends ? From(packet.buffer, packet.buflen) : Bytes{};
  const Answer answer = Ask(From(packet.cmd, sizeof packet.cmd), sent);
  if (answer.Gone) return ENODEV;
  packet.stat = answer.Trouble.Key == 0 ? 0 : -1;
  if (!sends) Into(packet.buffer, packet.buflen, answer.Data);
  if (answer.Trouble.Key == 0) return 0;
  Into(packet.sense, sizeof(request_sense), SenseBytes(answer.Trouble));
  return ErrorOf(answer.Trouble);
}

int Requests::TocHeader(void* argument) {
  Bytes data;
  const int error = Driver({0x43, 0, 0, 0, 0, 0, 0, 0, 12, 0}, data);
  if (error != 0) return error;
  *static_cast<cdrom_tochdr*>(argument) = {data[2], data[3]};
  return 0;
}

int Requests::TocEntry(void* argument) {
  auto& entry = *static_cast<cdrom_tocentry*>(argument);
  if (entry.cdte_format != CDROM_MSF) return EINVAL;
  Bytes data;
  const int error = Driver({0x43, 2, 0, 0, 0, 0, entry.cdte_track, 0, 12, 0}, data);
  if (error != 0) return error;
  if (data.size() < 12) return EINVAL;
  entry.cdte_adr = data[5] >> 4 & 0xf;
  entry.cdte_ctrl = data[5] & 0xf;
  entry.cdte_datamode = (data[5] & 4) != 0 ? 1 : 0;
  entry.cdte_addr.msf = {data[9], data[10], data[11]};
  return 0;
}

int Requests::Session(void* argument) {
  auto& session = *static_cast<cdrom_multisession*>(argument);
  if (session.addr_format == CDROM_MSF) return EINVAL;
  Bytes data;
  const int error = Driver({0x43, 0, 1, 0, 0, 0, 0, 0, 12, 0}, data);
  if (error != 0) return error;
  session.xa_flag = 0;
  session.addr.lba = 0;
  return 0;
}

// Reports a change once.
int Requests::MediaChanged() {
  const Answer event = Ask({0x4a, 1, 0, 0, 0x10, 0, 0, 0, 8, 0});
  if (event.Gone) return 1;
  if (event.Data.size() > 4 && event.Data[4] >= 2) changed_ = true;
  return std::exchange(changed_, false) ? 1 : 0;
}

int Requests::DriveStatus() {
  Bytes none;
  const Answer answer = Ask({0, 0, 0, 0, 0, 0});
  const Sense& trouble = answer.Trouble;
  if (answer.Gone) return CDS_NO_DISC;
  if (trouble.Key == 2 && trouble.Asc == 0x3a) return CDS_NO_DISC;
  return trouble.Key == 2 ? CDS_DRIVE_NOT_READY : CDS_DISC_OK;
}

int Requests::WithStructure(unsigned long request, void* argument) {
  if (argument == nullptr) return EFAULT;
  constexpr struct {
    unsigned long Number;
    int (Requests::*Do)(void*);
  } kRequests[] = {{SG_IO, &Requests::Generic},
                   {CDROM_SEND_PACKET, &Requests::Packet},
                   {CDROMREADTOCHDR, &Requests::TocHeader},
                   {CDROMREADTOCENTRY, &Requests::TocEntry},
                   {CDROMMULTISESSION, &Requests::Session}};
  for (const auto& each : kRequests) {
    if (each.Number == request) return (this->*each.Do)(argument);
  }
  if (request != kGetBusNumber && request != kGetIdLun) return ENOTTY;
  std::memset(argument, 0, (request == kGetIdLun ? 2 : 1) * sizeof(int));
  return 0;
}

int Requests::Do(unsigned long request, void* argument) {
  const int answer = request == CDROM_MEDIA_CHANGED  ? MediaChanged()
                     : request == CDROM_DRIVE_STATUS ? DriveStatus()
                                                     : -WithStructure(request, argument);
  if (answer >= 0) return answer;
  errno = -answer;
  return -1;
}

}  // namespace vantora::emulated
