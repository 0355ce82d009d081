#include "velmora/platform/system/failure_words.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace velmora::system {

namespace {

struct Reason {
    int code;
    const char* words;
};

constexpr std::array reasons{
    Reason{ENOENT, "La carpeta no existe."},
    Reason{ENOTDIR, "La carpeta no existe."},
    Reason{EACCES, "No hay permiso para escribir en la carpeta."},
    Reason{EPERM, "No hay permiso para escribir en la carpeta."},
    Reason{EROFS, "El disco es de solo lectura."},
    Reason{ENOSPC, "No queda sitio en el disco."},
#ifdef EDQUOT
    Reason{EDQUOT, "No queda sitio en el disco."},
#endif
    Reason{EFBIG, "El fichero es demasiado grande para el disco."},
    Reason{EISDIR, "Hay una carpeta con ese nombre."},
    Reason{EEXIST, "Hay otro fichero con ese nombre."},
    Reason{ENOTEMPTY, "Hay una carpeta con ese nombre."},
    Reason{ENAMETOOLONG, "El nombre es demasiado largo."},
    Reason{EIO, "El disco da errores."},
    Reason{ENODEV, "El disco ya no está."},
    Reason{ENXIO, "El disco ya no está."},
    Reason{EBUSY, "Otro programa lo está usando."},
    Reason{EMFILE, "Hay demasiados ficheros abiertos."},
    Reason{ENFILE, "Hay demasiados ficheros abiertos."},
    Reason{ENOMEM, "No queda memoria."},
    Reason{EXDEV, "Está en otro disco."},
    Reason{ELOOP, "El nombre es un enlace que da vueltas."},
    Reason{EINVAL, "El disco no admite ese nombre."},
};

}  // namespace

std::string failureWords(const std::error_code& failure) {
    const auto* known = std::ranges::find(reasons, failure.default_error_condition().value(), &Reason::code);
    return known == reasons.end() ? "Error " + std::to_string(failure.value()) + " del sistema." : known->words;
}

}  // namespace velmora::system
