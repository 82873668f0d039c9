// The options of the program. They are read once at start-up and saved whenever one changes.
#pragma once

#include "app/werte/fest_text.h"

#include <cstdint>

namespace vantora {

struct Einstellungen {
  // Options; LoadExtrasSet reads them, SaveExtrasSet writes all of them.
  bool Show3DAnalysis = false;
  bool BackgroundPic = true;
  bool Show_Start_Assistant = true;
  bool CDDBactive = false;
  bool Undo = true;
  std::int16_t UndoMB = 70;
  std::int16_t BrennGeschwindigkeit = 1;  // Write_Speed, multiple of single speed
  std::int16_t Read_Speed = 1;
  FixedText<100> Standard_Wave_Name;
  FixedText<100> Standard_Catalog_Name;
  FixedText<100> Temporary_Directory;
  FixedText<128> Proxy_Server;
  FixedText<10> Proxy_Port;
  std::int16_t Auto_Database = 1;
  std::int16_t Auto_Save_Log = 1;
  FixedText<100> Last_Catalogue_Name;
  std::int16_t Last_Catalog_Load = 0;
  std::int16_t Ask_Track_Info = 0;
  std::int32_t Number_Burned_CD = 0;
  std::int16_t Catalog_Check = 0;
  std::int32_t LängeCD = 80;  // minutes

  // Directories; LoadLastDir reads and repairs them, LastDirSave writes them.
  Text Wave_Import_Dir;
  Text Wave_Export_Dir;
  Text Songs_Import_Dir;
  Text Catalogue_Open_Dir;
  Text Catalogue_Save_Dir;
  Text Picture_Save_Dir;
};

}  // namespace vantora
