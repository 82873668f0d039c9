// The bundle of services that the program gets, made of the parts of a platform.
#pragma once

#include "platform/plattform.h"

namespace vantora {

// `Parts` has a member for each part under the same name on the desktop and in stories; its
// `machine` has the services that do not depend on the screen.
template <typename Parts>
Plattform BundleOf(Parts& parts) {
  auto& machine = parts.machine;
  return {
      .schleife = parts.loop,
      .bildschirm = parts.display,
      .uhr = parts.clock,
      .system = parts.system,
      .dateien = machine.files,
      .laufwerke = machine.letters,
      .einstellungen = machine.settings,
      .profile = machine.profiles,
      .registry = machine.registry,
      .ressourcen = machine.resources,
      .mmtools = parts.mmtools,
      .tsCut = machine.cutter,
      .edits = machine.edits,
      .mp3 = machine.mp3,
      .mcd = machine.writers,
      .acd = machine.acd,
      .cd = machine.cd,
      .mci = machine.mci,
      .sockets = machine.sockets,
      .audiolib = machine.audiolib,
      .perfData = parts.load,
      .eqpro = parts.eqpro,
      .wachhalter = parts.inhibitor,
      .drucker = parts.shop.printers,
      .bilder = parts.shop.images,
      .schriften = parts.shop.fonts,
  };
}

}  // namespace vantora
