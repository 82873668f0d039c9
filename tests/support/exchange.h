// The bundle of services with some of them exchanged for a test's own.
#pragma once

#include "platform/device_text.h"
#include "platform/images.h"
#include "platform/plattform.h"
#include "platform/printer.h"

#include <type_traits>

namespace vantora::test {

// The service of `own` that fulfils the interface of `theirs`, or else `theirs`.
template <typename Service, typename... Own>
Service& Chosen(Service& theirs, Own&... own) {
  Service* chosen = &theirs;
  const auto take = [&chosen](auto& one) {
    if constexpr (std::is_convertible_v<decltype(one), Service&>) chosen = &one;
  };
  (take(own), ...);
  return *chosen;
}

// `p` with each of `own` in the place of the service whose interface it fulfils.
template <typename... Own>
Plattform With(const Plattform& p, Own&... own) {
  return {
      .schleife = Chosen(p.schleife, own...),
      .bildschirm = Chosen(p.bildschirm, own...),
      .uhr = Chosen(p.uhr, own...),
      .system = Chosen(p.system, own...),
      .dateien = Chosen(p.dateien, own...),
      .laufwerke = Chosen(p.laufwerke, own...),
      .einstellungen = Chosen(p.einstellungen, own...),
      .profile = Chosen(p.profile, own...),
      .registry = Chosen(p.registry, own...),
      .ressourcen = Chosen(p.ressourcen, own...),
      .mmtools = Chosen(p.mmtools, own...),
      .tsCut = Chosen(p.tsCut, own...),
      .edits = Chosen(p.edits, own...),
      .mp3 = Chosen(p.mp3, own...),
      .mcd = Chosen(p.mcd, own...),
      .acd = Chosen(p.acd, own...),
      .cd = Chosen(p.cd, own...),
      .mci = Chosen(p.mci, own...),
      .sockets = Chosen(p.sockets, own...),
      .audiolib = Chosen(p.audiolib, own...),
      .perfData = Chosen(p.perfData, own...),
      .eqpro = Chosen(p.eqpro, own...),
      .wachhalter = Chosen(p.wachhalter, own...),
      .drucker = Chosen(p.drucker, own...),
      .bilder = Chosen(p.bilder, own...),
      .schriften = Chosen(p.schriften, own...),
  };
}

}  // namespace vantora::test
