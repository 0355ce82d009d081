#include "velmora/services/document_store.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/sql/in_transaction.h"
#include "velmora/services/document_files.h"
#include "velmora/services/shell_execute.h"

namespace velmora::services {

using session::Tipo;

namespace {

/// No row was made: the insert was refused.
constexpr std::int32_t noRow = 0;

constexpr long pathNotFound = 76;

std::string text(std::int64_t number) {
    return runtime::CStr(number);
}

}  // namespace

DocumentStore::DocumentStore(session::Session& session, platform::Desk& desk)
    : session_(session), desk_(desk), sPrefijo_("DOC" + session.Connection().currentCatalog() + ".dbo.") {}

sql::Recordset DocumentStore::list(const DocumentOwner& owner) {
    return session_.Connection().execute("Select dex_id,dex_fic from " + sPrefijo_ +
                                         "dex where dex_idExp =" + text(owner.nIdExp) +
                                         " and dex_idAct=" + text(owner.nIdAct) + " order by dex_id desc");
}

bool DocumentStore::isOfTheDatabase(const std::string& path) const {
    return std::ranges::any_of(session_.Connection().files(),
                               [&](const std::string& file) { return isSameFile(path, file); });
}

bool DocumentStore::msAnadirFichero(const std::string& path, const DocumentOwner& owner) {
    // Differs D-263: attaching deletes the file from disk, and the database with it.
    if (isOfTheDatabase(path)) {
        showError("El fichero es de la propia base de datos y no se puede adjuntar");
        return true;
    }
    const std::int32_t id = addRow(path, owner);
    if (id == noRow) {
        return true;
    }
    if (!SaveFileToDB(path, id)) {
        // Kept K-181: the row stays, without content, and viewing it does nothing; the file stays where it was.
        showError("Error insertando el documento");
        return false;
    }
    // Kept K-182: a file picked from disk is gone too, and nothing says so: attaching moves a document into the
    // database, where alone people look for it afterwards.
    deleteFile(path);
    return true;
}

/// The key of the new row; noRow when there is none, which has been told.
std::int32_t DocumentStore::addRow(const std::string& path, const DocumentOwner& owner) {
    session_.Tabla(sPrefijo_ + "Dex");
    session_.Modo(0);
    std::int32_t id = noRow;
    bool ownerGone = false;
    // Differs D-182: when the key cannot be read the transaction is rolled back, where it would have stayed open.
    sql::inTransaction(session_.Connection(), [&] {
        // Differs D-169: a proposal that another user has deleted gets no document: attaching deletes the file from
        // disk, and no list would ever show its content again.
        ownerGone = isGone(owner);
        if (ownerGone || !insertRow(path, owner)) {
            return false;
        }
        const sql::Recordset key =
            session_.Connection().execute("Select isnull(max(dex_id),1) from " + sPrefijo_ + "dex");
        id = key[std::size_t{0}].toLong();
        return true;
    });
    if (ownerGone) {
        showError("La propuesta nº " + text(owner.nIdExp) +
                  " ya no existe: otro usuario la ha eliminado.\r\nNo se ha adjuntado nada.");
    } else if (id == noRow) {
        showError("Error añadiendo fichero");
    }
    return id;
}

bool DocumentStore::isGone(const DocumentOwner& owner) {
    return owner.nIdAct == actOfProposals &&
           session_.Connection().execute("Select DPI_Id from DPI where DPI_Id = " + text(owner.nIdExp)).eof();
}

bool DocumentStore::insertRow(const std::string& path, const DocumentOwner& owner) {
    session::FieldList& campos = session_.Campos();
    campos.Add("Dex_Doc", Tipo::expression, "Null");
    campos.Add("Dex_Fic", Tipo::text, nameOfFile(path));
    campos.Add("Dex_FicDes", Tipo::text, extensionOfFile(path));
    campos.Add("Dex_Idexp", Tipo::wholeNumber, owner.nIdExp);
    campos.Add("Dex_IdAct", Tipo::wholeNumber, int{owner.nIdAct});
    campos.Add("Dex_IdUsu", Tipo::wholeNumber, session_.IdUsuario());
    campos.Add("Dex_Estado", Tipo::wholeNumber, 1);
    campos.Add("Dex_Importe", Tipo::wholeNumber, 0);
    campos.Add("Dex_Fecha", Tipo::expression, "getdate()");
    std::string error;
    bool correcto = false;
    session_.Insertar(error, correcto);
    return correcto;
}

bool DocumentStore::SaveFileToDB(const std::string& path, std::int32_t id) {
    try {
        sql::Recordset row =
            session_.Connection().execute("select * from " + sPrefijo_ + "Dex where Dex_Id= " + text(id));
        row.updateBinary("Dex_Doc", readFile(path));
        return true;
    } catch (const runtime::RuntimeError& error) {
        showError("Error : \r\n" + error.description());
        return false;
    }
}

void DocumentStore::LoadFileFromDB(std::int32_t id) {
    try {
        open(id);
    } catch (const runtime::RuntimeError& error) {
        showError(error.description());
    }
}

void DocumentStore::open(std::int32_t id) {
    const sql::Recordset row =
        session_.Connection().execute("select Dex_Doc,Dex_Fic from " + sPrefijo_ + "Dex where Dex_Id= " + text(id));
    if (row.eof() || row["Dex_Doc"].isNull()) {
        return;
    }
    const std::string path = temporaryPath(safeFileName(row["Dex_Fic"].toText()));
    const auto* content = std::get_if<sql::Bytes>(&row["Dex_Doc"].raw());
    if (content == nullptr) {
        runtime::raise(runtime::typeMismatch);
    }
    writeFile(path, *content);
    ShellEx(desk_.services, path);
}

std::string DocumentStore::temporaryPath(const std::string& name) const {
    // Differs D-261: without a temporary folder the name alone would be a file of the current one.
    const std::string folder = GetTmpPath();
    if (folder.empty()) {
        throw runtime::RuntimeError(pathNotFound, "No hay carpeta temporal en la que escribir " + name);
    }
    return folder + name;
}

ShownDocument DocumentStore::shown(const sql::Recordset& list, const DocumentOwner& owner) const {
    const std::int32_t id = list[std::size_t{0}].toLong();
    return {.id = id,
            .row = {list, "Select dex_id,dex_fic from " + sPrefijo_ + "dex where dex_idExp =" + text(owner.nIdExp) +
                              " and dex_idAct=" + text(owner.nIdAct) + " and dex_id = " + text(id)}};
}

void DocumentStore::remove(const ShownDocument& document) {
    // Differs D-170: the document is looked at again in the transaction of its delete: another user may have deleted
    // it, or given it another name, while the list or the question stood.
    const auto written = session::writeChecked(
        session_.Connection(), desk_.screen,
        {.look = [&] { return document.row.state(session_.Connection()); },
         .write =
             [&] {
                 session_.Connection().execute("delete from " + sPrefijo_ + "dex where dex_id = " + text(document.id));
                 return true;
             },
         .question = "Otro usuario ha cambiado este documento desde que se mostró.\r\n"
                     "¿Desea eliminarlo de todos modos?"});
    if (written == session::Written::closed) {
        showError("Este documento ya no existe: otro usuario lo ha eliminado.");
    }
}

void DocumentStore::showError(const std::string& text) {
    // Chosen C-185: every failure of a document bears the critical icon, as the program's refusals do.
    desk_.screen.show({.text = text, .icon = screen::Icon::critical});
}

}  // namespace velmora::services
