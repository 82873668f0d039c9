#include "backends/checksum/sha256.h"

#include <QCryptographicHash>

#include <vector>

namespace vantora {

namespace {

constexpr std::size_t kBlockBytes = 1U << 16U;

}  // namespace

std::string Sha256Of(Datei& file) {
  QCryptographicHash sum(QCryptographicHash::Sha256);
  std::vector<char> block(kBlockBytes);
  while (const std::size_t read = file.ReadSome(block.data(), block.size())) {
    sum.addData({block.data(), static_cast<qsizetype>(read)});
  }
  return sum.result().toHex().toStdString();
}

}  // namespace vantora
