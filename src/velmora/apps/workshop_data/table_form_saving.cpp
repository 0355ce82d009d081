// Saving and deleting a row of a table.

#include <algorithm>
#include <utility>

#include "velmora/apps/workshop_data/table_form.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::workshop_data {

using session::RowState;
using session::Written;

std::string TableForm::withKey(const RowTexts& texts) const {
    return std::string(table_.one) + " " + shownKey(table_, texts);
}

void TableForm::refuse(const std::string& words) const {
    desk_.screen.show({.text = words, .icon = screen::Icon::exclamation, .title = caption()});
}

bool TableForm::save() {
    if (!isBusy()) {
        status().tellNote("No hay cambios que grabar");
        return true;
    }
    const RowTexts texts = typed();
    RowCheck check;
    runtime::ErrorTrap trap;
    trap([&] {
        references_ = store_.references();
        check = checkRow(table_, references_, GivenTexts(texts.begin(), texts.end()), current_ ? &*current_ : nullptr);
    });
    if (!trap.failed() && !check.faults.empty()) {
        tellFault(check.faults.front());
        return false;
    }
    bool written = false;
    trap([&] { written = !trap.failed() && write(check); });
    if (trap.failed()) {
        refuse("No se ha grabado nada.\n\n" + trap.error()->description());
        return false;
    }
    if (!written) {
        return false;
    }
    adding_ = false;
    begun_ = typed();
    reload();
    list_.goTo(keyOf(table_, check.texts));
    status().tellDeed("Se ha grabado " + withKey(check.texts) + " a las " +
                      runtime::Format(desk_.clock.now(), "hh:nn"));
    if (cmdNuevo_.canTakeFocus()) {
        cmdNuevo_.setFocus();
    }
    return true;
}

bool TableForm::write(const RowCheck& check) {
    std::string reason;
    const auto writeRow = [&] {
        if (isTaken(check)) {
            reason = "Ya existe " + withKey(check.texts) + ".";
            return false;
        }
        if (!current_) {
            store_.insert(check.writes);
        } else if (!check.writes.empty()) {
            store_.update(*current_, check.writes);
        }
        return true;
    };
    const Written written =
        session::writeChecked(session_.Connection(), desk_.screen, desk_.clock,
                              {.look = [&] { return look(check, reason); },
                               .write = writeRow,
                               .question = "Otro usuario ha cambiado " + std::string(table_.one) +
                                           " desde que se mostró.\n¿Desea grabar encima de sus cambios?"});
    if (written == Written::closed || written == Written::refused) {
        refuse(reason + "\n\nNo se ha grabado nada.");
    }
    return written == Written::yes;
}

RowState TableForm::look(const RowCheck& check, std::string& reason) const {
    if (!current_) {
        return RowState::asShown;
    }
    const auto now = store_.find(current_->where, references_);
    if (!now) {
        reason = "Otro usuario ha eliminado " + withKey(current_->texts) + ".";
        return RowState::closed;
    }
    if (const std::string uses = store_.usesOf(*current_, check.writes); !uses.empty()) {
        reason = "No se puede cambiar " + withKey(current_->texts) + " porque está en uso (" + uses + ").";
        return RowState::closed;
    }
    return now->texts == current_->texts ? RowState::asShown : RowState::changed;
}

bool TableForm::isTaken(const RowCheck& check) const {
    const std::string key = keyOf(table_, check.texts);
    return std::ranges::any_of(store_.all(references_), [&](const StoredRow& row) {
        return keyOf(table_, row.texts) == key && (!current_ || row.where != current_->where);
    });
}

void TableForm::tellFault(const CellFault& fault) {
    if (fault.column >= fields_.size()) {
        refuse(fault.reason);
        return;
    }
    EntryField& field = *fields_[fault.column];
    refuse(std::string(field.column().caption) + ": " + fault.reason + ".");
    if (field.control().canTakeFocus()) {
        field.control().setFocus();
    }
}

void TableForm::remove() {
    if (isBusy() || !current_) {
        return;
    }
    runtime::ErrorTrap trap;
    bool removed = false;
    trap([&] { removed = removeNow(); });
    if (trap.failed()) {
        refuse("No se ha eliminado nada.\n\n" + trap.error()->description());
    } else if (removed) {
        reload();
    }
}

bool TableForm::removeNow() {
    const StoredRow row = *current_;
    const auto refuseUsed = [&](const std::string& uses) {
        refuse("No se puede eliminar " + withKey(row.texts) + " porque está en uso (" + uses + ").");
        return false;
    };
    if (const std::string uses = store_.usesOf(row); !uses.empty()) {
        return refuseUsed(uses);
    }
    const screen::Answer answer = desk_.screen.show({.text = "¿Desea eliminar " + withKey(row.texts) + "?",
                                                     .icon = screen::Icon::question,
                                                     .buttons = screen::Buttons::yesNo,
                                                     .title = caption(),
                                                     .defaultButton = 2});
    if (answer != screen::Answer::yes) {
        return false;
    }
    std::string uses;
    const auto lookAgain = [&] {
        const auto now = store_.find(row.where, references_);
        uses = now ? store_.usesOf(row) : "";
        if (!now || !uses.empty()) {
            return RowState::closed;
        }
        return now->texts == row.texts ? RowState::asShown : RowState::changed;
    };
    const auto erase = [&] {
        store_.remove(row);
        return true;
    };
    const Written written =
        session::writeChecked(session_.Connection(), desk_.screen, desk_.clock,
                              {.look = lookAgain,
                               .write = erase,
                               .question = "Otro usuario ha cambiado " + std::string(table_.one) +
                                           " desde que se mostró.\n¿Desea eliminar la fila de todos modos?"});
    if (written == Written::closed && !uses.empty()) {
        return refuseUsed(uses);
    }
    if (written == Written::yes) {
        status().tellDeed("Se ha eliminado " + withKey(row.texts));
    }
    return written == Written::yes || written == Written::closed;
}

}  // namespace velmora::workshop_data
