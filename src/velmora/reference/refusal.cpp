#include "velmora/reference/row_writing.h"

#include <string>

#include "velmora/platform/sql/db_error.h"

namespace velmora::reference {

namespace {

// Raises a refusal, which the session reports as a text, as an error.
void require(bool correcto, const std::string& error) {
    if (!correcto) {
        throw sql::DbError(sql::provider::failure, error);
    }
}

}  // namespace

void insertRow(session::Session& session, std::string_view donde) {
    std::string error;
    bool correcto = false;
    session.Donde(donde);
    session.Insertar(error, correcto);
    require(correcto, error);
}

void updateRow(session::Session& session, std::string_view donde) {
    std::string error;
    bool correcto = false;
    session.Donde(donde);
    session.Actualizar(error, correcto);
    require(correcto, error);
}

void refuse(screen::Screen& screen, const std::string& words, const char* title) {
    screen.show({.text = words, .icon = screen::Icon::critical, .title = title});
}

}  // namespace velmora::reference
