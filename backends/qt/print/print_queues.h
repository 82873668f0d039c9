// The printers of the system.
#pragma once

#include "backends/printing/print_job.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantora {

class PrintQueues {
 public:
  virtual ~PrintQueues() = default;
  virtual std::vector<std::string> Names() = 0;
  virtual std::string Default() = 0;  // blank: no default printer
  virtual PrintSheet Sheet(const std::string& name) = 0;
  // Prints a PDF. Raises 482 when the system does not accept it.
  virtual void Send(const std::string& name, const std::filesystem::path& pdf, int copies) = 0;
};

// For machines without printers, and for tests.
class NoQueues final : public PrintQueues {
 public:
  std::vector<std::string> Names() override { return {}; }
  std::string Default() override { return {}; }
  PrintSheet Sheet(const std::string& name) override;
  void Send(const std::string& name, const std::filesystem::path& pdf, int copies) override;
};

// The queues that the toolkit lists. Pages are printed with `lp`, which reports whether it accepted
// them and does not scale them.
class SystemQueues final : public PrintQueues {
 public:
  std::vector<std::string> Names() override;
  std::string Default() override;
  PrintSheet Sheet(const std::string& name) override;
  void Send(const std::string& name, const std::filesystem::path& pdf, int copies) override;
};

// The usual paper size in the user's country.
PaperSize PaperOfCountry();

}  // namespace vantora
