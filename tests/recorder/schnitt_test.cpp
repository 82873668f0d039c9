// Compares takes with an independent model of the cut: bursts are played at known frames, and every
// take must have exactly the frames that the rules keep.

#include "app/werte/zahlen.h"
#include "tests/recorder/aufnahme_stage.h"

#include <random>

namespace vantora {

namespace {

constexpr std::int64_t kRate = 44100, kPuffer = 1024;

struct Stoss {
  std::int64_t Frame, Frames;
  int Pegel;  // of each channel; the sum is twice as much
};

std::string Klangbild(const std::vector<Stoss>& stoesse, std::int64_t frames) {
  std::mt19937 zufall(7);
  std::vector<std::int16_t> werte;
  for (std::int64_t i = 0; i < frames; ++i) {  // far below the threshold
    werte.insert(werte.end(), 2, static_cast<std::int16_t>(zufall() % 256 - 128));
  }
  for (const Stoss& stoss : stoesse) {
    for (std::int64_t i = 0; i < stoss.Frames; ++i) {
      // Loud from its first sample on, with random values, so that no part equals another.
      const int leiser = std::max(stoss.Pegel - static_cast<int>(zufall() % 100), 0);
      std::fill_n(&werte[static_cast<std::size_t>(stoss.Frame + i) * 2], 2,
                  static_cast<std::int16_t>(i % 2 == 0 ? stoss.Pegel : -leiser));
    }
  }
  return test::BytesOf(werte);
}

// The peaks of both channels in a buffer, added.
int Summe(const std::string& daten, std::int64_t vonFrame) {
  int spitzen[2] = {}, i = 0;
  for (const int wert :
       test::SamplesOf(daten.substr(static_cast<std::size_t>(vonFrame) * 4, kPuffer * 4))) {
    int& spitze = spitzen[i++ % 2];
    spitze = std::max(spitze, std::abs(wert));
  }
  return spitzen[0] + spitzen[1];
}

// The expected takes by the rules, for the sound since the card began to record.
std::vector<std::string> Soll(const std::string& gehoert, std::int64_t listenTicks,
                              std::int64_t druckTicks, int schwelle, std::int64_t pauseMs) {
  std::vector<std::string> takes(1);
  bool nimmtAuf = true;
  std::int64_t letzter = druckTicks;
  const auto puffer = static_cast<std::int64_t>(gehoert.size()) / 4 / kPuffer;
  for (std::int64_t k = 0; k < puffer; ++k) {
    const std::int64_t jetzt = listenTicks + ((k + 1) * kPuffer * 1000 + kRate - 1) / kRate;
    if (jetzt <= druckTicks) continue;
    const int s = Summe(gehoert, k * kPuffer);
    if (s > schwelle) letzter = jetzt;
    if (nimmtAuf && jetzt - letzter >= pauseMs) {
      nimmtAuf = false;
      letzter = 0;
      continue;
    }
    if (!nimmtAuf && s >= schwelle) {
      nimmtAuf = true;
      takes.emplace_back();
    }
    if (nimmtAuf) {
      takes.back() += gehoert.substr(static_cast<std::size_t>(k * kPuffer * 4), kPuffer * 4);
    }
  }
  return takes;
}

}  // namespace

TEST(Schnitt, EveryTakeIsWhatTheRulesKeepAlsoWhenTheWindowIsBusy) {
  for (const bool beschaeftigt : {false, true}) {
    SCOPED_TRACE(beschaeftigt);
    AufnahmeBuehne t;
    HeadlessLoop& loop = t.b.platform.loop;
    t.OeffneLP();
    while (t.A().WaveIn->BufferTicks() == 0) t.Warte(1);
    const std::int64_t beginn = t.A().WaveIn->BufferTicks() - (kPuffer * 1000 + kRate - 1) / kRate;
    // Long and short bursts, within a buffer and across buffers, and exactly as loud as the
    // threshold.
    const std::vector<Stoss> stoesse = {{20'000, 150'001, 9000},     {300'000, 40'000, 1400},
                                        {500'123, 1, 30'000},        {640'007, 200'000, 5000},
                                        {1'000'000, 3, 1000},        {1'200'011, 130'000, 1000},
                                        {1'500'000, 177'000, 12'000}};
    const std::string bild = Klangbild(stoesse, 45 * kRate);
    const std::int64_t spielTicks = t.b.platform.clock.Ticks();
    t.Spiele(bild);
    t.Warte(137);
    const std::int64_t druck = t.b.platform.clock.Ticks();
    t.Druecke(t.A().imgAufnehmen);
    while (t.b.platform.clock.Ticks() < spielTicks + 46'000) {
      t.Warte(1700);
      if (beschaeftigt) t.b.Tu([&] { loop.Sleep(5000); });
    }
    t.Warte(100);
    const std::int64_t ende = t.b.platform.clock.Ticks();
    t.b.Tu([&] { t.A().imgRecordStop_MouseUp(); });

    const std::int64_t vorher = (spielTicks - beginn) * kRate / 1000;
    const std::int64_t gesamt = (ende - beginn) * kRate / 1000;
    std::string gehoert(static_cast<std::size_t>(vorher) * 4, '\0');
    gehoert += bild;
    gehoert.resize(static_cast<std::size_t>(gesamt) * 4, '\0');
    const std::vector<std::string> soll = Soll(gehoert, beginn, druck, 2000, 2000);
    EXPECT_EQ(t.A().AufnahmeZahl, static_cast<int>(soll.size()));
    EXPECT_GT(soll.size(), 4U);
    for (std::size_t i = 0; i < soll.size(); ++i) {
      const Text name = L"lp" + Format(static_cast<double>(i), L"00") + L".wav";
      EXPECT_TRUE(t.Klang(name) == soll[i])
          << i << ": " << t.Klang(name).size() << " bytes, not " << soll[i].size();
    }
  }
}

}  // namespace vantora
