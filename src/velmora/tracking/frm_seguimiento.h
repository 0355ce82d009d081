#pragma once
// The tracking form: a list of proposals by filters or by measures, the current row in detail, and from there the
// proposal, its work order and the spreadsheet export.

#include <cstdint>
#include <memory>
#include <string>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/acceptance.h"
#include "velmora/tracking/detail.h"
#include "velmora/tracking/opening.h"
#include "velmora/tracking/proposal_list.h"
#include "velmora/tracking/tracking_fields.h"

namespace velmora::tracking {

class frmSeguimiento : public screen::Form {
  public:
    /// Creates the form with an empty list. Forms on the same connection share `order`. Errors: the database's.
    frmSeguimiento(session::Session& session, platform::Desk& desk,
                   std::shared_ptr<ListOrder> order = std::make_shared<ListOrder>());

    /// Lists the rows that match the filters, none when the flag is set; or, when `where` is given, the rows of that
    /// condition, regardless of filters and flag. Neither argument is changed. Errors: the database's; 94 when the
    /// first row lacks a value that the panel shows.
    void msCargarLista(std::int16_t& flag, std::string& where);

    TrackingFields& fields() { return f_; }

  private:
    void arrange();
    void Form_Load();
    void wireFields();
    void wireButtons();
    void Form_KeyDown(screen::KeyDown& key);
    void txtCriterio_GotFocus(int Index);
    void txtCriterio_LostFocus(int Index);
    void Text1_LostFocus(int Index);
    void searchByMeasures();
    void reload();

    session::Session& session_;
    platform::Desk& desk_;
    TrackingFields f_{*this};
    session::KestraUtil oUtil_;
    ProposalList list_;
    DetailPanel detail_;
    Opening opening_;
    Acceptance acceptance_;
};

}  // namespace velmora::tracking
