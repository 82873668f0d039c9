// A disc image: a sheet and the files that it names.
#pragma once

#include "backends/cdio/image_layout.h"

#include <map>
#include <memory>

namespace vantora {

class ImageDisc final : public Disc {
 public:
  ImageDisc(Dateien& files, Text sheet);  // raises the errors of ReadSheet

  bool StillThere() override;
  bool Read(int sector, int count, void* target) override;
  int CarefulSectors() const override { return 64; }

 private:
  void Fill(std::int64_t from, char* target, std::size_t bytes);

  Dateien& files_;
  Text sheet_, stamp_;
  std::vector<ImagePiece> pieces_;
  std::map<Text, std::unique_ptr<Datei>> open_;
};

}  // namespace vantora
