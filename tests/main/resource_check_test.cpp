#include "main/resource_check.h"

#include "tests/backends/linux/home.h"

namespace vantora::test {

TEST(ResourceCheck, AFileThatLostItsEndIsNamed) {
  const fs::path source = fs::path(VANTORA_SOURCE_DIR) / "resources";
  EXPECT_EQ(IncompleteResource(source), fs::path());
  const TempFolder copy;
  fs::copy(source / "strings.tsv", copy());
  fs::copy(source / "layouts", copy() / "layouts");
  for (const auto& entry : fs::recursive_directory_iterator(copy())) {
    if (!entry.is_regular_file()) continue;
    const std::string whole = Get(entry.path());
    fs::resize_file(entry.path(), whole.size() - 1);
    EXPECT_EQ(IncompleteResource(copy()), entry.path());
    fs::remove(entry.path());
    EXPECT_EQ(IncompleteResource(copy()), entry.path());
    Put(entry.path(), whole + "# longer\n");
  }
  EXPECT_EQ(IncompleteResource(copy()), fs::path());
}

}  // namespace vantora::test
