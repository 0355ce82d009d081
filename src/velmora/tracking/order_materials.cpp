#include "velmora/tracking/order_materials.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "velmora/data/product_types.h"
#include "velmora/platform/session/row_writing.h"
#include "velmora/tracking/order_description.h"

namespace velmora::tracking {

using session::Tipo;

namespace {

/// Source of a column's value.
enum class Source {
    fixedNumber,
    fixedText,
    proposal,
    article,
    orderNumber,
    sprocketId,
    discLength,  ///< of all pieces
    hubLength,
    hubBore,
    hubPieces,
};

struct Column {
    std::string_view name;
    Tipo tipo;
    Source source;
    std::string_view from = {};  ///< the column copied, or the fixed text
    int number = 0;
};

constexpr Column fixed(std::string_view name, Tipo tipo, int number) {
    return {.name = name, .tipo = tipo, .source = Source::fixedNumber, .number = number};
}
constexpr Column ofProposal(std::string_view name, Tipo tipo, std::string_view from) {
    return {.name = name, .tipo = tipo, .source = Source::proposal, .from = from};
}
constexpr Column ofArticle(std::string_view name, Tipo tipo, std::string_view from) {
    return {.name = name, .tipo = tipo, .source = Source::article, .from = from};
}
constexpr Column workedOut(std::string_view name, Tipo tipo, Source source) {
    return {.name = name, .tipo = tipo, .source = source};
}

template <std::size_t... Sizes>
constexpr auto joinedColumns(const std::array<Column, Sizes>&... parts) {
    std::array<Column, (Sizes + ...)> all{};
    auto at = all.begin();
    ((at = std::copy(parts.begin(), parts.end(), at)), ...);
    return all;
}

constexpr std::array headStart{
    workedOut("Mat_Ord", Tipo::wholeNumber, Source::orderNumber),
    fixed("Mat_Ser", Tipo::text, 0),
    ofArticle("Mat_Art", Tipo::text, "art_cod"),
    ofArticle("Mat_Des", Tipo::text, "art_des"),
    ofArticle("Mat_Pco", Tipo::number, "art_pco"),
    ofArticle("Mat_Pve", Tipo::number, "art_pve"),
};
constexpr std::array headOnePiece{fixed("Mat_Uni", Tipo::wholeNumber, 1)};
constexpr std::array headEnd{
    fixed("Mat_Can", Tipo::number, 0),
    Column{.name = "Mat_Med", .tipo = Tipo::text, .source = Source::fixedText, .from = "Kg"},
    fixed("Mat_Tca", Tipo::wholeNumber, 0),
};
constexpr std::array formula{
    ofArticle("Mat_For", Tipo::text, "art_for"),
    ofArticle("Mat_FCA", Tipo::wholeNumber, "art_for"),
    ofArticle("Mat_Fac", Tipo::number, "art_fac"),
    ofArticle("Mat_Mat", Tipo::wholeNumber, "art_mat"),
    fixed("Mat_Imp", Tipo::number, 0),
    workedOut("Mat_Idp", Tipo::wholeNumber, Source::sprocketId),
};

constexpr std::array rackStart{
    ofProposal("Mat_Anc", Tipo::number, "DPI_DisCortDM"),
    ofProposal("Mat_Esp", Tipo::number, "DPI_DmFon"),
    fixed("Mat_Dex", Tipo::number, 0),
};
constexpr std::array rackEnd{
    fixed("Mat_Din", Tipo::number, 0),
    fixed("MAT_DmCorte", Tipo::number, 0),
    fixed("MAT_CubCorte", Tipo::wholeNumber, 0),
    ofProposal("Mat_Lar", Tipo::number, "DPI_llanta"),
    ofProposal("Mat_Uni", Tipo::wholeNumber, "dpi_unidades"),
};
constexpr auto rackPlate = joinedColumns(headStart, headEnd, rackStart, formula, rackEnd);

constexpr std::array discStart{
    fixed("Mat_Anc", Tipo::wholeNumber, 1),
    fixed("Mat_Esp", Tipo::wholeNumber, 1),
    ofProposal("Mat_Dex", Tipo::number, "DPI_DisCortDM"),
};
constexpr std::array pieceByPiece{
    ofProposal("Mat_Din", Tipo::number, "DPI_DmInterno"),
    fixed("MAT_UdCorte", Tipo::number, 0),
    fixed("MAT_LargoCorte", Tipo::number, 0),
    fixed("MAT_DmCorte", Tipo::number, 0),
    fixed("MAT_CubCorte", Tipo::wholeNumber, 0),
    ofProposal("Mat_Lar", Tipo::number, "DPI_DisCortAN"),
    ofProposal("Mat_Uni", Tipo::wholeNumber, "dpi_unidades"),
};
constexpr std::array oneLength{
    fixed("Mat_Uni", Tipo::wholeNumber, 1),
    workedOut("Mat_Lar", Tipo::number, Source::discLength),
    fixed("Mat_Din", Tipo::number, 1),
};
constexpr auto discByPiece = joinedColumns(headStart, headEnd, discStart, formula, pieceByPiece);
constexpr auto discOfOneLength = joinedColumns(headStart, headEnd, discStart, formula, oneLength);

constexpr std::array hubMeasures{
    workedOut("Mat_Lar", Tipo::number, Source::hubLength),
    fixed("Mat_Anc", Tipo::wholeNumber, 1),
    fixed("Mat_Esp", Tipo::wholeNumber, 1),
    workedOut("Mat_Din", Tipo::number, Source::hubBore),
    ofProposal("Mat_Dex", Tipo::number, "DPI_CubCortDM"),
};
constexpr auto hub = joinedColumns(headStart, headOnePiece, headEnd, hubMeasures, formula);

constexpr std::array rackCut{
    ofProposal("MAT_UdCorte", Tipo::number, "dpi_unidades"),
    ofProposal("MAT_LargoCorte", Tipo::number, "DPI_DisCortAN"),
};
constexpr std::array rackNotCut{
    fixed("MAT_UdCorte", Tipo::number, 0),
    fixed("MAT_LargoCorte", Tipo::number, 0),
};
constexpr std::array discCut{
    ofProposal("MAT_UdCorte", Tipo::number, "dpi_unidades"),
    ofProposal("MAT_LargoCorte", Tipo::number, "DPI_DisCortAN"),
    ofProposal("MAT_DmCorte", Tipo::number, "DPI_DisCortDM"),
    fixed("MAT_CubCorte", Tipo::wholeNumber, 1),
};
// Chosen C-143: MAT_CubCorte follows the tables: 1 for a disc, cut here or not, except where its pieces are bought one
// by one; 2 for a hub that is cut here, else 0.
constexpr std::array discNotCut{
    fixed("MAT_UdCorte", Tipo::number, 0),
    fixed("MAT_LargoCorte", Tipo::number, 0),
    fixed("MAT_DmCorte", Tipo::number, 0),
    fixed("MAT_CubCorte", Tipo::wholeNumber, 1),
};
constexpr std::array hubCut{
    workedOut("MAT_UdCorte", Tipo::number, Source::hubPieces),
    ofProposal("MAT_LargoCorte", Tipo::number, "DPI_CubCortAN"),
    ofProposal("MAT_DmCorte", Tipo::number, "DPI_CubCortDM"),
    fixed("MAT_CubCorte", Tipo::wholeNumber, 2),
};
constexpr std::array hubNotCut{
    fixed("MAT_UdCorte", Tipo::number, 0),
    fixed("MAT_LargoCorte", Tipo::number, 0),
    fixed("MAT_DmCorte", Tipo::number, 0),
    fixed("MAT_CubCorte", Tipo::wholeNumber, 0),
};

/// What is written when the material is cut here, and when it is not.
struct Cutting {
    std::string_view piece;
    std::span<const Column> cut;
    std::span<const Column> notCut;
};
constexpr Cutting rackCutting{"Disco", rackCut, rackNotCut};
constexpr Cutting discCutting{"Disco", discCut, discNotCut};
constexpr Cutting hubCutting{"Cubo", hubCut, hubNotCut};

/// Formulas of articles that are bought by the piece and not cut from a length.
constexpr std::array formulasByPiece{6, 0, 5};
constexpr int tubeFormula = 4;

constexpr double addedToEachCut = 2;

/// A row of Mat being built.
class MaterialRow {
  public:
    MaterialRow(session::Session& session, const session::KestraUtil& oUtil, const sql::Recordset& proposal,
                const WorkOrder& order)
        : session_(session), oUtil_(oUtil), proposal_(proposal), order_(order), campos_(beginRow(session, "Mat")) {}

    void readArticle(std::string_view column) {
        article_ = session_.Connection().execute("SELECT * FROM art where art_id = " + joined(proposal_[column]));
    }

    void add(std::span<const Column> columns) {
        for (const Column& column : columns) {
            campos_.Add(column.name, column.tipo, valueOf(column));
        }
    }

    bool articleHasFormula(std::span<const int> formulas) const {
        const sql::Value& own = article_["art_for"];
        return !own.isNull() && std::ranges::find(formulas, own.toDouble()) != formulas.end();
    }

    /// Adds the columns of the cut; true when the material will be cut here.
    bool addCut(screen::Screen& screen, const Cutting& cutting) {
        // Only the answer Yes counts.
        const bool cut = !article_["Art_Corte"].isNull() && ask(screen, cutting.piece) == screen::Answer::yes;
        add(cut ? cutting.cut : cutting.notCut);
        return cut;
    }

    void insert() {
        const session::RowWrite written = session::insertAddedFields(session_);
        if (!written.stored) {
            raise(materialRefused, "Error Añadiendo Material del piñon:\r\n" + written.error);
        }
    }

  private:
    screen::Answer ask(screen::Screen& screen, std::string_view piece) const {
        // Kept K-150: the question about the hub has the disc's title. Required as it is; users read this text.
        return screen.show({.text = "El Material para el " + std::string(piece) + " será cortado aquí ?\r\n" +
                                    joined(article_["art_cod"]) + " - " + joined(article_["art_des"]),
                            .icon = screen::Icon::question,
                            .buttons = screen::Buttons::yesNo,
                            .title = "Corte Material Disco"});
    }

    // Kept K-151: two equal hubs count twice, in length and in cuts; the two hubs of the variable sprocket count once.
    // Required as it is; it determines stored lengths and cuts.
    int hubsOfOnePiece() const {
        return data::productType(proposal_["DPI_tipo"].toLong()).hubs == data::Hubs::twoAlike ? 2 : 1;
    }

    double pieces() const { return proposal_["dpi_unidades"].toDouble(); }

    double lengthOfAll(std::string_view width, int ofOnePiece) const {
        return oUtil_.Redondear((proposal_[width].toDouble() + addedToEachCut) * pieces() * ofOnePiece, 2);
    }

    sql::Value valueOf(const Column& column) const {
        switch (column.source) {
            case Source::fixedNumber:
                return column.number;
            case Source::fixedText:
                return std::string(column.from);
            case Source::proposal:
                return proposal_[column.from];
            case Source::article:
                return article_[column.from];
            case Source::orderNumber:
                return order_.number;
            case Source::sprocketId:
                return order_.sprocketId;
            case Source::discLength:
                return lengthOfAll("DPI_DisCortAN", 1);
            case Source::hubLength:
                return lengthOfAll("DPI_CubCortAN", hubsOfOnePiece());
            case Source::hubBore:
                return articleHasFormula(std::array{tubeFormula}) ? proposal_["DPI_CuboDmInterno"] : sql::Value(1);
            case Source::hubPieces:
                return pieces() * hubsOfOnePiece();
        }
        return {};
    }

    session::Session& session_;
    const session::KestraUtil& oUtil_;
    const sql::Recordset& proposal_;
    const WorkOrder& order_;
    session::FieldList& campos_;
    sql::Recordset article_;
};

// Chosen C-144: a null weight counts as 0: no such material.
bool weighs(const sql::Recordset& proposal, std::string_view column) {
    return proposal[column].toBool();
}

/// The disc, or the plate of a rack; true when it will be cut here.
bool addDisc(MaterialRow& row, screen::Screen& screen, data::OrderMaterials materials) {
    row.readArticle("dpi_artdisco");
    if (materials == data::OrderMaterials::bar) {
        row.add(rackPlate);
        return row.addCut(screen, rackCutting);
    }
    if (row.articleHasFormula(formulasByPiece)) {
        row.add(discByPiece);
        return false;
    }
    row.add(discOfOneLength);
    return row.addCut(screen, discCutting);
}

}  // namespace

void addMaterials(session::Session& session, screen::Screen& screen, const session::KestraUtil& oUtil,
                  const sql::Recordset& proposal, WorkOrder& order) {
    const data::OrderMaterials materials = data::productType(proposal["DPI_tipo"].toLong()).materials;
    if (weighs(proposal, "DPI_DisCortPESO")) {
        MaterialRow row(session, oUtil, proposal, order);
        order.cuts = addDisc(row, screen, materials) ? 1 : 0;
        row.insert();
    }
    if (weighs(proposal, "DPI_CubCortPESO") && materials == data::OrderMaterials::discAndHub) {
        MaterialRow row(session, oUtil, proposal, order);
        row.readArticle("dpi_artcubo");
        row.add(hub);
        if (row.addCut(screen, hubCutting)) {
            ++order.cuts;
        }
        row.insert();
    }
}

}  // namespace velmora::tracking
