#include "tests/cdinput/cddb_stage.h"

namespace vantora::test {
namespace {

using Requests = std::vector<std::string>;

constexpr int kUnset = 1;  // initial value of `Ergebnis`, until all steps have succeeded
const Outcome kAllWell{11, 0, 0}, kNotFound{202, kUnset, 0};

class CddbAbfrage : public testing::Test, protected CddbStage {};
using CdPlayerIni = CddbAbfrage;

TEST_F(CddbAbfrage, ADirectRequestIsThisToTheByte) {
  EXPECT_EQ(AskFor(lines), kAllWell);
  const std::string rest =
      "&hello=an\xF3nimo+casa+VTR+1.0&proto=4 HTTP/1.1\r\nConnection: Keep-Alive\r\n\r\n";
  EXPECT_EQ(server.Requests(),
            (Requests{"GET /~cddb/cddb.cgi?cmd=cddb+query+0b012a02+2+150+13500+300" + rest,
                      "GET /~cddb/cddb.cgi?cmd=cddb+read+rock+0b012a02" + rest}));
}

TEST_F(CddbAbfrage, AProxyIsToldTheServerAndPassesTheAnswerOn) {
  CddbServer proxy;
  proxy.PassesOnTo(server);
  request.Proxy = L"127.0.0.1";
  request.ProxyPort = std::to_wstring(proxy.Port());
  EXPECT_EQ(AskFor(lines), kAllWell);
  EXPECT_EQ(client.CDDBGetInfo().Titel, L"Algo");
  const std::string asked = server.Address();
  const std::string rest = "&hello=an\xF3nimo+casa+VTR+1.0&proto=4 HTTP/1.1\r\nHost: " + asked +
                           "\r\nProxy-Connection: Keep-Alive\r\n\r\n";
  const std::string start = "GET http://" + asked + "/~cddb/cddb.cgi?cmd=cddb+";
  EXPECT_EQ(proxy.Requests(), (Requests{start + "query+0b012a02+2+150+13500+300" + rest,
                                        start + "read+rock+0b012a02" + rest}));
  EXPECT_TRUE(server.Requests().empty());
}

TEST_F(CddbAbfrage, TheStatusesComeInOrderAndEventsAreProcessedAfterEvery20Bytes) {
  EXPECT_EQ(AskFor(lines), kAllWell);
  EXPECT_EQ(sockets.Statuses, (std::vector<int>{0, 1, 2, 5, 6, 7}));
  EXPECT_EQ(sockets.LongestRead, 20);
  EXPECT_EQ(sockets.ReadsWithoutEvents, 0);
  EXPECT_EQ(sockets.Opened, 2);
  EXPECT_EQ(sockets.Closed, 2);
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
  server.Knows("data", kId, "DTITLE=x / y\r\nTTITLE0=z\r\n");
  EXPECT_EQ(Ask(), kAllWell);
  EXPECT_EQ(client.Kategorie(), L"data");
  EXPECT_EQ(client.CDDBGetInfo().TrackTitel[1], L"z");
  EXPECT_EQ(client.CDDBGetInfo().TrackTitel[100], L"");
  EXPECT_EQ(client.CDDBGetInfo().ExtD, L"");
}

TEST_F(CddbAbfrage, ADiscThatTheServerDoesNotKnowExactlyIsNotReadAtAll) {
  EXPECT_EQ(Ask(), kNotFound);
  server.KnowsOnlySimilar(kId);
  EXPECT_EQ(Ask(), (Outcome{201, kUnset, 0}));
  EXPECT_EQ(server.Requests().size(), 2U);
  EXPECT_EQ(sockets.Closed, sockets.Opened);
}

TEST_F(CddbAbfrage, WhoCannotBeReachedIsToldFromWhoIsSilent) {
  const auto through = [&](const Text& proxy, const Text& port) {
    request.Proxy = proxy;
    request.ProxyPort = port;
    return Ask();
  };
  const Outcome noProxy{99, kUnset, 0}, noServer{100, kUnset, 0};
  for (const wchar_t* port : {L"1", L"", L"puerto", L"70000", L"200000", L"-40000", L"1e400"}) {
    EXPECT_EQ(through(L"127.0.0.1", port), noProxy) << Ucase(port).size();
  }
  EXPECT_EQ(through(L"no-such-machine.invalid", L"80"), noProxy);
  request.Proxy.clear();
  for (const wchar_t* address : {L"127.0.0.1:1", L"127.0.0.1:99999999999", L"", L":", L" : ",
                                 L"no-such-machine.invalid", L"256.256.256.256", L"a b:80"}) {
    request.Server = address;
    EXPECT_EQ(Ask(), noServer) << Text(address).size();
  }
  EXPECT_EQ(sockets.Closed, sockets.Opened);
  EXPECT_TRUE(server.Requests().empty());
}

TEST_F(CddbAbfrage, APortAbove32767StaysTheSame16Bits) {
  AnsweringSockets network;
  CddbStage s(&network);
  s.request.Proxy = L"127.0.0.1";
  s.request.ProxyPort = L"40000";
  s.Ask();
  EXPECT_EQ(s.sockets.Ports, std::set<std::uint16_t>{40000});
}

TEST_F(CddbAbfrage, ACancelIsSeenWhereverEventsAreProcessed) {
  const std::string head = "HTTP/1.1 200 OK\r\n\r\n";
  AnsweringSockets network;
  const auto ask = [&](int cancelAfterMs, std::int64_t& tookMs) {
    CddbStage s(&network);
    network.Answers = {head + "200 rock 0b012a02 x\r\n", head + "210 rock x\r\n" + s.lines};
    s.platform.loop.PostAfter(cancelAfterMs, [&] { s.status = 77; });
    const std::int64_t start = s.platform.clock.Ticks();
    const Outcome outcome = s.Ask();
    tookMs = s.platform.clock.Ticks() - start;
    EXPECT_EQ(s.sockets.Closed, s.sockets.Opened);
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

TEST_F(CddbAbfrage, AServerThatSaysNothingForTooLongHasNotFoundTheDisc) {
  server.Faults.Silent = true;
  EXPECT_EQ(Ask(), kNotFound);
  server.Knows("rock", kId, lines);
  server.Faults.FromRequest = 2;
  EXPECT_EQ(Ask().Status, 202);
}

// Each row: a fault, the answer to which it happens, and the expected outcome.
TEST_F(CddbAbfrage, ABadServerIsAnsweredWithAStatusOrARunTimeErrorAndNothingWorse) {
  struct Case {
    const char* Name;
    int FromRequest;
    ServerFaults Faults;
    Outcome Expected;
  };
  const std::string page = "HTTP/1.1 200 OK\r\n\r\n";
  const auto instead = [&](const std::string& text) {
    return ServerFaults{.Instead = page + text};
  };
  const ServerFaults noHeader{.Instead = std::string("\0\xFF\r\n\x80", 5)};
  std::string titles = "210 rock x\r\nDTITLE=a / b\r\n";
  for (int i = 0; i < 130; ++i) titles += "TTITLE" + std::to_string(i) + "=t\r\n";
  const std::vector<Case> cases{
      {"closes at once", 0, {.CloseAt = 0, .Instead = {}}, {202, 1, 0}},
      {"closes inside the header", 0, {.CloseAt = 30, .Instead = {}}, {202, 1, 0}},
      {"no header", 0, noHeader, {202, 1, 0}},
      {"10 MB without an end", 0, instead("200 " + std::string(10 << 20, 'x')), {202, 1, 0}},
      {"number beyond all", 0, instead("1e999 rock 0b012a02 x"), {202, 1, 0}},
      {"a code and no more", 0, instead("200"), {11, 0, 0}},
      {"no blank in 300 characters", 0, instead("200 " + std::string(300, 'r')), {200, 1, 6}},
      {"no header, second", 1, noHeader, {202, 1, 0}},
      {"nothing behind the header", 1, instead(""), {11, 0, 0}},
      {"130 titles", 1, instead(titles), {7, 1, 9}},
      {"track 101", 1, instead("210 r x\r\nTTITLE100=x\r\n"), {7, 1, 9}},
      {"track 0", 1, instead("210 r x\r\nTTITLE-1=x\r\n"), {7, 1, 9}},
      {"beyond all numbers", 1, instead("210 r x\r\nTTITLE1e999=x\r\n"), {7, 1, 6}},
      {"title without performer", 1, instead("210 r x\r\nDTITLE=Algo\r\n"), {7, 1, 5}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Name);
    CddbStage s;
    s.server.Faults = c.Faults;
    s.server.Faults.FromRequest = c.FromRequest;
    const Outcome outcome = s.AskFor(s.lines);
    EXPECT_EQ(outcome.Status, c.Expected.Status);
    EXPECT_EQ(outcome.Ergebnis, c.Expected.Ergebnis);
    EXPECT_EQ(outcome.Error, c.Expected.Error);
    EXPECT_EQ(s.sockets.Closed, s.sockets.Opened);
    EXPECT_LE(s.sockets.Reads, 2 * 1024 * 1024 / 20);
    // The same client works again when the server does.
    s.server.Faults = {};
    EXPECT_EQ(s.Ask(), kAllWell);
  }
}

TEST_F(CddbAbfrage, ACategoryCannotAddALineToTheNextRequest) {
  server.Faults.Instead = "HTTP/1.1 200 OK\r\n\r\n200 rock\r\nHost: elsewhere x 0b012a02\r\n";
  Ask();
  ASSERT_EQ(server.Requests().size(), 2U);
  EXPECT_EQ(server.Requests()[1],
            "GET /~cddb/cddb.cgi?cmd=cddb+read+rock&hello=an\xF3nimo+casa+VTR+1.0&proto=4 HTTP/1.1"
            "\r\nConnection: Keep-Alive\r\n\r\n");
}

TEST_F(CddbAbfrage, TheSettingsSayWhomToAskAndWhoIsAsking) {
  const auto set = [&](const wchar_t* key, const wchar_t* value) {
    SaveSetting(bundle, key, value);
  };
  request = CDDBAnfrageAusEinstellungen(prog);
  EXPECT_EQ(request.Server, prog.Text(24004));
  EXPECT_EQ(request.Benutzer + L"@" + request.Rechner, L"anónimo@" + prog.Text(24006));
  EXPECT_EQ(request.Proxy, L"");
  prog.Proxy_Server = L" proxy.casa ";
  set(L"CDDB_Server", L" 127.0.0.1:8880 ");
  set(L"CDDB_Hello_User", L"ana@casa.example");
  request = CDDBAnfrageAusEinstellungen(prog);
  EXPECT_EQ(request.Proxy, L"proxy.casa");
  EXPECT_EQ(request.Server, L"127.0.0.1:8880");
  EXPECT_EQ(request.Benutzer + L"@" + request.Rechner, L"ana@casa.example");
  set(L"CDDB_Hello_Host", L"otra.example");
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
  EXPECT_EQ(bundle.profile.GetPrivateProfileSectionNames(L"cdplayer.ini", 5000),
            std::vector<Text>{L"A98AC7"});
  const auto file = platform.machine.files.SystemPath(L"C:\\WINDOWS\\cdplayer.ini");
  EXPECT_LT(std::filesystem::file_size(file), 10000U);
  EXPECT_EQ(
      bundle.profile.GetPrivateProfileString(L"A98AC7", L"numtracks", L"", 10, L"cdplayer.ini"),
      L"100");
  EXPECT_EQ(bundle.profile.GetPrivateProfileString(L"A98AC7", L"99", L"", 100, L"cdplayer.ini"),
            L"[evil] 0=w");
}

}  // namespace
}  // namespace vantora::test
