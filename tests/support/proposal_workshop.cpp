#include "support/proposal_workshop.h"

#include <stdexcept>
#include <utility>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"

#include "support/database_template.h"

namespace velmora::support {

namespace {

const runtime::Date morning = runtime::Date::of(2026, 1, 15, 10, 0, 0);

constexpr const char* rows[] = {
    "INSERT INTO materiales (mat_id,mat_pcs) VALUES (1,0.05)",
    "INSERT INTO materiales (mat_id,mat_pcs) VALUES (2,0.02)",
    "INSERT INTO ART (ART_ID,ART_COD,ART_DES,ART_For,ART_Fac,ART_Pco,ART_Pve,ART_Mat,ART_Corte,ART_Estado) VALUES "
    "(11,N'R-F114',N'Redondo F-114',2,6.165,0.95,1.4,1,1,0)",
    "INSERT INTO ART (ART_ID,ART_COD,ART_DES,ART_For,ART_Fac,ART_Pco,ART_Pve,ART_Mat,ART_Corte,ART_Estado) VALUES "
    "(12,N'R-F1140',N'Redondo F-1140',2,6.165,1.02,1.5,2,1,0)",
    "INSERT INTO ART (ART_ID,ART_COD,ART_DES,ART_For,ART_Fac,ART_Pco,ART_Pve,ART_Mat,ART_Corte,ART_Estado) VALUES "
    "(13,N'T-E355',N'Tubo E355',4,6.165,1.45,2.1,2,1,0)",
    "INSERT INTO ART (ART_ID,ART_COD,ART_DES,ART_For,ART_Fac,ART_Pco,ART_Pve,ART_Mat,ART_Corte,ART_Estado) VALUES "
    "(14,N'P-S275',N'Pletina S275',1,7.85,0.8,1.2,1,1,0)",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_HIERRO,PARDPI_DISCO,PARDPI_MATP,PARDPI_CRE) VALUES "
    "(N'Disco F-114',11,0,1,N'Acero F-114',0)",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_HIERRO,PARDPI_DISCO,PARDPI_MATP,PARDPI_CRE) VALUES "
    "(N'Cubo F-1140',12,0,0,N'Acero F-1140',0)",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_HIERRO,PARDPI_DISCO,PARDPI_MATP,PARDPI_CRE) VALUES "
    "(N'Tubo E355',13,0,0,N'Tubo E355',0)",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_HIERRO,PARDPI_DISCO,PARDPI_MATP,PARDPI_CRE) VALUES "
    "(N'Disco tubo',13,0,1,N'Tubo E355',0)",
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_HIERRO,PARDPI_DISCO,PARDPI_MATP,PARDPI_CRE) VALUES "
    "(N'Pletina S275',14,1,0,N'Pletina S275',1)",
    "INSERT INTO Calculos (Calculos_Tipo,Calculos_Valor1,Calculos_Valor2,Calculos_Constante) VALUES (1,0,1000,0.6)",
    "INSERT INTO Calculos (Calculos_Tipo,Calculos_Valor1,Calculos_Valor2,Calculos_Constante) VALUES (2,0,1000,0.4)",
    "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER,CLI_GtosFinan,CLI_Riesgo,CLI_ImpMaxRiesgo) VALUES "
    "(1,1001,N'TALLERES NORTE SL',N'NORTE',1.5,0,0)",
    "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER,CLI_GtosFinan,CLI_Riesgo,CLI_ImpMaxRiesgo) VALUES "
    "(2,1002,N'ÁRIDOS DEL SUR SA',N'ARISUR',0,0,0)",
    "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER,CLI_GtosFinan,CLI_Riesgo,CLI_ImpMaxRiesgo) VALUES "
    "(3,1003,NULL,N'SIN NOMBRE FISCAL',0,0,0)",
    "INSERT INTO PDM (PDM_Tipo,PDM_Titulo,PDM_Z,PDM_Paso,PDM_AC,PDM_Rodillo,PDM_b1,PDM_b2,PDM_X,PDM_H1,PDM_De,PDM_Dp,"
    "PDM_Df,PDM_Dm,PDM_D2,PDM_A) VALUES (1,N'ISO 1/2'''' Doble Z17',17,12.7,7.75,8.51,7.2,21.1,6.7,2.5,74.5,69.11,"
    "60.6,48,20,45)",
};

sqlite::Options workshopOptions(bool readOnly = false) {
    sqlite::Options options;
    options.clock = [] { return morning; };
    options.readOnly = readOnly;
    options.busyTimeout = std::chrono::milliseconds(20);
    return options;
}

}  // namespace

screen::Answer WorkshopScreen::show(const screen::MessageBox& box) {
    if (whileOpen) {
        whileOpen(box);
    }
    if (cancelsQuestions && box.buttons != screen::Buttons::ok) {
        messages.push_back(box);
        return screen::Answer::cancel;
    }
    return ScriptedScreen::show(box);
}

void WorkshopScreen::processEvents() {
    ScriptedScreen::processEvents();
    if (onEvents) {
        onEvents();
    }
}

std::unique_ptr<sql::Connection> openWorkshopDatabase(const std::string& path, bool readOnly) {
    return sqlite::openDatabase(path, workshopOptions(readOnly));
}

void fillWorkshop(sql::Connection& database) {
    data::createDatabase(database);
    for (const char* row : rows) {
        database.execute(row);
    }
}

std::unique_ptr<sql::Connection> makeWorkshopDatabase(const std::string& path) {
    static const DatabaseTemplate workshop(fillWorkshop, workshopOptions());
    return workshop.copy(path, workshopOptions());
}

std::vector<std::string> textsOf(const screen::Form& form) {
    std::vector<std::string> all;
    for (const screen::Control* each : form.controls()) {
        if (const auto* box = dynamic_cast<const screen::TextBox*>(each)) {
            all.push_back(box->fullName() + " = " + box->text());
        } else if (const auto* list = dynamic_cast<const screen::ComboBox*>(each)) {
            all.push_back(list->fullName() + " = " + list->text());
        }
    }
    return all;
}

ProposalWorkshop::ProposalWorkshop(std::unique_ptr<sql::Connection> opened)
    : database(std::move(opened)), faults(*database), connection(faults), session(connection) {}

ProposalWorkshop::~ProposalWorkshop() = default;

proposal::frmBercialPiñones& ProposalWorkshop::form() {
    return form_ ? *form_ : openAnew();
}

proposal::frmBercialPiñones& ProposalWorkshop::openAnew() {
    form_ = std::make_unique<proposal::frmBercialPiñones>(session, desk);
    return *form_;
}

void ProposalWorkshop::attempt(const std::function<void()>& action) {
    try {
        action();
    } catch (const runtime::RuntimeError& error) {
        errors.push_back(error);
    }
}

screen::Control& ProposalWorkshop::control(std::string_view name) {
    screen::Control* found = form().find(name);
    if (found == nullptr) {
        throw std::logic_error("no control " + std::string(name));
    }
    return *found;
}

namespace {

/// The focus goes to the control, as a driver moves it. An error on leaving the last one is the user's to read.
void goTo(ProposalWorkshop& workshop, screen::Control& control) {
    workshop.attempt([&] { control.form().moveFocus(control, screen::Form::Insist::yes); });
    EXPECT_EQ(workshop.focused(), control.fullName()) << "the control refused";
}

}  // namespace

void ProposalWorkshop::set(std::string_view field, std::string_view text) {
    screen::Control& target = control(field);
    goTo(*this, target);
    const auto* box = dynamic_cast<const screen::TextBox*>(&target);
    EXPECT_FALSE(box != nullptr && box->locked()) << field << " is locked";
    if (auto* list = dynamic_cast<screen::ComboBox*>(&target)) {
        attempt([&] { list->setText(text); });
    } else {
        attempt([&] { dynamic_cast<screen::TextBox&>(target).setText(text); });
    }
}

void ProposalWorkshop::choose(std::string_view list, int index) {
    goTo(*this, control(list));
    attempt([&] { dynamic_cast<screen::ComboBox&>(control(list)).choose(index); });
}

void ProposalWorkshop::check(std::string_view box, bool on) {
    goTo(*this, control(box));
    attempt([&] { dynamic_cast<screen::CheckBox&>(control(box)).setChecked(on); });
}

void ProposalWorkshop::press(std::string_view button) {
    goTo(*this, control(button));
    attempt([&] { dynamic_cast<screen::Button&>(control(button)).onClick(); });
}

void ProposalWorkshop::key(screen::Key key) {
    attempt([&] { form().keyDown(key); });
}

void ProposalWorkshop::leave() {
    attempt([&] { form().leaveFocus(); });
}

void ProposalWorkshop::enterToothing() {
    set("Text1(0)", "12,7");
    set("Text1(8)", "7,75");
    set("Text1(1)", "38");
    set("Text1(2)", "7,75");
    leave();
}

void ProposalWorkshop::enterCustomerAndUnits() {
    set("txtPesu(0)", "1001");
    set("txtPesu(11)", "3");
    leave();
}

void ProposalWorkshop::saveNewProposal() {
    enterToothing();
    enterCustomerAndUnits();
    key(screen::Key::f5);
}

std::string ProposalWorkshop::text(std::string_view name) {
    const screen::Control& found = control(name);
    if (const auto* box = dynamic_cast<const screen::TextBox*>(&found)) {
        return box->text();
    }
    if (const auto* list = dynamic_cast<const screen::ComboBox*>(&found)) {
        return list->text();
    }
    if (const auto* label = dynamic_cast<const screen::Label*>(&found)) {
        return label->caption();
    }
    return dynamic_cast<const screen::Frame&>(found).caption();
}

std::string ProposalWorkshop::focused() {
    const screen::Control* active = form().activeControl();
    return active == nullptr ? std::string() : active->fullName();
}

std::vector<std::string> ProposalWorkshop::texts() {
    return textsOf(form());
}

std::string ProposalWorkshop::query(std::string_view sql) {
    const sql::Recordset answer = database->execute(sql);
    const sql::Value& value = answer[0];
    return value.isNull() ? "NULL" : value.toText();
}

std::vector<long> ProposalWorkshop::errorNumbers() const {
    std::vector<long> numbers;
    for (const runtime::RuntimeError& error : errors) {
        numbers.push_back(error.number());
    }
    return numbers;
}

}  // namespace velmora::support
