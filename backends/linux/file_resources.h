// Texts, layouts, pictures and supplements from the program's resource folder: `strings.tsv`
// (number, tab, text; \n, \t and \\ are escapes), `layouts/NAME.layout`, `pictures/NAME.svg`, and
// supplements under their own names, all in UTF-8. The texts are read at the first use. Without the
// folder there are no texts.
#pragma once

#include "platform/resources.h"

#include <filesystem>
#include <map>
#include <string>

namespace vantora {

class FileResources final : public Resources {
 public:
  explicit FileResources(std::filesystem::path folder) : folder_(std::move(folder)) {}

  Text LoadResString(int id) override;
  Text Layout(const Text& name) override;
  Text Supplement(const Text& name) override;
  const std::filesystem::path& Folder() const { return folder_; }

 private:
  void ReadTexts();

  std::filesystem::path folder_;
  bool read_ = false;
  std::map<int, std::string> texts_;  // as in the file: most texts are never used in a run
};

}  // namespace vantora
