#include "backends/linux/system_error.h"

#include <cerrno>
#include <system_error>

namespace vantora {

Laufzeitfehler DateiFehler(int nummer) {
  switch (nummer) {
    case kFehlerUngueltigerAufruf:
      return {nummer, L"La operación solicitada no es válida"};
    case kFehlerDateiNummer:
      return {nummer, L"El archivo no está abierto"};
    case kFehlerDateiFehlt:
      return {nummer, L"No se encuentra el archivo"};
    case kFehlerDateiExistiert:
      return {nummer, L"El archivo ya existe"};
    case kFehlerPlattenVoll:
      return {nummer, L"El disco está lleno"};
    case kFehlerDateiEnde:
      return {nummer, L"Se ha leído más allá del final del archivo"};
    case kFehlerZugriff:
      return {nummer, L"Permiso denegado"};
    case kFehlerPfadZugriff:
      return {nummer, L"Error de acceso a la ruta o al archivo"};
    case kFehlerPfadFehlt:
      return {nummer, L"No se encuentra la ruta de acceso"};
    default:
      return {kFehlerEinAusgabe, L"Error de entrada o salida en el archivo"};
  }
}

Laufzeitfehler FehlerAusErrno(int error, const std::filesystem::path& path) {
  switch (error) {
    case ENOENT: {
      std::error_code ignored;
      const bool folderIsThere = std::filesystem::is_directory(path.parent_path(), ignored);
      return DateiFehler(folderIsThere ? kFehlerDateiFehlt : kFehlerPfadFehlt);
    }
    case ENOTDIR:
      return DateiFehler(kFehlerPfadFehlt);
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY:
    case EBUSY:
      return DateiFehler(kFehlerZugriff);
    case EISDIR:
      return DateiFehler(kFehlerPfadZugriff);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return DateiFehler(kFehlerPlattenVoll);
    case EEXIST:
      return DateiFehler(kFehlerDateiExistiert);
    default:
      return DateiFehler(kFehlerEinAusgabe);
  }
}

void RaiseErrno(int error, const std::filesystem::path& path) {
  throw FehlerAusErrno(error, path);
}

}  // namespace vantora
