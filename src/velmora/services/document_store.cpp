#include "velmora/services/document_store.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/platform/sql/in_transaction.h"
#include "velmora/services/document_files.h"
#include "velmora/services/shell_execute.h"

namespace velmora::services {

using session::Tipo;

namespace {

/// The insert was refused, so there is no row.
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
    // Differs D-263: a file of the database is refused, because attaching would delete it from disk.
    if (isOfTheDatabase(path)) {
        showError("El fichero es de la propia base de datos y no se puede adjuntar");
        return true;
    }
    const std::int32_t id = addRow(path, owner);
    if (id == noRow) {
        return true;
    }
    if (!SaveFileToDB(path, id)) {
        // Kept K-181: the row stays, without content, so that viewing it does nothing; the file stays on disk.
        showError("Error insertando el documento");
        return false;
    }
    // Kept K-182: the file is deleted from disk, without a message, even when the user picked it: attaching moves a
    // document into the database. Required as it is.
    deleteFile(path);
    return true;
}

/// The key of the new row; noRow when there is none and the user has been informed.
std::int32_t DocumentStore::addRow(const std::string& path, const DocumentOwner& owner) {
    std::int32_t id = noRow;
    bool ownerGone = false;
    // Differs D-182: when the key cannot be read, the transaction is rolled back instead of staying open.
    sql::inTransaction(session_.Connection(), [&] {
        // Differs D-169: nothing is attached to a proposal that another user has deleted: attaching deletes the file
        // from disk, and no list would ever show its content.
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
    const auto addFields = [&](session::FieldList& campos) {
        campos.Add("Dex_Doc", Tipo::expression, "Null");
        campos.Add("Dex_Fic", Tipo::text, nameOfFile(path));
        campos.Add("Dex_FicDes", Tipo::text, extensionOfFile(path));
        campos.Add("Dex_Idexp", Tipo::wholeNumber, owner.nIdExp);
        campos.Add("Dex_IdAct", Tipo::wholeNumber, int{owner.nIdAct});
        campos.Add("Dex_IdUsu", Tipo::wholeNumber, session_.IdUsuario());
        campos.Add("Dex_Estado", Tipo::wholeNumber, 1);
        campos.Add("Dex_Importe", Tipo::wholeNumber, 0);
        campos.Add("Dex_Fecha", Tipo::expression, "getdate()");
    };
    return session::tryInsertRow(session_, sPrefijo_ + "Dex", addFields).stored;
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
    // Differs D-261: without a temporary folder, the name alone would denote a file in the current folder.
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
    // Differs D-170: the document is read again in the transaction of its delete: another user may have deleted or
    // renamed it while the list or the question was open.
    const auto written = session::writeChecked(
        session_.Connection(), desk_.screen, desk_.clock,
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
    // Chosen C-185: every failure concerning a document is shown with the critical icon, like other refusals.
    desk_.screen.show({.text = text, .icon = screen::Icon::critical});
}

}  // namespace velmora::services
