#include "backends/linux/processor_load.h"

#include "tests/backends/linux/home.h"

namespace vantora::test {

namespace {

const Text kStart = L"PerfStats\\StartStat", kData = L"perfstats\\STATDATA",
           kStop = L"PERFSTATS\\StopStat", kUsage = L"Kernel\\cpuusage";

}  // namespace

TEST(ProcessorLoad, ItIsTheShareOfTheTicksSinceTheLastQuestionFromStartToStop) {
  const TempFolder folder;
  const fs::path file = folder() / "stat";
  const auto ticks = [&](const char* line) { Put(file, std::string(line) + "\ncpu0 9 9 9 9\n"); };
  ProcessorLoad load(file.string());
  EXPECT_FALSE(load.RegOpenKey(kStart)) << "no such file, no counters";
  ticks("intr 5");
  EXPECT_FALSE(load.RegOpenKey(kStart));
  ticks("cpu  1000 10 500 8000 200 5 5 0 77 0");
  EXPECT_TRUE(load.RegOpenKey(kData));
  EXPECT_FALSE(load.RegOpenKey(L"PerfStats"));
  EXPECT_EQ(load.RegQueryValue(kData, kUsage), std::nullopt) << "not counted yet";
  EXPECT_TRUE(load.RegOpenKey(kStart));
  EXPECT_EQ(load.RegQueryValue(kData, kUsage), 0);
  ticks("cpu  1020 10 510 8050 220 5 5 0 99 0");  // 30 of 100 ticks
  EXPECT_EQ(load.RegQueryValue(kData, kUsage), 30);
  EXPECT_EQ(load.RegQueryValue(kData, kUsage), 30) << "no tick has passed";
  ticks("cpu  1020 10 510 8050 120 5 5 3000 99 0");  // the kernel's waiting time may decrease
  EXPECT_EQ(load.RegQueryValue(kData, kUsage), 100);
  EXPECT_EQ(load.RegQueryValue(kData, L"KERNEL\\Threads"), std::nullopt);
  EXPECT_EQ(load.RegQueryValue(kStart, kUsage), std::nullopt);
  EXPECT_TRUE(load.RegOpenKey(kStop));
  EXPECT_EQ(load.RegQueryValue(kData, kUsage), std::nullopt);
}

}  // namespace vantora::test
