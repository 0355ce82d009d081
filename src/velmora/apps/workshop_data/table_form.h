#pragma once
// The form of any table of the workshop's own data: a list with a search box, the fields of its current row, and files
// in and out. What the table is stands in its description.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "velmora/apps/workshop_data/entry_field.h"
#include "velmora/apps/workshop_data/table_files.h"
#include "velmora/apps/workshop_data/table_list.h"
#include "velmora/apps/workshop_data/table_store.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/screen/close_request.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/checked_write.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"

namespace velmora::workshop_data {

/// Shown modally. A row that was begun or changed must be saved or undone before another one is shown: list and search
/// are disabled until then, so that nothing that was typed is lost. Errors of the constructor: the database's.
class TableForm : public screen::Form, public screen::CloseRequest {
  public:
    /// All must outlive the form.
    TableForm(session::Session& session, platform::Desk& desk, const Table& table, ChooseTarget chooseTarget);

    /// Asks about a row that was typed and not saved. The form stays when the user cancels or the row cannot be saved.
    void requestClose() override;

  private:
    void arrange();
    screen::Layout layoutOfFields() const;
    void wire();
    void Form_KeyDown(screen::KeyDown& key);

    void reload();
    void showCurrent();
    void fill(const RowTexts& texts);
    RowTexts typed() const;
    bool isDirty() const { return typed() != begun_; }
    bool isBusy() const { return adding_ || isDirty(); }
    void fieldChanged();
    void refreshState();
    std::string stateInWords() const;

    void startRow();
    void beginNew();
    void undo();
    void searchReference();

    /// False when nothing was saved because something was wrong, which the user has read.
    bool save();
    bool write(const RowCheck& check);
    session::RowState look(const RowCheck& check, std::string& reason) const;
    bool isTaken(const RowCheck& check) const;
    void tellFault(const CellFault& fault);
    void remove();
    bool removeNow();
    void importRows();
    void exportRows();
    void refuse(const std::string& words) const;
    std::string withKey(const RowTexts& texts) const;

    session::Session& session_;
    platform::Desk& desk_;
    const Table& table_;
    TableStore store_;
    TableFiles files_;
    session::KestraUtil util_;
    References references_;

    screen::TextBox txtBuscar_{*this, "txtBuscar"};
    screen::DataGrid dbgFilas_{*this, "dbgFilas"};
    screen::Frame fraFila_{*this, "fraFila"};
    std::vector<std::unique_ptr<EntryField>> fields_;
    screen::Button cmdNuevo_{*this, "cmdNuevo"};
    screen::Button cmdGrabar_{*this, "cmdGrabar"};
    screen::Button cmdDeshacer_{*this, "cmdDeshacer"};
    screen::Button cmdBorrar_{*this, "cmdBorrar"};
    screen::Button cmdBuscarReferencia_{*this, "cmdBuscarReferencia"};
    screen::Button cmdImportar_{*this, "cmdImportar"};
    screen::Button cmdExportar_{*this, "cmdExportar"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
    screen::Label lblEstado_{*this, "lblEstado"};

    TableList list_{dbgFilas_, table_};
    std::optional<StoredRow> current_;  ///< the row in the fields; none while one is added, or when there is none
    RowTexts begun_;                    ///< what the fields began with
    bool adding_ = false;
};

}  // namespace velmora::workshop_data
