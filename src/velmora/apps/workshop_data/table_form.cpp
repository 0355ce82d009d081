#include "velmora/apps/workshop_data/table_form.h"

#include <algorithm>
#include <utility>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

// Widths of the search window in twips.
constexpr int codeWidth = 2400;
constexpr int nameWidth = 6000;

std::string capitalized(std::string_view words) {
    return runtime::UCase(words.substr(0, 1)) + std::string(words.substr(1));
}

}  // namespace

TableForm::TableForm(session::Session& session, platform::Desk& desk, const Table& table, ChooseTarget chooseTarget)
    : Form("frmTabla"),
      session_(session),
      desk_(desk),
      table_(table),
      store_(session, table),
      files_(session, desk, store_, std::move(chooseTarget)),
      util_(desk.screen, session.Connection()) {
    util_.ColorFoco(screen::colors::yellow);
    util_.ColorNormal(screen::colors::white);
    setCaption(table.title);
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        fields_.push_back(std::make_unique<EntryField>(*this, table.columns[i], static_cast<int>(i), util_,
                                                       [this] { fieldChanged(); }));
    }
    arrange();
    wire();
    status().setStateSource([this] {
        return screen::RecordState{.standing = adding_ ? screen::Standing::fresh : screen::Standing::none,
                                   .unsaved = isDirty()};
    });
    reload();
    if (list_.count() == 0) {
        startRow();
    }
}

void TableForm::wire() {
    onKeyDown = [this](screen::KeyDown& key) { Form_KeyDown(key); };
    list_.onMoved = [this] { showCurrent(); };
    txtBuscar_.onGotFocus = [this] { util_.EntrarCampo(txtBuscar_); };
    txtBuscar_.onLostFocus = [this] { util_.SalirCampo(txtBuscar_); };
    txtBuscar_.onChange = [this] { list_.search(txtBuscar_.text()); };
    cmdNuevo_.onClick = [this] { beginNew(); };
    cmdGrabar_.onClick = [this] { save(); };
    cmdDeshacer_.onClick = [this] { undo(); };
    cmdBorrar_.onClick = [this] { remove(); };
    cmdBuscarReferencia_.onClick = [this] { searchReference(); };
    cmdImportar_.onClick = [this] { importRows(); };
    cmdExportar_.onClick = [this] { exportRows(); };
    cmdSalir_.onClick = [this] { requestClose(); };
    for (const auto& field : fields_) {
        if (auto* box = dynamic_cast<screen::TextBox*>(&field->control());
            box != nullptr && field->column().reference != nullptr) {
            box->onDblClick = [this] { searchReference(); };
        }
    }
}

void TableForm::Form_KeyDown(screen::KeyDown& key) {
    using screen::Key;
    const Key pressed = std::exchange(key.key, Key::none);
    switch (pressed) {
        case Key::escape:
            requestClose();
            break;
        case Key::f1:
            searchReference();
            break;
        case Key::f2:
            if (txtBuscar_.canTakeFocus()) {
                txtBuscar_.setFocus();
            }
            break;
        case Key::f4:
            beginNew();
            break;
        case Key::f5:
            save();
            break;
        case Key::f6:
            remove();
            break;
        case Key::f9:
            undo();
            break;
        case Key::enter:
            // On a button Enter presses it, so that rows can be typed one after the other with Enter alone.
            if (dynamic_cast<screen::Button*>(activeControl()) != nullptr) {
                key.key = pressed;
            } else {
                tabForward();
            }
            break;
        default:
            key.key = pressed;
            passUsualKeys(key);
            break;
    }
}

// --- The row in the fields -----------------------------------------------------------------------------------------

void TableForm::reload() {
    references_ = store_.references();
    list_.show(store_.all(references_), references_);
}

void TableForm::showCurrent() {
    const StoredRow* row = list_.current();
    current_ = row == nullptr ? std::nullopt : std::optional(*row);
    adding_ = false;
    fill(row == nullptr ? RowTexts(table_.columns.size()) : row->texts);
}

void TableForm::fill(const RowTexts& texts) {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        fields_[i]->show(texts[i], references_);
    }
    begun_ = typed();
    refreshState();
}

RowTexts TableForm::typed() const {
    RowTexts texts;
    std::ranges::transform(fields_, std::back_inserter(texts), [](const auto& field) { return field->text(); });
    return texts;
}

void TableForm::fieldChanged() {
    for (const auto& field : fields_) {
        field->nameReference(references_);
    }
    refreshState();
}

void TableForm::refreshState() {
    const bool busy = isBusy();
    fraFila_.setEnabled(adding_ || current_.has_value());
    txtBuscar_.setEnabled(!busy);
    dbgFilas_.setEnabled(!busy);
    cmdImportar_.setEnabled(!isDirty());
    cmdNuevo_.setEnabled(!busy);
    cmdGrabar_.setEnabled(busy);
    cmdDeshacer_.setEnabled(busy);
    cmdBorrar_.setEnabled(!busy && current_.has_value());
    cmdExportar_.setEnabled(!busy && list_.count() > 0);
    cmdBuscarReferencia_.setEnabled(fraFila_.enabled());
    fraFila_.setCaption(adding_ ? table_.newOne : capitalized(table_.one.substr(table_.one.find(' ') + 1)));
    lblEstado_.setCaption(stateInWords());
}

std::string TableForm::stateInWords() const {
    if (isDirty()) {
        return (adding_ ? std::string(table_.newOne) : "Cambios") + " sin grabar: F5 graba, F9 deshace.";
    }
    if (adding_) {
        return std::string(table_.newOne) + ".";
    }
    return list_.shownCount() == list_.count()
               ? std::string()
               : "Se muestran " + countText(list_.shownCount()) + " de " + countText(list_.count()) + " filas.";
}

void TableForm::startRow() {
    adding_ = true;
    current_.reset();
    RowTexts texts;
    std::ranges::transform(table_.columns, std::back_inserter(texts),
                           [](const Column& column) { return std::string(column.onNew); });
    fill(texts);
}

void TableForm::beginNew() {
    if (isBusy()) {
        return;
    }
    startRow();
    if (fields_.front()->control().canTakeFocus()) {
        fields_.front()->control().setFocus();
    }
}

void TableForm::undo() {
    if (!isBusy()) {
        return;
    }
    if (adding_ && list_.count() == 0) {
        startRow();
    } else if (adding_) {
        showCurrent();
    } else {
        fill(begun_);
    }
}

void TableForm::searchReference() {
    const auto active = std::ranges::find_if(fields_, [this](const auto& field) {
        return field->column().reference != nullptr && &field->control() == activeControl();
    });
    const auto found = active != fields_.end() ? active : std::ranges::find_if(fields_, [](const auto& field) {
        return field->column().reference != nullptr;
    });
    if (found == fields_.end() || !(*found)->control().canTakeFocus()) {
        return;
    }
    const Reference& reference = *(*found)->column().reference;
    const std::string key(reference.key);
    const std::string row = util_.Buscar(
        "SELECT " + key + "," + std::string(reference.code) + " AS Codigo," + std::string(reference.name) +
            " AS Nombre FROM " + std::string(reference.table) + " ORDER BY " + std::string(reference.name),
        "Nombre", reference.codeCaption, reference.nameCaption, reference.search, codeWidth, nameWidth, false);
    const std::vector<std::string> parts = session::columnsOf(row);
    if (parts.size() > 1) {
        references_ = store_.references();
        (*found)->enter(parts[1]);
        (*found)->control().setFocus();
    }
}

// --- Leaving -------------------------------------------------------------------------------------------------------

// Chosen C-460: Esc, "Salir" and the window's frame ask about a row that was typed and not saved. The main form's Esc
// asks nothing, because it is required so; here the row would be lost without a trace.
void TableForm::requestClose() {
    if (isDirty()) {
        const screen::Answer answer = desk_.screen.show({.text = "Hay cambios sin grabar. ¿Desea grabarlos?",
                                                         .icon = screen::Icon::question,
                                                         .buttons = screen::Buttons::yesNoCancel,
                                                         .title = caption()});
        if (answer == screen::Answer::cancel || (answer == screen::Answer::yes && !save())) {
            return;
        }
    }
    unload();
}

// --- Files ---------------------------------------------------------------------------------------------------------

void TableForm::importRows() {
    if (isDirty()) {
        return;
    }
    if (const std::string done = files_.importFile(); !done.empty()) {
        reload();
        status().tellDeed(done);
    }
}

void TableForm::exportRows() {
    if (const std::string done = files_.exportFile(); !done.empty()) {
        status().tellDeed(done);
    }
}

}  // namespace velmora::workshop_data
