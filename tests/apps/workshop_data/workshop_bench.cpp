#include "workshop_bench.h"

#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"

#include "support/database_template.h"

namespace velmora::workshop_data {

namespace {

const runtime::Date morning = runtime::Date::of(2026, 1, 15, 10);

sqlite::Options benchOptions() {
    sqlite::Options options;
    options.clock = [] { return morning; };
    options.busyTimeout = std::chrono::milliseconds(200);
    return options;
}

class CancellableProgress : public screen::Progress {
  public:
    explicit CancellableProgress(bool cancels) : cancels_(cancels) {}
    bool cancelled() override { return cancels_; }

  private:
    bool cancels_;
};

}  // namespace

std::unique_ptr<sql::Connection> emptyDatabase(const std::string& path) {
    static const support::DatabaseTemplate empty(data::createDatabase, benchOptions());
    return empty.copy(path, benchOptions());
}

std::unique_ptr<sql::Connection> demoDatabase(const std::string& path) {
    static const support::DatabaseTemplate demo(
        [](sql::Connection& database) {
            data::createDatabase(database);
            data::fillDemo(database, morning);
        },
        benchOptions());
    return demo.copy(path, benchOptions());
}

std::unique_ptr<sql::Connection> openDatabase(const std::string& path) {
    return sqlite::openDatabase(path, benchOptions());
}

std::unique_ptr<screen::Progress> DataScreen::progress(std::string_view) {
    return std::make_unique<CancellableProgress>(cancels);
}

Workshop::Workshop(std::unique_ptr<sql::Connection> opened)
    : database(std::move(opened)), connection(*database), session(connection) {}

std::string Workshop::query(const std::string& statement) {
    std::string all;
    for (sql::Recordset set = database->execute(statement); !set.eof(); set.moveNext()) {
        all += all.empty() ? "" : "\n";
        for (std::size_t i = 0; i < set.columns().size(); ++i) {
            all += (i == 0 ? "" : "\t") + (set[i].isNull() ? std::string("NULL") : set[i].toText());
        }
    }
    return all;
}

std::vector<RowTexts> Workshop::rowsOf(const char* table) {
    const TableStore store(session, *findTable(table));
    std::vector<RowTexts> texts;
    for (StoredRow& row : store.all(store.references())) {
        texts.push_back(std::move(row.texts));
    }
    return texts;
}

FormUser::FormUser(Workshop& workshop, const char* table)
    : table_(*findTable(table)),
      form_(workshop.session, workshop.desk, table_, [&workshop](const std::string&, const std::string&) {
          auto target = workshop.targets.front();
          workshop.targets.pop_front();
          return target;
      }) {
    form_.activate();
}

screen::Control& FormUser::control(const std::string& name) {
    screen::Control* found = form_.find(name);
    if (found == nullptr) {
        throw std::logic_error("no control " + name);
    }
    return *found;
}

std::string FormUser::text(const std::string& name) {
    screen::Control& found = control(name);
    if (const auto* box = dynamic_cast<screen::TextBox*>(&found)) {
        return box->text();
    }
    if (const auto* list = dynamic_cast<screen::ComboBox*>(&found)) {
        return list->text();
    }
    if (const auto* box = dynamic_cast<screen::CheckBox*>(&found)) {
        return box->checked() ? "Sí" : "No";
    }
    return dynamic_cast<screen::Captioned&>(found).caption();
}

screen::Control& FormUser::fieldOf(const std::string& column) {
    const std::string index = "(" + std::to_string(positionOf(table_, column)) + ")";
    for (const char* name : {"txtCampo", "cboCampo", "chkCampo"}) {
        if (screen::Control* found = form_.find(name + index)) {
            return *found;
        }
    }
    throw std::logic_error("no field " + column);
}

std::string FormUser::textOf(const std::string& column) {
    return text(fieldOf(column).fullName());
}

void FormUser::enter(const std::string& column, const std::string& text) {
    screen::Control& field = fieldOf(column);
    ASSERT_TRUE(form_.moveFocus(field)) << column << " takes no focus";
    if (auto* box = dynamic_cast<screen::TextBox*>(&field)) {
        box->setText(text);
    } else if (auto* list = dynamic_cast<screen::ComboBox*>(&field)) {
        const auto found = std::ranges::find(list->items(), text);
        ASSERT_NE(found, list->items().end()) << text;
        list->choose(static_cast<int>(found - list->items().begin()));
    } else {
        dynamic_cast<screen::CheckBox&>(field).setChecked(text == "Sí");
    }
}

void FormUser::press(const std::string& button) {
    auto& found = dynamic_cast<screen::Button&>(control(button));
    ASSERT_TRUE(found.isEnabled()) << button << " is disabled";
    found.onClick();
}

void FormUser::key(screen::Key key) {
    form_.keyDown(key);
}

void FormUser::add(const std::vector<std::pair<std::string, std::string>>& values) {
    key(screen::Key::f4);
    for (const auto& [column, text] : values) {
        enter(column, text);
    }
    key(screen::Key::f5);
}

}  // namespace velmora::workshop_data
