#pragma once
// Transfers documents between disk and the table dex of the documents' catalogue.

#include <cstdint>
#include <string>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/session/shown_row.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::services {

/// The kind of owner for proposals.
inline constexpr std::int16_t actOfProposals = -8;

/// Owner of documents: a proposal by its number, or another owner for which the host keeps documents.
struct DocumentOwner {
    std::int32_t nIdExp = 0;
    std::int16_t nIdAct = 0;
};

/// A document as shown in its owner's list.
struct ShownDocument {
    std::int32_t id;
    session::ShownRow row;
};

class DocumentStore {
  public:
    /// Errors: the database's, when the connection cannot give its catalogue's name.
    DocumentStore(session::Session& session, platform::Desk& desk);

    /// The qualifier of "dex" in every statement: "DOC", the catalogue, ".dbo.".
    const std::string& sPrefijo() const { return sPrefijo_; }

    /// The owner's documents, newest first: dex_id, dex_fic. Errors: the database's.
    sql::Recordset list(const DocumentOwner& owner);

    /// The document on the current row of the owner's list. Error 3021 without one.
    ShownDocument shown(const sql::Recordset& list, const DocumentOwner& owner) const;

    /// Stores a file as a new document and deletes it from disk once its content is in the database; false when the
    /// content was not stored and the user has been informed. A file of the database itself is refused with a message;
    /// neither row nor file is touched. For a proposal that no longer exists nothing is stored, a message is shown and
    /// the file stays. Errors: the database's while the row is inserted; there is no row then.
    bool msAnadirFichero(const std::string& path, const DocumentOwner& owner);

    /// Writes the file's bytes into the row; false when that failed and the user has been informed.
    bool SaveFileToDB(const std::string& path, std::int32_t id);

    /// Writes the stored bytes to the temporary folder and opens them; a failure is shown. Does nothing for a row that
    /// does not exist or has no content.
    void LoadFileFromDB(std::int32_t id);

    /// Deletes a document. When it no longer exists, a message is shown; when another user has changed it, the user is
    /// asked. Errors: the database's.
    void remove(const ShownDocument& document);

    /// The temporary folder with a trailing separator; empty when there is none.
    std::string GetTmpPath() const { return desk_.services.temporaryFolder(); }

    /// The path of a file with this name in the temporary folder. Error 76 when there is no such folder.
    std::string temporaryPath(const std::string& name) const;

  private:
    std::int32_t addRow(const std::string& path, const DocumentOwner& owner);
    bool isOfTheDatabase(const std::string& path) const;
    bool insertRow(const std::string& path, const DocumentOwner& owner);
    bool isGone(const DocumentOwner& owner);
    void open(std::int32_t id);
    void showError(const std::string& text);

    session::Session& session_;
    platform::Desk& desk_;
    std::string sPrefijo_;
};

}  // namespace velmora::services
