#pragma once
// The documents attached to a proposal: added from disk or scanned, opened, deleted.

#include <cstdint>
#include <string>

#include "velmora/platform/desk.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/session.h"
#include "velmora/services/document_store.h"

namespace velmora::services {

/// The caller sets nIdExp and nIdAct, calls msCargarDocumentos and shows the form modally.
class frmDoc : public screen::Form {
  public:
    /// Errors: the database's, when the connection cannot name its catalogue.
    frmDoc(session::Session& session, platform::Desk& desk);

    std::int32_t nIdExp = 0;  ///< owner: the DPI_Id
    std::int16_t nIdAct = 0;  ///< the owner's kind

    /// Refreshes the list of documents. Errors: the database's.
    void msCargarDocumentos();

    /// Stores a file as a new document; afterwards the form's tag is "E" when its content could not be stored. Errors:
    /// the database's while the row is inserted.
    void msAnadirFichero(const std::string& path);

    screen::Toolbar Toolbar1{*this, "Toolbar1"};
    screen::DataGrid dbgPlanos{*this, "dbgPlanos"};

  private:
    void arrange();
    void Toolbar1_ButtonClick(int index);
    void Toolbar1_ButtonMenuClick(const std::string& key);
    void viewDocument();
    void deleteDocument();
    void addFromDisk();
    void scan();
    bool hasDocuments() const { return rsPlanos_.isOpen() && rsPlanos_.hasRows(); }

    platform::Desk& desk_;
    DocumentStore store_;
    sql::Recordset rsPlanos_;
};

}  // namespace velmora::services
