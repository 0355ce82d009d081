#include "velmora/estimate/explanation/ground.h"

#include "velmora/estimate/double_sprockets.h"
#include "velmora/estimate/gears.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate::explaining {

const sql::Recordset& Ground::chain() {
    if (!chain_) {
        chain_ = chainValues(sources.session, f.cboDobles.listIndex(), f.Text1(measure::teeth).text());
    }
    return *chain_;
}

std::vector<sql::Recordset> Ground::gears() {
    if (!gears_) {
        gears_ = gearsOf(sources.session, number(f.txtModulo), measured(measure::teeth));
    }
    std::vector<sql::Recordset> rows;
    for (std::size_t i = 0; gears_->peek(i) != nullptr; ++i) {
        rows.push_back(gears_->clone());
        rows.back().moveTo(i);
    }
    return rows;
}

std::string_view Ground::standingOf(const TextBox& field) const {
    const auto [entry, isNew] = standings_.try_emplace(&field);
    if (isNew) {
        const std::optional<Origin> origin = originOf_ ? originOf_(field) : std::nullopt;
        const bool typed = f.typed.contain(field);
        std::string_view words;
        if (!origin) {
            words = typed ? "introducido" : "";
        } else if (*origin == Origin::typed) {
            words = "escrito a mano";
        } else if (*origin == Origin::kept) {
            words = "sin recalcular";
        }
        standings_[&field] = words;
    }
    return standings_.at(&field);
}

bool isChosen(const sql::ListenedRecordset& material) {
    return material->isOpen() && material->hasRows() && !material->eof();
}

std::string articleWords(const sql::ListenedRecordset& material) {
    if (!isChosen(material)) {
        return {};
    }
    const sql::Value& code = (*material)["art_cod"];
    return code.isNull() ? "artículo del material" : "artículo " + code.toText();
}

}  // namespace velmora::estimate::explaining
