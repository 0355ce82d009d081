#include "velmora/apps/desktop/about_form.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/system/file_path.h"
#include "velmora/platform/version.h"

namespace velmora::desktop {

namespace {

namespace fs = std::filesystem;

struct Library {
    const char* name;
    const char* licence;
};

/// Those that this program is linked with, as THIRD-PARTY.md has them.
constexpr std::array libraries{
    Library{"Qt 6", "LGPL-3"},
    Library{"SQLite", "dominio público"},
    Library{"ICU", "Unicode"},
    Library{"unixODBC", "LGPL-2.1 o posterior"},
    Library{"libxlsxwriter", "BSD de 2 cláusulas; partes con zlib y MPL-2.0"},
    Library{"CLI11", "BSD de 3 cláusulas"},
    Library{"SANE, solo en velmora-scan", "GPL-2 o posterior, con excepción para quien la enlaza"},
};

constexpr const char* newLine = "\r\n";

std::string sizeOf(const fs::path& file) {
    constexpr double megabyte = 1024.0 * 1024.0;
    std::error_code failure;
    const auto bytes = fs::file_size(file, failure);
    return failure ? "tamaño desconocido" : runtime::Format(static_cast<double>(bytes) / megabyte, "#,##0.0") + " MB";
}

/// What identifies the database for the user, one fact a line.
std::string databaseLines(const DatabasePlace& place) {
    if (!place.server.empty()) {
        return "Servidor: " + withoutPassword(place.server) + newLine;
    }
    if (place.isInMemory()) {
        return std::string("Base de datos en memoria") + newLine;
    }
    const fs::path file = fs::absolute(system::filePath(place.file));
    const fs::path documents = system::filePath(sqlite::documentsFileOf(system::fileText(file)));
    return "Base de datos: " + system::fileText(file) + newLine + "Tamaño: " + sizeOf(file) + ", y " +
           sizeOf(documents) + " de documentos" + newLine;
}

std::string proposalsLine(sql::Connection& connection) {
    try {
        const sql::Recordset found = connection.execute("SELECT count(*) as Cuantas FROM DPI");
        return "Propuestas: " + runtime::CStr(std::int64_t{found[0].toLong()}) + newLine;
    } catch (const sql::DbError& e) {
        return "Propuestas: " + e.description() + newLine;
    }
}

}  // namespace

std::string aboutText(sql::Connection& connection, const DatabasePlace& place) {
    std::string text = "VELMORA " + platform::version() + newLine +
                       "Propuestas de piñones, discos, poleas, engranajes y "
                       "cremalleras especiales" +
                       newLine + newLine;
    text += databaseLines(place) + proposalsLine(connection) + newLine + "Bibliotecas y sus licencias" + newLine;
    for (const Library& library : libraries) {
        text += std::string(library.name) + ": " + library.licence + newLine;
    }
    return text;
}

AboutForm::AboutForm(const std::string& text) : Form("frmAcercaDe") {
    namespace lay = screen::layout;
    setCaption("Acerca de VELMORA");
    txtTexto_.setMultiLine(true);
    txtTexto_.setLocked(true);
    txtTexto_.setText(text);
    txtTexto_.setAccessibleName("Acerca de VELMORA");
    cmdSalir_.setCaption("&Salir (ESC)");
    cmdSalir_.onClick = [this] { unload(); };
    setLayout(
        lay::column(lay::plain(txtTexto_, 80).tall(17).stretched(), lay::row(lay::space(), lay::plain(cmdSalir_))));
    setTabOrder({&cmdSalir_, &txtTexto_});
    onKeyDown = [this](screen::KeyDown& key) {
        if (key.key == screen::Key::escape) {
            unload();
        }
    };
}

}  // namespace velmora::desktop
