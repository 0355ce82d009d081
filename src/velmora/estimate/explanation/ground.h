#pragma once
// What the derivations of one explanation read: the form, the rules that need tables, and rows that are read once.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velmora/estimate/explanation/explanations.h"
#include "velmora/estimate/field_names.h"

namespace velmora::estimate::explaining {

class Ground {
  public:
    /// Tells how the value of a figure stands on the form; none for a field that is only entered.
    using OriginOf = std::function<std::optional<Origin>(const TextBox&)>;

    Ground(const FieldMap& fields, const Explanations::Sources& given) : f(fields), sources(given) {}
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;

    /// Without it, only what was entered can be told of the fields that go into a figure.
    void setOriginOf(OriginOf originOf) { originOf_ = std::move(originOf); }

    const FieldMap& f;
    const Explanations::Sources& sources;

    /// The number in a field; error 13 when it is none.
    double measured(int index) const { return number(f.Text1(index)); }
    double cutting(int index) const { return number(f.Text4(index)); }
    double amount(int index) const { return number(f.txtPesu(index)); }

    /// The values of the chosen chain for the teeth; may be empty. Errors: the database's.
    const sql::Recordset& chain();
    /// The gears of the module and the teeth on the form; may be empty or several. Errors: the database's.
    std::vector<sql::Recordset> gears();

    /// What is to be said of a field that goes into a figure: that it was entered, typed over, or is not calculated
    /// anew. Empty for a calculated one.
    std::string_view standingOf(const TextBox& field) const;

  private:
    std::optional<sql::Recordset> chain_;
    std::optional<sql::Recordset> gears_;
    OriginOf originOf_;
    mutable std::map<const TextBox*, std::string_view> standings_;  ///< of the fields asked for until now
};

/// Whether a row is chosen in a list of materials.
bool isChosen(const sql::ListenedRecordset& material);

/// The article of a material, as the source of what is read from it; empty without one.
std::string articleWords(const sql::ListenedRecordset& material);

}  // namespace velmora::estimate::explaining
