#pragma once
// The labour of one proposal: a line per machine, operator and time. The caller reads the sum from the database.

#include <cstdint>

#include "velmora/labour/line_fields.h"
#include "velmora/labour/line_list.h"
#include "velmora/labour/line_saving.h"
#include "velmora/labour/line_writing.h"
#include "velmora/labour/machine_and_operators.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"

namespace velmora::labour {

/// The caller sets nIdDpi and bModificable, calls msCargarLineas and shows the form modally.
class frmManoObra : public screen::Form {
  public:
    frmManoObra(session::Session& session, platform::Desk& desk);

    std::int32_t nIdDpi = 0;    ///< DPI_ID of the proposal
    bool bModificable = false;  ///< lines may be added, changed and deleted

    /// Lists the lines of nIdDpi and their sum. Errors: the database's.
    void msCargarLineas() { lines_.msCargarLineas(nIdDpi); }
    void msCargarTotal() { lines_.msCargarTotal(nIdDpi); }

    LineFields& fields() { return f_; }

  private:
    void arrange();
    void wire();
    void Form_Activate();
    void Form_KeyDown(screen::KeyDown& key);
    void returnToActions();
    void passOverFoundOperator();
    void searchMachine();
    void newLine();
    void editLine();
    void saveLine();
    void deleteLine();
    void deleteRow(const sql::Recordset& line);

    session::Session& session_;
    platform::Desk& desk_;
    LineFields f_{*this};
    session::KestraUtil oUtil_;
    MachineAndOperators machines_;
    LineList lines_;
    LineWriting writing_;
    LineSaving saving_;
};

}  // namespace velmora::labour
