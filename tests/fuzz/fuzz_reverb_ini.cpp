// Random bytes as the file of reverb rooms: every room is loaded while sound plays.
#include "backends/linux/profile_file.h"
#include "backends/sound/effects/reverb.h"
#include "tests/backends/linux/home.h"
#include "tests/backends/sound/chain_sounds.h"
#include "tests/fuzz/fuzz_body.h"

namespace vantora::test {

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
