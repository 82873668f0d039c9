// All outside services of the program. They must live as long as a program uses them.
#pragma once

#include "platform/acd.h"
#include "platform/audiolib.h"
#include "platform/background.h"
#include "platform/clock.h"
#include "platform/display.h"
#include "platform/drives.h"
#include "platform/edits.h"
#include "platform/eqpro.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/inhibitor.h"
#include "platform/mcd.h"
#include "platform/mci.h"
#include "platform/mmtools.h"
#include "platform/mp3.h"
#include "platform/perf_data.h"
#include "platform/profile.h"
#include "platform/registry.h"
#include "platform/resources.h"
#include "platform/settings_store.h"
#include "platform/sockets.h"
#include "platform/system.h"
#include "platform/system_box.h"
#include "platform/ts_cut.h"

namespace vantora {

class FontBook;  // platform/device_text.h
class Images;    // platform/images.h
class Printers;  // platform/printer.h

struct Plattform {
  EventLoop& schleife;
  Display& bildschirm;
  Clock& uhr;
  System& system;
  Dateien& dateien;
  Drives& laufwerke;
  SettingsStore& einstellungen;
  Profile& profile;
  Registry& registry;
  Resources& ressourcen;
  MMTools& mmtools;
  TsCut& tsCut;
  Edits& edits;
  Qm3Play& mp3;
  Mcd& mcd;
  Acd& acd;
  MMControl& cd;
  Mci& mci;
  Sockets& sockets;
  Audiolib& audiolib;
  PerfData& perfData;
  EQPro& eqpro;
  Inhibitor& wachhalter;
  Printers& drucker;
  Images& bilder;
  FontBook& schriften;
};

}  // namespace vantora
