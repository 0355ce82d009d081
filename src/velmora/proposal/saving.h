#pragma once
// The main form written to one row of DPI, in one transaction, and read back.

#include <string>

#include "velmora/estimate/field_map.h"
#include "velmora/proposal/loading.h"

namespace velmora::proposal {

class Saving {
  public:
    Saving(estimate::FieldMap& fields, Loading& loading, session::Session& session, screen::Screen& screen)
        : f_(fields), loading_(loading), session_(session), screen_(screen) {}

    /// Stores the proposal: a new row when txtPesu(3) holds no number. True when it was stored. Tells the user of
    /// what is missing, of a refusal, and, unless bSilencio, of success. A refused write leaves the form as it stood.
    bool msGrabar(bool bSilencio);

  private:
    /// What the server gave a new row.
    struct NewRow {
        std::string number;
        std::string date;
        std::string discCut;
    };

    bool isComplete();
    bool write(bool isNew, std::string& error);
    void addFields();
    void addFieldsByType();
    void addMultipleProduct(const estimate::TextBox& gap);
    NewRow readBackNewRow();
    void put(const NewRow& row);
    void refuse(bool isNew, const std::string& error);

    estimate::FieldMap& f_;
    Loading& loading_;
    session::Session& session_;
    screen::Screen& screen_;
    int calls_ = 0;
};

/// A line of cost: the product of two numbers under the mask of amounts, "0,00" when either is none.
std::string FnImporteFila(const std::string& a, const std::string& b);

}  // namespace velmora::proposal
