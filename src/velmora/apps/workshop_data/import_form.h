#pragma once
// The preview of a file that is to be imported: what it would do, row by row, and why not.

#include <string>

#include "velmora/apps/workshop_data/import_plan.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"

namespace velmora::workshop_data {

class ImportForm : public screen::Form {
  public:
    /// `fileName` without its folder. Everything must outlive the form.
    ImportForm(const Table& table, const ImportPlan& plan, const std::string& fileName);

    /// The user wants the rows to be written.
    bool isWanted() const { return wanted_; }

  private:
    void arrange();
    void wire();
    void accept();

    const ImportPlan& plan_;
    bool wanted_ = false;
    screen::Label lblResumen_{*this, "lblResumen"};
    screen::Label lblAviso_{*this, "lblAviso"};
    screen::DataGrid dbgFilas_{*this, "dbgFilas"};
    screen::Button cmdImportar_{*this, "cmdImportar"};
    screen::Button cmdCancelar_{*this, "cmdCancelar"};
};

/// "clientes.csv: 2 filas nuevas, 1 cambia, 40 iguales"
std::string summaryOf(const ImportPlan& plan, const std::string& fileName);

/// The rows of the preview: the faults, or else what is new and what changes.
std::vector<sql::Row> previewOf(const Table& table, const ImportPlan& plan);

}  // namespace velmora::workshop_data
