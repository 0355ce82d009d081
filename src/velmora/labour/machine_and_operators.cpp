#include "velmora/labour/machine_and_operators.h"

#include <optional>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::labour {

using runtime::CStr;

namespace {

constexpr const char* noSection = "Maquina sín sección";
constexpr const char* noOperator = "!No Existen Operarios para esta maquina";
constexpr const char* noOperatorEntry = "000|0";
constexpr std::size_t idLength = 3;
constexpr double minutesOfAnHour = 60;

std::string textOrNothing(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

std::string entryOf(std::int32_t idOperator, const sql::Value& price) {
    return runtime::Format(idOperator, "000") + "|" + textOrNothing(price);
}

/// The price of an entry, as text in the locale's form. Error 9 for an entry without a bar.
std::string priceOf(const std::string& entry) {
    const std::size_t bar = entry.find('|');
    if (bar == std::string::npos) {
        runtime::raise(runtime::subscriptOutOfRange);
    }
    return entry.substr(bar + 1, entry.find('|', bar + 1) - bar - 1);
}

}  // namespace

std::int32_t operatorOf(const std::string& entry) {
    const std::string id = runtime::Left(entry, idLength);
    return runtime::IsNumeric(id) ? runtime::CLng(id) : 0;
}

void MachineAndOperators::msCargarMaquina(std::int32_t id) {
    const std::string key = CStr(std::int64_t{id});
    const sql::Recordset row = session_.Connection().execute(
        "select maq_nom,rsec_nom from maq left join rsec on maq_sec = rsec_id where maq_id = " + key);
    if (row.eof()) {
        clearLine();
        return;
    }
    f_.txtLinea(machine).setText(key);
    f_.txtLinea(machineName).setText(textOrNothing(row["maq_nom"]));
    f_.txtLinea(section).setText(row["rsec_nom"].isNull() ? noSection : row["rsec_nom"].toText());
    f_.cboOperarios.clear();
    f_.cboOperPvp.clear();
    listOperators(id);
    f_.cboOperarios.setListIndex(0);
}

void MachineAndOperators::clearLine() {
    f_.cboOperarios.clear();
    f_.cboOperPvp.clear();
    f_.put(0, 4, "");
    f_.put(5, 7, "0");
}

void MachineAndOperators::listOperators(std::int32_t idMachine) {
    const std::string key = CStr(std::int64_t{idMachine});
    std::optional<std::int32_t> own;
    const sql::Recordset ofMachine =
        session_.Connection().execute("select top 1 ope_id,ope_nom,OPE_VENTA from ope where ope_mad = " + key);
    if (!ofMachine.eof()) {
        own = ofMachine["ope_id"].toLong();
        add(textOrNothing(ofMachine["ope_nom"]), entryOf(*own, ofMachine["OPE_VENTA"]));
    }
    sql::Recordset assigned = session_.Connection().execute(
        "select ope_id,ope_nom,obm_ptr from ope inner join obm on ope_id = obm_ope where obm_maq =" + key);
    for (; !assigned.eof(); assigned.moveNext()) {
        const std::int32_t id = assigned["ope_id"].toLong();
        const std::string entry = entryOf(id, assigned["obm_ptr"]);
        if (id == own) {
            replace(id, entry);
        } else {
            add(textOrNothing(assigned["ope_nom"]), entry);
        }
    }
    if (f_.cboOperarios.listCount() == 0) {
        add(noOperator, noOperatorEntry);
    }
}

void MachineAndOperators::add(const std::string& name, const std::string& entry) {
    f_.cboOperarios.addItem(name);
    f_.cboOperPvp.addItem(entry);
}

void MachineAndOperators::replace(std::int32_t idOperator, const std::string& entry) {
    const std::string id = runtime::Format(idOperator, "000") + "|";
    for (int i = 0; i < f_.cboOperPvp.listCount(); ++i) {
        if (f_.cboOperPvp.list(i).starts_with(id)) {
            f_.cboOperPvp.setList(i, entry);
        }
    }
}

void MachineAndOperators::choose(std::int32_t idOperator) {
    for (int i = 0; i < f_.cboOperPvp.listCount(); ++i) {
        if (operatorOf(f_.cboOperPvp.list(i)) == idOperator) {
            f_.cboOperPvp.setListIndex(i);
            f_.cboOperarios.setListIndex(i);
        }
    }
}

void MachineAndOperators::cboOperarios_Click() {
    f_.cboOperPvp.setListIndex(f_.cboOperarios.listIndex());
    const std::string entry = f_.cboOperPvp.text();
    runtime::ErrorTrap trap;
    double price = 0;
    trap([&] { price = runtime::CDbl(priceOf(entry)); });
    if (price == 0) {
        // Kept K-100: an operator without a price leaves the amount of the line as computed for the operator before,
        // until the minutes field is left. Required as it is; it determines stored amounts.
        for (const int field : {hourPrice, minutePrice}) {
            f_.txtLinea(field).setText("0");
        }
        f_.txtLinea(hourPrice).setTag("0");
        return;
    }
    f_.txtLinea(hourPrice).setText(CStr(price));
    f_.txtLinea(hourPrice).setTag(entry.substr(0, entry.find('|')));
    trap([&] { f_.txtLinea(minutePrice).setText(CStr(oUtil_.Redondear(price / minutesOfAnHour, 4))); });
    trap([&] { txtLinea_LostFocus(minutes); });
}

void MachineAndOperators::txtLinea_LostFocus(int Index) {
    screen::TextBox& box = f_.txtLinea(Index);
    if (!runtime::IsNumeric(box.text())) {
        box.setText("0");
    }
    oUtil_.SalirCampo(box);
    if (Index == machine) {
        // Kept K-101: passing through the machine field while a line is edited selects the machine's first operator
        // again; entering the same machine again refreshes operators and prices in this way. Required as it is; it
        // determines the stored operator.
        msCargarMaquina(runtime::CLng(box.text()));
    } else if (Index == minutes) {
        workOutAmount();
    }
    // Kept K-105: a price typed by hand counts when the minutes are left, not when it is left itself.
}

void MachineAndOperators::workOutAmount() {
    if (!runtime::IsNumeric(f_.txtLinea(minutePrice).text())) {
        f_.txtLinea(minutePrice).setText("0");
    }
    // Computed from the quotient, not from the displayed price per minute, which is rounded.
    const double perMinute = runtime::CDbl(f_.txtLinea(hourPrice).text()) / minutesOfAnHour;
    f_.txtLinea(amount).setText(CStr(oUtil_.Redondear(runtime::CDbl(f_.txtLinea(minutes).text()) * perMinute, 2)));
}

std::int32_t MachineAndOperators::msBuscarMaquina() {
    const std::string row =
        oUtil_.Buscar("Select maq_id, maq_nom,rsec_nom from maq inner join rsec on maq_sec = rsec_id order by rsec_nom",
                      "maq_nom", "Maquina", "Sección", "Buscar maquinas", 3500, 3500, false);
    if (runtime::Len(row) < 3) {
        return 0;
    }
    std::int32_t id = 0;
    runtime::ErrorTrap trap;
    trap([&] { id = runtime::CLng(row.substr(0, row.find('\x01'))); });
    return id;
}

}  // namespace velmora::labour
