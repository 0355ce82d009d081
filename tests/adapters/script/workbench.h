#pragma once
// A small form with every kind of control and a database of one table, for scripts to play on.

#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/adapters/script/script_services.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::script::testing {

/// Answers known statements with rows, everything else with a missing table.
class FakeConnection final : public sql::Connection {
  public:
    void answers(std::string statement, std::vector<sql::Column> columns, std::vector<sql::Row> rows);

    sql::Recordset execute(std::string_view statement) override;
    void beginTrans() override { log.push_back("begin"); }
    void commitTrans() override { log.push_back("commit"); }
    void rollbackTrans() override { log.push_back("rollback"); }
    std::string currentCatalog() const override { return "TALLER"; }
    bool isAlive() override { return true; }

    std::vector<std::string> log;

  private:
    struct Set {
        std::vector<sql::Column> columns;
        std::vector<sql::Row> rows;
    };
    std::map<std::string, Set, std::less<>> sets_;
};

/// Events append to `events`.
class BenchForm final : public screen::Form {
  public:
    BenchForm(screen::Screen& screen, system::Services& services, sql::Connection& connection);

    std::string events;

    screen::ControlArray<screen::TextBox> Text1{*this, "Text1", {{0, 2}}};
    screen::TextBox txtNotas{*this, "txtNotas"};
    screen::ComboBox cboTipo{*this, "cboTipo"};
    screen::ComboBox cboLibre{*this, "cboLibre"};
    screen::CheckBox chkAcopla{*this, "chkAcopla"};
    screen::Frame Frame1{*this, "Frame1"};
    screen::TextBox txtDentro{*this, "txtDentro"};
    screen::Label lblTitulo{*this, "lblTitulo"};
    screen::Button cmdOtra{*this, "cmdOtra"};
    screen::Button cmdPregunta{*this, "cmdPregunta"};
    screen::Button cmdAviso{*this, "cmdAviso"};
    screen::Button cmdBuscar{*this, "cmdBuscar"};
    screen::Button cmdFichero{*this, "cmdFichero"};
    screen::Button cmdError{*this, "cmdError"};
    screen::Button cmdLeer{*this, "cmdLeer"};
    screen::Button cmdSalir{*this, "cmdSalir"};
    screen::DataGrid dbgFilas{*this, "dbgFilas"};
    screen::Toolbar Toolbar1{*this, "Toolbar1"};
    screen::Sketch picPieza{*this, "picPieza"};

  private:
    void wireFields();
    void wireButtons();
    void wireQuestions();
    void fillGrid();
    void note(std::string_view event) { events.append(events.empty() ? "" : " ").append(event); }

    screen::Screen& screen_;
    system::Services& services_;
    sql::Connection& connection_;
};

/// What playing a script gave.
struct Played {
    Status status;
    std::string out;
    std::string faults;
    std::string events;  ///< of the form that was opened last by the script itself
};

/// Plays a script. `open banco` opens the form, other names open it as they say (`open locked`: txtDentro is locked),
/// `open frente` with an empty form over it. `call doble N` gives twice N, `call longitud NAME` the bytes of a text.
class Workbench {
  public:
    Workbench();
    Played play(std::string_view script);

    FakeConnection database;
    bool traces = false;
};

Played play(std::string_view script);

}  // namespace velmora::script::testing
