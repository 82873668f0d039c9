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
  virtual std::string Default() = 0;  // blank: none
  virtual PrintSheet Sheet(const std::string& name) = 0;
  // Hands a PDF over; raises 482 when the system does not take it.
  virtual void Send(const std::string& name, const std::filesystem::path& pdf, int copies) = 0;
};

// A machine without printers, and every test.
class NoQueues final : public PrintQueues {
 public:
  std::vector<std::string> Names() override { return {}; }
  std::string Default() override { return {}; }
  PrintSheet Sheet(const std::string& name) override;
  void Send(const std::string& name, const std::filesystem::path& pdf, int copies) override;
};

// The queues that the toolkit finds. A page goes into them by `lp`, which reports whether it was
// taken, and leaves its size alone.
class SystemQueues final : public PrintQueues {
 public:
  std::vector<std::string> Names() override;
  std::string Default() override;
  PrintSheet Sheet(const std::string& name) override;
  void Send(const std::string& name, const std::filesystem::path& pdf, int copies) override;
};

// What the user's country prints on.
PaperSize PaperOfCountry();

}  // namespace vantora
