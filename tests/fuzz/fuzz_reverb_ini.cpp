// Random bytes as the file of reverb rooms: every room is loaded while sound plays.
#include "backends/linux/profile_file.h"
#include "backends/sound/effects/reverb.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/chain_sounds.h"
#include "tests/fuzz/fuzz_body.h"

namespace vantora::test {

std::vector<std::string> FuzzSeeds() {
  return {
      "[01.Sala]\r\nDifusion=95\r\nEco1=31.1,64,91,35,-35\r\nEco2=37.9,-62,-89,37,40\r\n"
      "Eco8=2000,99,99,100,100\r\n[B]\r\nEco1=2,1,1,1,1\r\n",
      "[.]\nDifusion=1e999\nEco1=nan,inf,-inf,0x7,1e-300\nEco2=,,,,\nEco3=-5;3\nEco4=99999999999,"
      "1\n",
      "[1.]\nEco1\nEco2=1e5,1e5,1e5,1e5,1e5,1e5\nDifusion=-1\n[x.y.z]\n", ""};
}

void FuzzOne(const std::string& bytes) {
  static Home home;
  Lay(home / "Reverb.ini", bytes);
  ProfileFiles profiles(home.Table);
  Reverb reverb(profiles);
  reverb.SetFeedback(99);
  reverb.Enable();
  constexpr std::size_t kFrames = 2646;  // a room is changed, and is faded out, in half of them
  static const Sound hiss = Hiss(20'000, kFrames);
  int rounds = 0;
  for (const Text& name : profiles.GetPrivateProfileSectionNames(L"C:\\Reverb.ini", 999)) {
    if (++rounds > 3) break;
    reverb.LoadFromIni(L"C:\\Reverb.ini", name);
    reverb.SetOutputGain(99);
    Through(reverb, hiss);
    reverb.SetOutputGain(0);
    const Sound out = Through(reverb, hiss);
    // NaN in an echo would change the sound.
    Require(out.size() == hiss.size() && std::equal(hiss.begin() + std::ssize(hiss) / 2, hiss.end(),
                                                    out.begin() + std::ssize(hiss) / 2),
            "without echoes the sound is what it was");
  }
}

}  // namespace vantora::test
