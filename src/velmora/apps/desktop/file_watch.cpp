#include "velmora/apps/desktop/file_watch.h"

#include <sys/stat.h>
#include <unistd.h>

#include "velmora/adapters/sqlite/file_content.h"

namespace velmora::desktop {

namespace {

using Identity = std::pair<std::uint64_t, std::uint64_t>;

/// None when there is no such file.
std::optional<Identity> identityOf(const std::string& file) {
    struct stat entry {};
    if (::stat(file.c_str(), &entry) != 0) {
        return std::nullopt;
    }
    return Identity{entry.st_dev, entry.st_ino};
}

}  // namespace

FileWatch::FileWatch(const std::string& database)
    : file_(sqlite::realFile(database)), identity_(identityOf(file_).value_or(Identity{})) {}

FileWatch::State FileWatch::look() const {
    if (identity_ == Identity{}) {
        return State::inPlace;
    }
    const std::optional<Identity> now = identityOf(file_);
    if (!now) {
        return State::gone;
    }
    if (*now != identity_) {
        return State::replaced;
    }
    return ::access(file_.c_str(), W_OK) == 0 ? State::inPlace : State::readOnly;
}

std::optional<std::string> FileWatch::news() {
    const State now = look();
    if (now == told_) {
        return std::nullopt;
    }
    told_ = now;
    switch (now) {
        case State::gone:
            return "El fichero de la base de datos ya no está en su sitio:\n" + file_ +
                   "\n\nNada de lo que grabe ahora se guardará. Ponga el fichero en su sitio, o cierre el programa y "
                   "abra la base de datos donde esté.";
        case State::replaced:
            return "Otro fichero ha tomado el sitio de la base de datos abierta:\n" + file_ +
                   "\n\nNada de lo que grabe ahora se guardará. Cierre el programa y ábralo de nuevo.";
        case State::readOnly:
            return "El fichero de la base de datos es ahora de solo lectura:\n" + file_ +
                   "\n\nNo se podrá grabar hasta que vuelva a tener permiso de escritura.";
        case State::inPlace:
            break;
    }
    return "La base de datos está otra vez en su sitio y se puede grabar:\n" + file_;
}

}  // namespace velmora::desktop
