#pragma once
// Documents between disk and the table dex of the documents' catalogue.

#include <cstdint>
#include <string>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/session/shown_row.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::services {

/// The owner's kind for proposals.
inline constexpr std::int16_t actOfProposals = -8;

/// Whose documents: a proposal by its number, or what else the host keeps documents of.
struct DocumentOwner {
    std::int32_t nIdExp = 0;
    std::int16_t nIdAct = 0;
};

/// A document as its owner's list shows it.
struct ShownDocument {
    std::int32_t id;
    session::ShownRow row;
};

class DocumentStore {
  public:
    /// Errors: the database's, when the connection cannot name its catalogue.
    DocumentStore(session::Session& session, platform::Desk& desk);

    /// What stands before "dex" in every statement: "DOC", the catalogue, ".dbo.".
    const std::string& sPrefijo() const { return sPrefijo_; }

    /// The owner's documents, the newest first: dex_id, dex_fic. Errors: the database's.
    sql::Recordset list(const DocumentOwner& owner);

    /// The document under the cursor of the owner's list. Error 3021 without one.
    ShownDocument shown(const sql::Recordset& list, const DocumentOwner& owner) const;

    /// Stores a file as a new document and takes it away from disk once its content is in the database; false when
    /// the content is not, which has been told. A file of the database itself is refused in words: neither row nor
    /// file is touched. For a proposal that is no longer there nothing is stored, which is told, and the file stays.
    /// Errors: the database's while the row is made; then there is no row.
    bool msAnadirFichero(const std::string& path, const DocumentOwner& owner);

    /// Writes the file's bytes into the row; false when that failed, which has been told.
    bool SaveFileToDB(const std::string& path, std::int32_t id);

    /// Writes the stored bytes to the temporary folder and opens them; a failure is shown. A row that is not there or
    /// has no content does nothing.
    void LoadFileFromDB(std::int32_t id);

    /// Deletes a document. One that is gone is told, one that another user has changed is asked about. Errors: the
    /// database's.
    void remove(const ShownDocument& document);

    /// The temporary folder with a separator behind it; empty when there is none.
    std::string GetTmpPath() const { return desk_.services.temporaryFolder(); }

    /// Where a file of this name is to lie in the temporary folder. Error 76 when there is none.
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
