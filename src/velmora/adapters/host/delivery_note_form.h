#pragma once
// One delivery note of a purchase, read-only: its header and its lines.

#include <cstdint>

#include "velmora/adapters/host/record_fields.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/session.h"

namespace velmora::host {

class DeliveryNoteForm : public screen::Form {
  public:
    /// The session must outlive the form.
    explicit DeliveryNoteForm(session::Session& session);

    /// Shows the note with this key; false when there is none. Prices have the decimals of the session's
    /// `par_decprecom`. Errors: the database's.
    bool load(std::int32_t id);

  private:
    void arrange();
    void loadLines(std::int32_t id);

    session::Session& session_;
    screen::Frame fraAlbaran_{*this, "fraAlbaran"};
    Boxes txtAlbaran_{*this, "txtAlbaran", {{0, 3}}};
    screen::DataGrid dbgLineas_{*this, "dbgLineas"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::host
