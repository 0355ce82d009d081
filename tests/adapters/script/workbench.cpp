#include "workbench.h"

#include <cstdint>
#include <utility>

#include "velmora/adapters/script/watched_connection.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::script::testing {

using namespace screen;

void FakeConnection::answers(std::string statement, std::vector<sql::Column> columns, std::vector<sql::Row> rows) {
    sets_[std::move(statement)] = Set{std::move(columns), std::move(rows)};
}

sql::Recordset FakeConnection::execute(std::string_view statement) {
    log.emplace_back(statement);
    const auto found = sets_.find(statement);
    if (found == sets_.end()) {
        throw sql::DbError(sql::provider::missingTable, "No existe la tabla");
    }
    const auto& [columns, rows] = found->second;
    return columns.empty() ? sql::Recordset() : sql::Recordset(sql::rowsInMemory(columns, rows));
}

BenchForm::BenchForm(Screen& screen, system::Services& services, sql::Connection& connection)
    : Form("frmBanco"), screen_(screen), services_(services), connection_(connection) {
    setCaption("Banco de pruebas");
    txtNotas.setMultiLine(true);
    txtDentro.setFrame(&Frame1);
    Frame1.setCaption("Dentro");
    lblTitulo.setCaption("Título");
    cmdSalir.setCaption("&Salir");
    for (const char* entry : {"Piñon", "Disco", "12"}) {
        cboTipo.addItem(entry);
        cboLibre.addItem(entry);
    }
    cboLibre.setStyle(ComboBox::Style::editable);
    Toolbar1.setItems({{"Nuevo", {{"FICHERO", "Fichero existente"}}}, {"", {}}, {"Ver", {}}});
    wireFields();
    wireButtons();
    wireQuestions();
    fillGrid();
    onKeyDown = [this](KeyDown& down) {
        if (down.key == Key::enter) {
            down.key = Key::none;
            tabForward();
        } else if (down.key == Key::padDecimal) {
            down.key = Key::comma;
        } else if (down.key == Key::f5) {
            note("F5");
        } else if (down.key == Key::escape) {
            unload();
        }
    };
    setTabOrder({&Text1(0), &Text1(1), &Text1(2)});
    onUnload = [this] { note("unload"); };
}

void BenchForm::wireFields() {
    const auto named = [](const char* event, int i) { return event + runtime::CStr(std::int64_t{i}); };
    Text1.on(&TextBox::onGotFocus, {[this, named](int i) {
        note(named("got", i));
        Text1(i).selectAll();
    }});
    Text1.on(&TextBox::onLostFocus, {[this, named](int i) {
        note(named("lost", i));
        if (Text1(i).text() == "mal") {
            runtime::raise(runtime::typeMismatch);
        }
        if (Text1(i).text() == "vuelve") {
            Text1(i).setFocus();
        }
        if (Text1(i).text() == "llena") {
            cboTipo.addItem("Nuevo");
        }
        if (Text1(i).text() == "apaga") {
            Text1(2).setEnabled(false);
        }
    }});
    Text1.on(&TextBox::onDblClick, {[this, named](int i) { note(named("twice", i)); }});
    Text1.on(&TextBox::onChange, {[this, named](int i) { note(named("change", i)); }});
    Text1(1).onKeyPress = [](KeyPress& press) {
        if (press.character == U'.') {
            press.character = U',';
        } else if (press.character != 8 && press.character != U',' &&
                   (press.character < U'0' || press.character > U'9')) {
            press.character = 0;
        }
    };
}

void BenchForm::wireButtons() {
    cmdOtra.onClick = [this] {
        BenchForm other(screen_, services_, connection_);
        other.setCaption("Otra");
        screen_.showModal(other);
        note("closed");
    };
    cmdError.onClick = [] { runtime::raise(runtime::typeMismatch); };
    cmdLeer.onClick = [this] { connection_.execute("select uno"); };
    cmdSalir.onClick = [this] { unload(); };
    cboTipo.onClick = [this] { note("click"); };
    cboTipo.onChosen = [this] { note("chosen"); };
    chkAcopla.onClick = [this] { note("tick"); };
    Toolbar1.onButtonClick = [this](int index) { note("bar" + runtime::CStr(std::int64_t{index})); };
    Toolbar1.onMenuClick = [this](const std::string& key) { note("menu" + key); };
}

void BenchForm::wireQuestions() {
    cmdPregunta.onClick = [this] {
        const Answer answer = screen_.show({.text = "¿Seguro?\r\nNo hay \"vuelta\"",
                                            .icon = Icon::question,
                                            .buttons = Buttons::yesNo,
                                            .title = "Borrar"});
        Text1(0).setText(answer == Answer::yes ? "sí" : "no");
    };
    cmdAviso.onClick = [this] { screen_.show({.text = "Listo", .icon = Icon::information}); };
    cmdBuscar.onClick = [this] {
        const auto row = screen_.search(
            {.title = "Clientes",
             .searchColumn = "N",
             .firstCaption = "C",
             .secondCaption = "N",
             .rows = sql::Recordset(sql::rowsInMemory({{"K"}, {"C"}, {"N"}}, {{1, 2, "a"}, {2, 3, "b"}}))});
        Text1(0).setText(row ? "fila " + runtime::CStr(static_cast<std::int64_t>(*row)) : "ninguna");
    };
    cmdFichero.onClick = [this] {
        Text1(0).setText(services_.openFileDialog({.title = "Abrir", .filter = ""}).value_or("ninguno"));
    };
}

void BenchForm::fillGrid() {
    dbgFilas.setColumns({{.field = 0, .caption = "Clave", .visible = false},
                         {.field = 1, .caption = "Número", .mask = "000", .button = true},
                         {.field = 2, .caption = "Nombre"}});
    dbgFilas.bind(sql::Recordset(
        sql::rowsInMemory({{"K"}, {"N"}, {"T"}}, {{10, 1, "uno"}, {20, 2, "dos"}, {30, 3, sql::Value{}}})));
    dbgFilas.onButtonClick = [this](int column) { note("cell" + runtime::CStr(std::int64_t{column})); };
    dbgFilas.onKeyDown = [this](KeyDown& down) { note(down.key == Key::f8 ? "gridF8" : "gridkey"); };
}

namespace {

/// The form under the names by which scripts open it, and what is done to it before.
const std::map<std::string, std::function<void(BenchForm&)>>& preparations() {
    static const std::map<std::string, std::function<void(BenchForm&)>> all{
        {"banco", [](BenchForm&) {}},
        {"disabled", [](BenchForm& form) { form.txtDentro.setEnabled(false); }},
        {"hidden", [](BenchForm& form) { form.txtDentro.setVisible(false); }},
        {"locked", [](BenchForm& form) { form.txtDentro.setLocked(true); }},
        {"frame-disabled", [](BenchForm& form) { form.Frame1.setEnabled(false); }},
        {"frame-hidden", [](BenchForm& form) { form.Frame1.setVisible(false); }},
        {"form-disabled", [](BenchForm& form) { form.setEnabled(false); }},
    };
    return all;
}

}  // namespace

Workbench::Workbench() {
    database.answers("select uno", {{"Nº"}, {"Texto"}}, {{1, "a"}, {12.7, sql::Value{}}});
    database.answers("select nada", {{"A"}}, {});
    database.answers("delete", {}, {});
}

Played Workbench::play(std::string_view script) {
    std::ostringstream out;
    std::istringstream in{std::string(script)};
    Journal journal(out);
    Answers answers;
    ScriptScreen screen(journal, answers);
    ScriptServices services(journal, answers);
    WatchedConnection program(database);
    if (traces) {
        program.onStatement([&](std::string_view statement) { journal.line("sql> " + std::string(statement)); });
    }
    std::string faults;
    std::string events;
    Operations operations;
    const auto show = [&](const std::function<void(BenchForm&)>& prepare) {
        BenchForm form(screen, services, program);
        prepare(form);
        try {
            screen.showModal(form);
        } catch (...) {
            events = form.events;
            throw;
        }
        events = form.events;
    };
    for (const auto& [name, prepare] : preparations()) {
        operations.open[name] = [&show, prepare](const Operations::Arguments&) { show(prepare); };
    }
    operations.open["frente"] = [&](const Operations::Arguments&) {
        Form front("frmFrente");
        show([&](BenchForm& form) { form.onActivate = [&] { screen.showModal(front); }; });
    };
    operations.call["longitud"] = [&](const Operations::Arguments& arguments) {
        const Control* box = screen.forms().back()->find(arguments.at(0).text);
        return "longitud = " + runtime::CStr(static_cast<std::int64_t>(textOf(*box).size()));
    };
    operations.call["doble"] = [](const Operations::Arguments& arguments) {
        const auto number = wholeNumber(arguments.at(0).text);
        if (!number) {
            throw WrongScript("no number");
        }
        return "doble = " + runtime::CStr(std::int64_t{*number} * 2);
    };
    ScriptReader reader(in);
    Interpreter interpreter({journal, answers, screen, program, database, operations}, reader,
                            [&](std::string_view reason) { faults.append(reason) += '\n'; });
    const Status status = interpreter.run();
    return {status, out.str(), faults, events};
}

Played play(std::string_view script) {
    return Workbench().play(script);
}

}  // namespace velmora::script::testing
