#include "velmora/tracking/detail.h"

#include <algorithm>
#include <array>
#include <utility>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/tracking/date_fields.h"

namespace velmora::tracking {

namespace {

enum class Shown { value, valueOrNothing, dateOrNothing };

struct DetailColumn {
    Detail field;
    const char* column;
    Shown shown = Shown::value;
};

constexpr std::array detailColumns{
    DetailColumn{customerCode, "DPI_CodCliente"},
    DetailColumn{customerName, "DPI_NomCliente"},
    DetailColumn{customerReference, "DPI_RefCli", Shown::valueOrNothing},
    DetailColumn{customerOrder, "DPI_PedCliente", Shown::valueOrNothing},
    DetailColumn{orderDate, "DPI_FPedCliente", Shown::dateOrNothing},
    DetailColumn{deliveryDate, "DPI_FechaEntrega", Shown::dateOrNothing},
    DetailColumn{materialAmount, "DPI_ImpMat"},
    DetailColumn{labourAmount, "DPI_ImpMO"},
    DetailColumn{subcontractedAmount, "DPI_ImpTS"},
    DetailColumn{otherAmount, "DPI_ImpVA"},
    DetailColumn{piecePrice, "DPI_ImpTP"},
    DetailColumn{pieces, "dpi_unidades"},
    DetailColumn{totalAmount, "DPI_Importe"},
};

struct MeasureColumn {
    int field;
    const char* column;
};

constexpr std::array measureColumns{
    MeasureColumn{1, "DPI_Z"},   MeasureColumn{0, "DPI_pas"},     MeasureColumn{8, "DPI_ac"},
    MeasureColumn{7, "DPI_Eje"}, MeasureColumn{2, "DPI_rodillo"}, MeasureColumn{3, "DPI_modulo"},
};

/// Error 94 for a null that must be shown.
std::string textOf(const sql::Value& value, Shown shown) {
    if (shown != Shown::value && value.isNull()) {
        return {};
    }
    return shown == Shown::dateOrNothing ? runtime::Format(value.toDate(), dateMask) : value.toText();
}

bool isOrderDate(int Index) {
    return Index == orderDate || Index == deliveryDate;
}

/// Error 3021 without a current row.
sql::Recordset copyOfCurrentRow(const sql::Recordset& rows) {
    sql::Row values;
    for (std::size_t column = 0; column < rows.columns().size(); ++column) {
        values.push_back(rows[column]);
    }
    return sql::Recordset(sql::rowsInMemory(rows.columns(), {std::move(values)}));
}

}  // namespace

bool isEdited(const TrackingFields& fields) {
    return fields.shown.isOpen() && std::ranges::any_of(detailColumns, [&](const DetailColumn& detail) {
               return fields.txtPesu(detail.field).text() != textOf(fields.shown[detail.column], detail.shown);
           });
}

void DetailPanel::rsDpi_MoveComplete() {
    f_.shown = {};
    if (!f_.rsDpi->hasRows()) {
        return;
    }
    // Chosen C-146: a copy of the row is kept when it is shown, so that an acceptance uses exactly the values that the
    // user saw, whatever happens to the list meanwhile.
    const sql::Recordset row = copyOfCurrentRow(*f_.rsDpi);
    for (const DetailColumn& detail : detailColumns) {
        f_.txtPesu(detail.field).setText(textOf(row[detail.column], detail.shown));
    }
    f_.shown = row;
    showMeasures(row);
}

void DetailPanel::showMeasures(const sql::Recordset& row) {
    runtime::ErrorTrap trap;
    for (const MeasureColumn& measure : measureColumns) {
        // Kept K-124: a measure that the proposal lacks leaves the search field as it was, so the fields may show
        // measures of two proposals. Required as it is; the search by measures uses these fields.
        trap([&] { f_.Text1(measure.field).setText(row[measure.column].toText()); });
    }
}

void DetailPanel::txtPesu_KeyPress(int Index, screen::KeyPress& key) {
    if (isOrderDate(Index)) {
        oUtil_.TeclaCampo(f_.txtPesu(Index), key, true);
    } else {
        screen_.processEvents();
    }
}

void DetailPanel::txtPesu_LostFocus(int Index) {
    if (isOrderDate(Index)) {
        // Kept K-125: the panel shows dates with ten characters, so merely passing through the field clears it, and the
        // acceptance then stores no date. Required as it is; it determines stored dates.
        leaveDateField(oUtil_, f_.txtPesu(Index));
    } else {
        oUtil_.SalirCampo(f_.txtPesu(Index));
    }
}

}  // namespace velmora::tracking
