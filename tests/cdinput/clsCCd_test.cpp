#include "tests/cdinput/cddb_stage.h"

namespace vantora::test {
namespace {

class ClsCCd : public testing::Test, protected CddbStage {};

TEST_F(ClsCCd, TheIdOfADiscIsTheOneByWhichEveryDatabaseKnowsIt) {
  const struct {
    const char* Name;
    int Tracks, First, Step, Wobble, LastTrack;  // in frames
    const wchar_t* Id;                           // computed independently
  } discs[] = {
      {"two tracks of an even second", 2, 150, 13350, 1, 9000, L"0b012a02"},
      {"one track that ends a frame before a second", 1, 150, 0, 1, 299, L"02000301"},
      {"a total of 4096 s", 1, 150, 0, 1, 307200, L"02100001"},
      {"one track that begins a frame before a second", 1, 224, 0, 1, 76, L"02000201"},
      {"two tracks across a minute", 2, 150, 4350, 1, 4649, L"08007702"},
      {"twelve songs behind a gap", 12, 182, 15377, 997, 14999, L"9409a30c"},
      {"twenty-one songs", 21, 37, 16001, 733, 12345, L"35115815"},
      {"a checksum of 255", 30, 150, 1500, 1, 9000, L"0002bc1e"},
      {"ninety-nine pieces of more than 4095 s", 99, 150, 3301, 173, 3500, L"a8110963"},
  };
  for (const auto& each : discs) {
    disc.Starts.clear();
    for (int i = 0; i < each.Tracks; ++i) {
      disc.Starts.push_back(each.First + i * each.Step + i * i * 7 % each.Wobble);
    }
    disc.LeadOut = disc.Starts.back() + each.LastTrack;
    EXPECT_EQ(DiscIDLesen(prog, L"D:\\"), each.Id) << each.Name;
    EXPECT_EQ(disc.OpenDevices, 0);
  }
}

TEST_F(ClsCCd, TheQueryNamesEveryTrackByItsFrameAndTheDiscByItsEnd) {
  EXPECT_EQ(client.DiscID(), L"(unavailable)");
  EXPECT_EQ(client.QueryString(), L"cddb+query+(unavailable)+0");
  disc.Starts = {182, 5000, 399999};
  disc.LeadOut = 400074;
  client.Init(L"D:\\");
  EXPECT_EQ(client.QueryString(), L"cddb+query+" + client.DiscID() + L"+3+182+5000+399999+5334");
}

TEST_F(ClsCCd, ADriveThatFailsAtAnyQuestionIsClosedAndGivesNoId) {
  const int questions = 2 + 1 + 2 + 1;  // open, set format; number of tracks, positions, length
  for (int call = 0; call < questions; ++call) {
    disc.FailingCall = call;
    EXPECT_EQ(DiscIDLesen(prog, L"D:\\"), L"(unavailable)") << call;
    EXPECT_EQ(disc.OpenDevices, 0) << call;
  }
  disc.FailingCall = -1;
  EXPECT_NE(DiscIDLesen(prog, L"D:\\"), L"(unavailable)");
  EXPECT_EQ(DiscIDLesen(prog, L""), L"(unavailable)");
  disc.Starts.clear();
  EXPECT_EQ(DiscIDLesen(prog, L"D:\\"), L"(unavailable)");
}

}  // namespace
}  // namespace vantora::test
