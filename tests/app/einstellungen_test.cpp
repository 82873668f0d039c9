#include "app/einstellungen.h"

#include "tests/support/buehne.h"

namespace vantora {
namespace {

using Optionen = VorDemStart;

TEST_F(Optionen, FlagsAreOnForOneAloneAndNumbersOutOfRangeAreRepaired) {
  b.Setze(L"CDDBactive", L"2");
  b.Setze(L"Show_Start_Assistant", L"1e999");
  b.Setze(L"Undo", L"2");
  b.Setze(L"UndoMB", L"12 MB");
  b.Setze(L"Write_Speed", L"70000");
  b.Setze(L"Auto_Database", L"basura");
  b.Setze(L"Number_Burned_CD", L"1e40");
  b.Setze(L"Proxy_Port", L"123456789012");
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
  EXPECT_EQ(b.Einstellung(L"Undo"), L"1");
  EXPECT_EQ(b.Einstellung(L"CDDBactive"), L"0");
  EXPECT_EQ(b.Einstellung(L"LängeCD"), L"80");
}

TEST_F(Optionen, DirectoriesThatAreGoneFallBackAndAreMade) {
  b.Setze(L"Wave_Export_Dir", L"Q:\\memoria");
  b.Setze(L"Songs_Import_Dir", L"   ");
  std::filesystem::create_directories(b.home.Path() / "mis catálogos vol. 2");
  b.Setze(L"Catalogue_Open_Dir", L"C:\\mis catálogos vol. 2  ");
  b.Setze(L"Picture_Save_Dir", L"C:\\falta vol. 2");
  b.Start();
  EXPECT_EQ(b.prog.Wave_Export_Dir, L"C:\\Vantora\\Wavs\\");
  EXPECT_EQ(b.prog.Standard_Wave_Name.Getrimmt(), b.prog.Wave_Export_Dir);
  EXPECT_EQ(b.prog.Wave_Import_Dir, L"C:\\");
  EXPECT_EQ(b.prog.Songs_Import_Dir, L"C:\\Vantora\\");
  EXPECT_EQ(b.prog.Catalogue_Open_Dir, L"C:\\mis catálogos vol. 2");
  EXPECT_EQ(b.prog.Picture_Save_Dir, L"C:\\Vantora\\Pictures");
  EXPECT_EQ(b.prog.Catalogue_Save_Dir, L"C:\\Vantora\\Catálogo");
  for (const char* ordner : {"Wavs", "Catálogo", "Pictures"}) {
    EXPECT_TRUE(std::filesystem::is_directory(b.home.Path() / "Vantora" / ordner)) << ordner;
  }
}

}  // namespace
}  // namespace vantora
