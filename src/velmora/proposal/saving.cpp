#include "velmora/proposal/saving.h"

#include "velmora/estimate/weights.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

using estimate::TextBox;
using session::Tipo;

namespace {

constexpr const char* lineBreak = "\r\n";
constexpr const char* null = " Null ";

constexpr int extraLength = 200;
constexpr int supplierLength = 35;
constexpr int toolLength = 15;

/// While it lives, a save runs: nothing is worked out anew and the form takes no entry. However it ends, the form
/// comes back.
class Guarded {
  public:
    explicit Guarded(estimate::FieldMap& f) : f_(f) { set(true); }
    ~Guarded() { set(false); }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;

  private:
    void set(bool runs) {
        f_.bCargandoDisco = f_.bCargandoCubo = f_.bCargandoPropuesta = runs;
        f_.form.setEnabled(!runs);
    }

    estimate::FieldMap& f_;
};

/// A column of kind number and the field that fills it: of another array where the rack keeps it elsewhere.
struct NumberField {
    const char* column;
    TextBox& box;
};

}  // namespace

bool Saving::msGrabar(bool bSilencio) {
    ++calls_;
    heldBack_ = false;
    if (!f_.txtPesu(money::customerCode).enabled() || f_.proposal.isAccepted()) {
        return false;
    }
    if (!isComplete()) {
        return false;
    }
    f_.txtObservaciones.setText(runtime::Replace(f_.txtObservaciones.text(), lineBreak, ""));
    std::string error;
    if (!session_.ComprobarConexion(session_.Connection(), error)) {
        screen_.show({.text = "La conexión con la Base de Datos se perdió"});
        return false;
    }
    session_.Tabla("DPI");
    session_.Modo(0);
    const Guarded guarded(f_);
    const bool isNew = f_.proposal.isNew();
    const session::Written written = write(isNew, error);
    const bool stored = written == session::Written::yes;
    if (stored && !bSilencio) {
        // Kept K-062: the message for a new row has the information icon, that for a changed row none.
        screen_.show({.text = "Datos Grabados satisfactoriamente",
                      .icon = isNew ? screen::Icon::information : screen::Icon::none});
    } else if (!stored && written != session::Written::declined) {
        refuse(isNew, error);
    }
    f_.bCargandoCubo = f_.bCargandoPropuesta = false;
    if (stored) {
        f_.form.setEnabled(false);
        reload();
    }
    return stored;
}

/// Reads the proposal back. Where that fails, what was typed stays on the form, and it is held against the row as it
/// was stored just now.
void Saving::reload() {
    const std::string number = f_.proposal.number();
    const auto rememberRow = [&] {
        runtime::ErrorTrap trap;
        trap([&] { rooms_.stored.remember(rooms_.stored.read(number)); });
    };
    rooms_.stored.remember({});
    try {
        if (!rooms_.loading.msCargarPresupuesto(f_.proposal.key(), true)) {
            rememberRow();
        }
    } catch (...) {
        rememberRow();
        throw;
    }
}

bool Saving::isComplete() {
    TextBox& code = f_.txtPesu(money::customerCode);
    // Chosen C-008: no customer has the code 0; it is refused like a code that is no number.
    if (f_.txtPesu(money::customerName).text().empty() || estimate::numberOrZero(code) == 0) {
        screen_.show({.text = "Error Falta Cliente", .icon = screen::Icon::critical});
        code.setFocus();
        return false;
    }
    if (f_.proposal.units() < 1) {
        screen_.show({.text = "Error Falta indicar el numero de unidades", .icon = screen::Icon::critical});
        f_.txtPesu(money::pieces).setFocus();
        return false;
    }
    return true;
}

bool Saving::mayBeWritten() {
    const labour::ProposalStanding& standing = rooms_.stored.readStanding(f_.proposal.number());
    if (standing.state == labour::ProposalStanding::pending) {
        return true;
    }
    refuse(false, standing.words());
    return false;
}

// Differs D-062: a stored row is looked at inside the transaction, before it is written: one that was accepted or
// deleted since it came on the form is not written any more, and one that another user has changed only when this one
// says so. All that was typed stays.
// Differs D-002: an error on the way, in the fields as in the transaction, ends as a refused write with its text, and
// all that was typed stays on a form that can be used.
session::Written Saving::write(bool isNew, std::string& error) {
    newRow_.reset();
    session::Written written = session::Written::refused;
    try {
        written = session::writeChecked(session_.Connection(), screen_,
                                        {.look = [&] { return look(isNew); },
                                         .write = [&] { return writeRow(isNew, error); },
                                         .question = "El presupuesto nº " + f_.proposal.number() +
                                                     " ha sido modificado por otro usuario desde que se cargó." +
                                                     lineBreak + "¿Desea grabar encima de sus cambios?"});
    } catch (const runtime::RuntimeError& e) {
        error = e.description();
    } catch (...) {
        session_.Campos().clear();
        throw;
    }
    session_.Campos().clear();
    heldBack_ = written == session::Written::closed || written == session::Written::declined;
    if (written == session::Written::closed) {
        // Chosen C-065: the words of a refused update, and as its reason those of a second acceptance.
        error = rooms_.stored.standing().words();
    } else if (written == session::Written::yes && newRow_) {
        put(*newRow_);
    }
    return written;
}

/// The fields are made up first: what of the row has changed is asked of the columns that this save writes.
session::RowState Saving::look(bool isNew) {
    session::FieldList& campos = session_.Campos();
    campos.clear();
    addFields();
    if (isNew) {
        return session::RowState::asShown;
    }
    std::vector<std::string> columns;
    for (const session::Field& field : campos.fields()) {
        columns.push_back(field.nombre);
    }
    return rooms_.stored.look(f_.proposal.number(), columns);
}

bool Saving::writeRow(bool isNew, std::string& error) {
    bool correcto = false;
    if (isNew) {
        session_.Donde(" ");
        session_.Insertar(error, correcto);
        if (correcto) {
            newRow_ = readBackNewRow();
        }
    } else {
        session_.Donde(" Where DPI_Id = " + f_.proposal.number());
        session_.Actualizar(error, correcto);
    }
    return correcto;
}

Saving::NewRow Saving::readBackNewRow() {
    const sql::Recordset newest = session_.Connection().execute("SELECT MAX(DPI_Id) FROM DPI");
    const std::string id = newest[0].toText();
    const sql::Recordset row =
        session_.Connection().execute("SELECT DPI_Fecha,DPI_CosteCorteDisco FROM DPI where DPI_Id = " + id);
    return {.number = id,
            .date = runtime::Format(row["DPI_Fecha"].toDate(), "dd/mm/yyyy"),
            .discCut = runtime::Format(row["DPI_CosteCorteDisco"].toDouble(), estimate::amountMask)};
}

// Once the row is there for good: the number of a row that was rolled back would turn the next save into an update
// of nothing.
void Saving::put(const NewRow& row) {
    f_.txtPesu(money::proposal).setText(row.number);
    f_.txtPesu(money::created).setText(row.date);
    f_.txtPesu(money::discCut).setText(row.discCut);
}

void Saving::refuse(bool isNew, const std::string& error) {
    f_.form.setTag("E");
    const std::string words = isNew ? "Error en la grabacion del registro:" : "Error en la actualizacion del registro";
    screen_.show({.text = words + lineBreak + error});
}

void Saving::addFields() {
    session::FieldList& campos = session_.Campos();
    const bool rack = f_.type() == data::rack;
    const sql::Recordset& disc = rack ? *f_.rsMatCre : *f_.rsMatDisco;
    const sql::Recordset& hub = *f_.rsMatCubo;
    const auto key = [](const estimate::ComboBox& list) { return runtime::CInt(estimate::entryKey(list)); };
    const auto addNumbers = [&](std::initializer_list<NumberField> fields) {
        for (const NumberField& field : fields) {
            campos.Add(field.column, Tipo::number, field.box);
        }
    };

    addNumbers({{"DPI_CosteCorteDisco", f_.txtPesu(money::discCut)}, {"DPI_FijoSierra", f_.txtPesu(money::sawCharge)}});
    campos.Add("DPI_Obser", Tipo::text, f_.txtObservaciones);
    campos.Add("DPI_Extra", Tipo::text, runtime::Left(f_.txtExtra.text(), extraLength));
    campos.Add("DPI_ProTex", Tipo::text, runtime::Left(f_.txtCPro.text(), supplierLength));
    addNumbers({
        {"DPI_Modulo", rack ? f_.Text1(measure::rackModule) : f_.txtModulo},
        {"DPI_Alt", f_.Text1(rack ? measure::rackHeight : measure::height)},
        {"DPI_Llanta", f_.Text1(rack ? measure::rackLength : measure::rim)},
        {"DPI_AnchoCubo", f_.Text1(rack ? measure::rackWidth : measure::hubWidth)},
    });
    campos.Add("DPI_ArtDisco", Tipo::number, disc["art_id"]);
    campos.Add("DPI_IdParDisco", Tipo::number, key(rack ? f_.cboMatCre : f_.cboMatDisco));
    addNumbers({
        {"DPI_DisCortDM", f_.Text4(rack ? cut::barLength : cut::discDiameter)},
        {"DPI_DisCortAN", f_.Text4(rack ? cut::barWidth : cut::discWidth)},
        {"DPI_DisCortPESO", f_.Text4(rack ? cut::barWeight : cut::discWeight)},
        {"DPI_DmFon", rack ? f_.Text4(cut::barThickness) : f_.Text1(measure::root)},
        {"DPI_DisPVE", f_.txtPesu(rack ? money::barPrice : money::discPrice)},
        {"DPI_DisImporte", f_.txtPesu(rack ? money::barAmount : money::discAmount)},
        {"DPI_Pas", f_.Text1(rack ? measure::rackPitch : measure::pitch)},
        {"DPI_AC", f_.Text1(rack ? measure::rackToothHeight : measure::chainWidth)},
        {"DPI_DmExt", f_.Text1(measure::exterior)},
        {"DPI_DmCub", f_.Text1(measure::hubDiameter)},
    });
    campos.Add("DPI_Tipo", Tipo::wholeNumber, f_.type());
    addNumbers({{"DPI_AnchoTotal", f_.Text1(measure::totalWidth)}});
    campos.Add("DPI_RefCli", Tipo::text, f_.txtPesu(money::customerReference));
    addNumbers({
        {"DPI_Z", f_.Text1(measure::teeth)},
        {"DPI_Rodillo", f_.Text1(measure::roller)},
        {"DPI_Eje", f_.Text1(measure::bore)},
        {"DPI_Chav", f_.Text1(measure::keyway)},
        {"DPI_Pri", f_.Text1(measure::setScrews)},
        {"DPI_DmPri", f_.Text1(measure::pitchDiameter)},
        {"DPI_CubCortDM", f_.Text4(cut::hubDiameter)},
        {"DPI_CubCortAN", f_.Text4(cut::hubLength)},
        {"DPI_CubCortPESO", f_.Text4(cut::hubWeight)},
        {"DPI_CubPVE", f_.txtPesu(money::hubPrice)},
        {"DPI_CubImporte", f_.txtPesu(money::hubAmount)},
    });
    campos.Add("DPI_ArtCubo", Tipo::number, hub["art_id"]);
    campos.Add("DPI_IdParCubo", Tipo::number, key(f_.cboMatCubo));
    addNumbers({
        {"DPI_ImpMat", f_.txtPesu(money::material)},
        {"DPI_ImpMO", f_.txtPesu(money::labour)},
        {"DPI_ImpTS", f_.txtPesu(money::subcontracted)},
        {"DPI_ImpVA", f_.txtPesu(money::sundries)},
        {"DPI_ImpTP", f_.txtPesu(money::piece)},
        {"DPI_Unidades", f_.txtPesu(money::pieces)},
        {"DPI_Importe", f_.txtPesu(money::lot)},
        {"DPI_CodCliente", f_.txtPesu(money::customerCode)},
    });
    campos.Add("DPI_NomCliente", Tipo::text, f_.txtPesu(money::customerName));
    const auto addInner = [&](const char* column, bool tube, const TextBox& box) {
        campos.Add(column, Tipo::number, tube ? session::FieldValue(box) : session::FieldValue(0));
    };
    addInner("DPI_DmInterno", estimate::isTube((*f_.rsMatDisco)["art_for"]), f_.Text4(cut::discInner));
    addInner("DPI_CuboDmInterno", estimate::isTube(hub["art_for"]), f_.Text4(cut::hubInner));
    campos.Add("DPI_Acopla", Tipo::boolean, f_.chkAcopla.checked() ? 1 : 0);
    campos.Add("DPI_HERRAMIENTA", Tipo::text, runtime::Left(f_.cboHerramienta.text(), toolLength));
    addFieldsByType();
}

void Saving::addFieldsByType() {
    session::FieldList& campos = session_.Campos();
    const int type = f_.type();
    if (type <= data::smoothPulley) {
        for (const char* column : {"DPI_PDM_Tipo", "DPI_PDM_b1", "DPI_PDM_x", "DPI_PDM_h1", "DPI_PDM_Texto"}) {
            campos.Add(column, Tipo::expression, null);
        }
    } else if (data::isDouble(type)) {
        addMultipleProduct(f_.txtPDM(doubleSketch::gap));
    } else if (data::isTriple(type)) {
        addMultipleProduct(f_.Text1(measure::gap));
    } else if (data::isVariable(type)) {
        // Differs D-004: an update leaves the second hub that the form does not show as it is stored.
        const bool writesSecondHub = f_.secondHubIsKnown() || f_.proposal.isNew();
        campos.Add("DPI_PDM_Tipo", Tipo::expression, null);
        if (writesSecondHub) {
            campos.Add("DPI_PDM_b1", Tipo::number, f_.Text1(measure::secondHubDiameter));
        }
        campos.Add("DPI_PDM_x", Tipo::expression, null);
        if (writesSecondHub) {
            campos.Add("DPI_PDM_h1", Tipo::number, f_.Text1(measure::secondHubWidth));
        }
        campos.Add("DPI_PDM_Texto", Tipo::expression, null);
    }
    // Gears and the rack leave these columns as they are.
}

void Saving::addMultipleProduct(const TextBox& gap) {
    session::FieldList& campos = session_.Campos();
    campos.Add("DPI_PDM_Tipo", Tipo::wholeNumber, f_.cboDobles.listIndex());
    campos.Add("DPI_PDM_b1", Tipo::number, f_.Text1(measure::firstRim));
    campos.Add("DPI_PDM_x", Tipo::number, gap);
    campos.Add("DPI_PDM_h1", Tipo::number, f_.txtPDM(doubleSketch::hubHeight));
    campos.Add("DPI_PDM_Texto", Tipo::text, f_.cboDobles.text());
}

std::string FnImporteFila(const std::string& a, const std::string& b) {
    return runtime::IsNumeric(a) && runtime::IsNumeric(b)
               ? runtime::Format(runtime::CDbl(a) * runtime::CDbl(b), estimate::amountMask)
               : "0,00";
}

}  // namespace velmora::proposal
