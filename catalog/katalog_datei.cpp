#include "catalog/katalog_datei.h"

#include "app/werte/weiter.h"

#include <algorithm>
#include <string>

namespace vantora {

namespace {

constexpr std::int32_t kMeisteTracks = 32767;
constexpr std::int64_t kKopf = 4, kKuerzesterEintrag = 822;  // bytes

// Passes all fields of one record to `weg`; reading and writing share this list.
template <typename Weg, typename Eintrag>
void AlleFelder(Weg& weg, Eintrag& e) {
  weg.Zahl(e.Ueberblendet);
  weg.Feld(e.Titel);
  weg.Feld(e.Interpret);
  weg.Feld(e.Laenge);
  weg.Zahl(e.GroesseMB);
  weg.Zahl(e.Pause);
  weg.Feld(e.Datei);
  weg.Zahl(e.DateiBytes);
  weg.Variabel(e.DateiDatum);
  weg.Feld(e.KatalogTitel);
  weg.Feld(e.KatalogInterpret);
  weg.Feld(e.PauseSperre);
}

class Leser {
 public:
  explicit Leser(Datei& datei) : datei_(datei) {}

  template <typename T>
  void Zahl(T& wert) {
    unsigned char bytes[sizeof(T)];
    datei_.Read(bytes, sizeof bytes);
    std::uint32_t bits = 0;
    for (std::size_t i = sizeof bytes; i-- > 0;) bits = (bits << 8U) | bytes[i];
    wert = static_cast<T>(bits);
  }
  template <std::size_t N>
  void Feld(FixedText<N>& feld) {
    unsigned char bytes[N];
    datei_.Read(bytes, N);
    std::transform(bytes, bytes + N, feld.Zeichen().begin(), ZeichenAus1252);
  }
  void Variabel(Text& text) {
    std::uint16_t laenge = 0;
    Zahl(laenge);
    std::string bytes(laenge, '\0');
    datei_.Read(bytes.data(), bytes.size());
    text.resize(laenge);
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char z) { return ZeichenAus1252(static_cast<unsigned char>(z)); });
  }

 private:
  Datei& datei_;
};

class Schreiber {
 public:
  template <typename T>
  void Zahl(T wert) {
    auto bits = static_cast<std::uint32_t>(wert);
    for (std::size_t i = 0; i < sizeof(T); ++i, bits >>= 8U) Byte(bits & 0xFFU);
  }
  template <std::size_t N>
  void Feld(const FixedText<N>& feld) {
    for (const wchar_t zeichen : feld.Zeichen()) Byte(ByteIn1252(zeichen));
  }
  void Variabel(const Text& text) {
    const auto laenge = static_cast<std::uint16_t>(std::min<std::size_t>(text.size(), 0xFFFF));
    Zahl(laenge);
    for (std::size_t i = 0; i < laenge; ++i) Byte(ByteIn1252(text[i]));
  }
  const std::string& Bytes() const { return bytes_; }

 private:
  void Byte(std::uint32_t byte) { bytes_ += static_cast<char>(static_cast<unsigned char>(byte)); }
  std::string bytes_;
};

void AllesLesen(Datei& offen, KatalogFeld& ziel) {
  Leser leser(offen);
  std::int32_t anzahl = 0;
  leser.Zahl(anzahl);
  if (anzahl < 0) throw Laufzeitfehler(kFehlerIndex, L"El subíndice está fuera del intervalo");
  // A count that is higher than the program can number, and than the file has room for, shows that
  // the file is no catalog. Nothing is read from it.
  if (anzahl > kMeisteTracks &&
      kKopf + (std::int64_t{anzahl} + 1) * kKuerzesterEintrag > offen.Length()) {
    throw Laufzeitfehler(kFehlerDateiEnde, L"Fin de archivo inesperado");
  }
  ziel.assign(1, KatalogEintrag{});
  AlleFelder(leser, ziel.front());
  // The field grows with each whole record, so that after an error the records read so far are a
  // usable catalog.
  for (std::int32_t i = 0; i < anzahl; ++i) {
    KatalogEintrag eintrag;
    AlleFelder(leser, eintrag);
    ziel.push_back(std::move(eintrag));
  }
}

}  // namespace

void KatalogLesen(Dateien& dateien, const Text& datei, KatalogFeld& ziel) {
  const auto offen = dateien.Open(datei, Zugriff::Lesen);
  try {
    AllesLesen(*offen, ziel);
  } catch (const Laufzeitfehler& fehler) {
    if (fehler.Nummer != kFehlerDateiEnde && fehler.Nummer != kFehlerIndex) throw;
    const Text name = datei.substr(datei.rfind(L'\\') + 1);
    throw Laufzeitfehler(fehler.Nummer, name + L" no es un catálogo o está incompleto");
  }
}

void KatalogSchreiben(Dateien& dateien, const Text& datei, const KatalogFeld& katalog) {
  Schreiber schreiber;
  schreiber.Zahl(static_cast<std::int32_t>(UBound(katalog)));
  for (const KatalogEintrag& eintrag : katalog) AlleFelder(schreiber, eintrag);
  Text entwurf = datei + L".tmp";
  // A file of that name exists already.
  while (Weiter([&] { dateien.FileLen(entwurf); })) entwurf += L"~";
  try {
    dateien.Open(entwurf, Zugriff::Neu)->Write(schreiber.Bytes().data(), schreiber.Bytes().size());
    dateien.FileCopy(entwurf, datei);
  } catch (const Laufzeitfehler&) {
    Weiter([&] { dateien.Kill(entwurf); });
    throw;
  }
  dateien.Kill(entwurf);
}

}  // namespace vantora
