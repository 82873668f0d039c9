#include "app/einstellungen.h"

#include <gtest/gtest.h>

#include "tests/support/buehne.h"

#include <sys/inotify.h>
#include <unistd.h>

namespace vantora {
namespace {

class Optionen : public ::testing::Test {
 protected:
  void Setze(const Text& schluessel, const Text& wert) {
    SaveSetting(b.platform.bundle, schluessel, wert);
  }
  Text Lies(const Text& schluessel) {
    return GetSetting(b.platform.bundle, schluessel, L"(nichts)");
  }
  Buehne b;
};

TEST_F(Optionen, FlagsAreOnForOneAloneAndNumbersOutOfRangeAreRepaired) {
  Setze(L"CDDBactive", L"2");
  Setze(L"Show_Start_Assistant", L"1e999");
  Setze(L"Undo", L"2");
  Setze(L"UndoMB", L"12 MB");
  Setze(L"Write_Speed", L"70000");
  Setze(L"Auto_Database", L"basura");
  Setze(L"Number_Burned_CD", L"1e40");
  Setze(L"Proxy_Port", L"123456789012");
  b.prog.LoadExtrasSet();
  EXPECT_FALSE(b.prog.CDDBactive);
  EXPECT_TRUE(b.prog.Show_Start_Assistant);
  EXPECT_TRUE(b.prog.Undo);
  EXPECT_EQ(b.prog.UndoMB, 12);
  EXPECT_EQ(b.prog.BrennGeschwindigkeit, 1);
  EXPECT_EQ(b.prog.Auto_Database, 0);
  EXPECT_EQ(b.prog.Number_Burned_CD, 0);
  EXPECT_EQ(b.prog.Proxy_Port.Getrimmt(), L"1234567890");
  b.prog.SaveExtrasSet();
  EXPECT_EQ(Lies(L"Undo"), L"1");
  EXPECT_EQ(Lies(L"CDDBactive"), L"0");
  EXPECT_EQ(Lies(L"LängeCD"), L"80");
}

TEST_F(Optionen, DirectoriesThatAreGoneFallBackAndAreMade) {
  Setze(L"Wave_Export_Dir", L"Q:\\memoria");
  Setze(L"Songs_Import_Dir", L"   ");
  std::filesystem::create_directories(b.home.Path() / "mis catálogos");
  Setze(L"Catalogue_Open_Dir", L"C:\\mis catálogos  ");
  b.Start();
  EXPECT_EQ(b.prog.Wave_Export_Dir, L"C:\\Vantora\\Wavs\\");
  EXPECT_EQ(b.prog.Standard_Wave_Name.Getrimmt(), b.prog.Wave_Export_Dir);
  EXPECT_EQ(b.prog.Wave_Import_Dir, L"C:\\");
  EXPECT_EQ(b.prog.Songs_Import_Dir, L"C:\\Vantora\\");
  EXPECT_EQ(b.prog.Catalogue_Open_Dir, L"C:\\mis catálogos");
  EXPECT_EQ(b.prog.Catalogue_Save_Dir, L"C:\\Vantora\\Catálogo");
  for (const char* ordner : {"Wavs", "Catálogo", "Pictures"}) {
    EXPECT_TRUE(std::filesystem::is_directory(b.home.Path() / "Vantora" / ordner)) << ordner;
  }
}

TEST_F(Optionen, AFolderWithAPointInItsPathIsKept) {
  const Text ordner = L"C:\\Mis discos vol. 2\\";
  std::filesystem::create_directories(b.home.Path() / "Mis discos vol. 2");
  for (const wchar_t* schluessel : {L"Wave_Import_Dir", L"Wave_Export_Dir", L"Songs_Import_Dir",
                                    L"Catalogue_Open_Dir", L"Catalogue_Save_Dir"}) {
    Setze(schluessel, ordner);
  }
  Setze(L"Picture_Save_Dir", L"C:\\falta vol. 2");
  b.Start();
  for (const Text& wert : {b.prog.Wave_Import_Dir, b.prog.Wave_Export_Dir, b.prog.Songs_Import_Dir,
                           b.prog.Catalogue_Open_Dir, b.prog.Catalogue_Save_Dir}) {
    EXPECT_EQ(wert, ordner);
  }
  EXPECT_EQ(b.prog.Picture_Save_Dir, L"C:\\Vantora\\Pictures");
}

TEST_F(Optionen, AllOfThemAreWrittenByReplacingTheFileOnce) {
  b.Start();
  const int blick = ::inotify_init1(IN_NONBLOCK);
  // The kernel merges equal consecutive events, so the creation of files is watched too.
  ::inotify_add_watch(blick, (b.home.Path() / ".config/vantora").c_str(), IN_CREATE | IN_MOVED_TO);
  const auto ersetzungen = [&] {
    alignas(inotify_event) char meldungen[4096];
    const ssize_t bytes = ::read(blick, meldungen, sizeof meldungen);
    int anzahl = 0;
    for (ssize_t stelle = 0; stelle < bytes;) {
      const auto* meldung = reinterpret_cast<const inotify_event*>(meldungen + stelle);
      if ((meldung->mask & IN_MOVED_TO) != 0) ++anzahl;
      stelle += static_cast<ssize_t>(sizeof *meldung + meldung->len);
    }
    return anzahl;
  };
  b.prog.SaveExtrasSet();
  EXPECT_EQ(ersetzungen(), 1);
  b.prog.LastDirSave();
  EXPECT_EQ(ersetzungen(), 1);
  ::close(blick);
  EXPECT_EQ(Lies(L"LängeCD"), L"80");
  EXPECT_EQ(Lies(L"Picture_Save_Dir"), L"C:\\Vantora\\Pictures");
}

TEST_F(Optionen, WhatCannotBeWrittenIsReportedOnceAndTheProgramRunsOn) {
  const auto sperren = [&] {  // a file cannot replace a folder
    const std::filesystem::path datei = b.home.Path() / ".config/vantora/settings.conf";
    std::filesystem::remove(datei);
    std::filesystem::create_directory(datei);
  };
  sperren();
  b.Antwortet(kNein);
  b.Start();
  ASSERT_EQ(b.Gesagt().size(), 1U);
  EXPECT_TRUE(b.Gesagt()[0].starts_with(b.prog.Text(30040)));
  EXPECT_TRUE(Enthaelt(b.Gesagt()[0], L"settings.conf: Error de acceso"));
  b.Tu([&] { b.prog.SaveExtrasSet(); });
  EXPECT_EQ(b.user.Left(), 0U);
  EXPECT_TRUE(b.Haupt().Visible());
  EXPECT_EQ(Lies(L"Undo"), L"1");
}

TEST_F(Optionen, TheLastCatalogIsRememberedOnlyWhenItShallComeBack) {
  Setze(L"Last_Catalogue_Name", L"C:\\alt.vtr");
  b.prog.LetzterKatalog = L"C:\\neu.vtr";
  b.prog.LastCatSave();
  EXPECT_EQ(Lies(L"Last_Catalogue_Name"), L"C:\\alt.vtr");
  b.prog.Last_Catalog_Load = 1;
  b.prog.LastCatSave();
  EXPECT_EQ(Lies(L"Last_Catalogue_Name"), L"C:\\neu.vtr");
  b.prog.LetzterKatalog = L"C:\\neu.txt";
  b.prog.LastCatSave();
  EXPECT_EQ(Lies(L"Last_Catalogue_Name"), L"");
}

}  // namespace
}  // namespace vantora
