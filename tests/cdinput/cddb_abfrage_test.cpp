#include "backends/linux/linux_sockets.h"
#include "tests/cdinput/cddb_stage.h"

namespace vantora::test {
namespace {

using Requests = std::vector<std::string>;

constexpr int kUnset = 1;  // initial value of `Ergebnis`, until all steps have succeeded
const Outcome kAllWell{11, 0, 0}, kNotFound{202, kUnset, 0};

class CddbAbfrage : public testing::Test, protected CddbStage {};
using CdPlayerIni = CddbAbfrage;

// Calls at one status never follow each other without any event processed between them: on this
// clock, time passes only while events are processed.
TEST_F(CddbAbfrage, ADirectRequestIsThisToTheByteAndEventsAreProcessedAfterEvery20Bytes) {
  std::vector<std::pair<int, std::int64_t>> calls;
  std::vector<int> statuses;
  network.OnCall = [&] {
    calls.emplace_back(status, platform.clock.Ticks());
    if (statuses.empty() || statuses.back() != status) statuses.push_back(status);
  };
  EXPECT_EQ(AskFor(lines), kAllWell);
  EXPECT_EQ(statuses, (std::vector<int>{0, 1, 2, 5, 6, 7}));
  EXPECT_EQ(std::adjacent_find(calls.begin(), calls.end()), calls.end());
  EXPECT_EQ(network.LongestRead, 20);
  const std::string rest =
      "&hello=an\xF3nimo+casa+VTR+1.0&proto=4 HTTP/1.1\r\nConnection: Keep-Alive\r\n\r\n";
  EXPECT_EQ(network.Requests,
            (Requests{"GET /~cddb/cddb.cgi?cmd=cddb+query+0b012a02+2+150+13500+300" + rest,
                      "GET /~cddb/cddb.cgi?cmd=cddb+read+rock+0b012a02" + rest}));
}

TEST_F(CddbAbfrage, AProxyIsToldTheServerAtAPortWithTheSame16Bits) {
  request.Proxy = L"127.0.0.1";
  request.ProxyPort = L"40000";
  EXPECT_EQ(AskFor(lines), kAllWell);
  const std::string rest =
      "&hello=an\xF3nimo+casa+VTR+1.0&proto=4 HTTP/1.1\r\n"
      "Host: servidor:8880\r\nProxy-Connection: Keep-Alive\r\n\r\n";
  const std::string start = "GET http://servidor:8880/~cddb/cddb.cgi?cmd=cddb+";
  EXPECT_EQ(network.Requests, (Requests{start + "query+0b012a02+2+150+13500+300" + rest,
                                        start + "read+rock+0b012a02" + rest}));
  EXPECT_EQ(network.Ports, (std::vector<int>{40000, 40000}));
}

TEST_F(CddbAbfrage, AnAnswerIsTakenApartLineByLine) {
  EXPECT_EQ(AskFor("# xmcd\r\n#\r\nDISCID=0b012a02\r\nDTITLE=Nadie / Nada\r\n"
                   "DTITLE=La B\xE1rbara / Sue\xF1os / En vivo\r\nDYEAR=1999\r\n"
                   "TTITLE0=Un tema muy \r\nTTITLE0=largo\r\nTTITLE1=Sin int\xE9rprete = a\r\n"
                   "TTITLE2=viejo\r\nTTITLE3=Ana / Luz / Sombra\r\nTTITLE99=El \xFAltimo\r\n"
                   "EXTD=Primera\\nSegunda\\\r\nEXTD=nTercera\r\nEXTT0=a\\nb\r\nEXTT1=\r\n"
                   "EXTT0=c\r\nPLAYORDER=\r\nTTITLEX=!\r\n"),
            kAllWell);
  const CDDBInfo info = client.CDDBGetInfo();
  EXPECT_EQ(client.Kategorie(), L"rock");
  EXPECT_EQ(info.Interpret, L"La Bárbara");
  EXPECT_EQ(info.Titel, L"Sueños / En vivo");
  EXPECT_EQ(info.TrackTitel[1], L"Un tema muy largo!");
  EXPECT_EQ(info.TrackTitel[2], L"Sin intérprete = a");
  EXPECT_EQ(info.TrackInterpret[2], L"");
  EXPECT_EQ(info.TrackTitel[4], L"Luz / Sombra");
  EXPECT_EQ(info.TrackInterpret[4], L"Ana ");
  EXPECT_EQ(info.TrackTitel[100], L"El último");
  EXPECT_EQ(info.ExtD, L"Primera\r\nSegunda\r\nTercera");
  EXPECT_EQ(info.TrackExt[1], L"a\r\nbc");
  // The data of an earlier disc must not remain.
  network.Answers = {kPage + "200 data 1 x\r\n",
                     kPage + "210 data x\r\nDTITLE=x / y\r\nTTITLE0=z\r\n"};
  EXPECT_EQ(Ask(), kAllWell);
  EXPECT_EQ(client.Kategorie(), L"data");
  EXPECT_EQ(client.CDDBGetInfo().TrackTitel[1], L"z");
  EXPECT_EQ(client.CDDBGetInfo().TrackTitel[100], L"");
  EXPECT_EQ(client.CDDBGetInfo().ExtD, L"");
}

TEST_F(CddbAbfrage, WhoCannotBeReachedIsReportedAsProxyOrAsServer) {
  LinuxSockets real{SocketPatience{20, 800, 8000}};
  CddbStage s(&real);
  s.request.Proxy = L"127.0.0.1";
  for (const wchar_t* port : {L"1", L"", L"puerto", L"70000", L"200000", L"-40000", L"1e400"}) {
    s.request.ProxyPort = port;
    EXPECT_EQ(s.Ask(), (Outcome{99, kUnset, 0})) << Ucase(port).size();
  }
  s.request.Proxy.clear();
  for (const wchar_t* address : {L"127.0.0.1:1", L"127.0.0.1:99999999999", L"", L":", L" : ",
                                 L"no-such-machine.invalid", L"256.256.256.256", L"a b:80"}) {
    s.request.Server = address;
    EXPECT_EQ(s.Ask(), (Outcome{100, kUnset, 0})) << Text(address).size();
  }
}

TEST_F(CddbAbfrage, ACancelIsSeenWhereverEventsAreProcessed) {
  const auto ask = [&](int cancelAfterMs, std::int64_t& tookMs) {
    CddbStage s;
    s.platform.loop.PostAfter(cancelAfterMs, [&] { s.status = 77; });
    const std::int64_t start = s.platform.clock.Ticks();
    const Outcome outcome = s.AskFor(s.lines);
    tookMs = s.platform.clock.Ticks() - start;
    return outcome;
  };
  std::int64_t whole = 0, took = 0;
  ASSERT_EQ(ask(10000, whole), kAllWell);
  ASSERT_GT(whole, 10);  // turns of the loop, 1 ms each
  for (int turn = 1; turn < whole; ++turn) {
    EXPECT_EQ(ask(turn, took), (Outcome{77, kUnset, 0})) << turn;
    EXPECT_LE(took, turn + 1);
  }
}

// Each row: the answer that is bad, from 0, and the expected outcome. After "one close match" and
// "no match" nothing is read.
TEST_F(CddbAbfrage, ABadServerIsAnsweredWithAStatusOrARunTimeErrorAndNothingWorse) {
  std::string titles = "210 rock x\r\nDTITLE=a / b\r\n";
  for (int i = 0; i < 130; ++i) titles += "TTITLE" + std::to_string(i) + "=t\r\n";
  const std::string noHeader("\0\xFF\r\n\x80", 5);
  const struct {
    const char* Name;
    std::size_t Answer;
    std::string Instead;
    Outcome Expected;
  } cases[] = {
      {"not known", 0, kPage + "202 No match\r\n", kNotFound},
      {"one close match", 0, kPage + "211 close\r\nrock 0b012a03 x\r\n.\r\n", {201, 1, 0}},
      {"closes at once", 0, "", kNotFound},
      {"closes inside the header", 0, kPage.substr(0, 15), kNotFound},
      {"no header", 0, noHeader, kNotFound},
      {"10 MB without an end", 0, kPage + "200 " + std::string(10 << 20, 'x'), kNotFound},
      {"number beyond all", 0, kPage + "1e999 rock 0b012a02 x", kNotFound},
      {"a code and no more", 0, kPage + "200", kAllWell},
      {"no blank in 300 characters", 0, kPage + "200 " + std::string(300, 'r'), {200, 1, 6}},
      {"no header, second", 1, noHeader, kNotFound},
      {"nothing behind the header", 1, kPage, kAllWell},
      {"130 titles", 1, kPage + titles, {7, 1, 9}},
      {"track 101", 1, kPage + "210 r x\r\nTTITLE100=x\r\n", {7, 1, 9}},
      {"track 0", 1, kPage + "210 r x\r\nTTITLE-1=x\r\n", {7, 1, 9}},
      {"beyond all numbers", 1, kPage + "210 r x\r\nTTITLE1e999=x\r\n", {7, 1, 6}},
      {"title without performer", 1, kPage + "210 r x\r\nDTITLE=Algo\r\n", {7, 1, 5}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    network.Requests.clear();
    network.Reads = 0;
    network.Answers = {kFound, kPage + "210 rock 0b012a02 x\r\n" + lines};
    network.Answers[c.Answer] = c.Instead;
    EXPECT_EQ(Ask(), c.Expected);
    EXPECT_EQ(network.Requests.size(), c.Answer == 0 && c.Expected.Status >= 200 ? 1U : 2U);
    EXPECT_LE(network.Reads, 2 * 1024 * 1024 / 20);
    // The same client works again when the server does.
    EXPECT_EQ(AskFor(lines), kAllWell);
  }
}

TEST_F(CddbAbfrage, ACategoryCannotAddALineToTheNextRequest) {
  network.Answers = {kPage + "200 rock\r\nHost: elsewhere x 0b012a02\r\n"};
  Ask();
  EXPECT_EQ(network.Requests.at(1),
            "GET /~cddb/cddb.cgi?cmd=cddb+read+rock&hello=an\xF3nimo+casa+VTR+1.0&proto=4 HTTP/1.1"
            "\r\nConnection: Keep-Alive\r\n\r\n");
}

TEST_F(CddbAbfrage, TheSettingsSayWhomToAskAndWhoIsAsking) {
  request = CDDBAnfrageAusEinstellungen(prog);
  EXPECT_EQ(request.Server, prog.Text(24004));
  EXPECT_EQ(request.Benutzer + L"@" + request.Rechner, L"anónimo@" + prog.Text(24006));
  EXPECT_EQ(request.Proxy, L"");
  prog.Proxy_Server = L" proxy.casa ";
  SaveSetting(bundle, L"CDDB_Server", L" 127.0.0.1:8880 ");
  SaveSetting(bundle, L"CDDB_Hello_User", L"ana@casa.example");
  request = CDDBAnfrageAusEinstellungen(prog);
  EXPECT_EQ(request.Proxy, L"proxy.casa");
  EXPECT_EQ(request.Server, L"127.0.0.1:8880");
  EXPECT_EQ(request.Benutzer + L"@" + request.Rechner, L"ana@casa.example");
  SaveSetting(bundle, L"CDDB_Hello_Host", L"otra.example");
  EXPECT_EQ(CDDBAnfrageAusEinstellungen(prog).Rechner, L"otra.example");
}

TEST_F(CdPlayerIni, ADiscIsFiledUnderItsIdentityUpToTheFirstTrackWithoutAName) {
  CDDBInfo info;
  info.Interpret = L"Alguien";
  info.Titel = L"Algo´s";
  info.TrackTitel[1] = L"uno";
  info.TrackTitel[2] = L"dos";
  info.TrackInterpret[2] = L"Ana ";
  info.TrackInterpret[3] = L"Luz ";
  info.TrackTitel[5] = L"cinco";
  AkuteErsetzen(info);
  CDPlayerIniSchreiben(prog, L"D:\\", info);
  disc.Identity.clear();
  CDPlayerIniSchreiben(prog, L"D:\\", info);  // a disc without an identity is not stored
  EXPECT_EQ(Get(platform.machine.files.SystemPath(L"C:\\WINDOWS\\cdplayer.ini")),
            "[A98AC7]\r\nEntryType=1\r\nnumtracks=3\r\nartist=Alguien\r\ntitle=Algo's\r\n0=uno\r\n"
            "1=Ana  - dos\r\n2=Luz  - \r\n");
}

TEST_F(CdPlayerIni, WhatAServerSaysStaysInItsValue) {
  CDDBInfo info;
  info.Interpret = L"x\r\n[evil]\r\nnumtracks=7\r\n";
  info.Titel = Text(L"a\0b", 3) + Text(100000, L'z');
  for (std::size_t i = 1; i <= 100; ++i) info.TrackTitel[i] = L"[evil]\n0=w";
  CDPlayerIniSchreiben(prog, L"D:\\", info);
  const std::string file = Get(home.Path() / ".local/share/vantora/cdplayer.ini");
  EXPECT_LT(file.size(), 10000U);
  EXPECT_TRUE(file.starts_with("[A98AC7]\r\nEntryType=1\r\nnumtracks=100\r\n"));
  EXPECT_TRUE(file.ends_with("\r\n99=[evil] 0=w\r\n"));
  EXPECT_EQ(file.find("\n["), std::string::npos);
}

}  // namespace
}  // namespace vantora::test
