#include "velmora/proposal/price_explanation_form.h"

#include <algorithm>
#include <utility>

#include "velmora/platform/runtime/text.h"

namespace velmora::proposal {

namespace {

namespace lay = screen::layout;

constexpr int linesOfWords = 18;
constexpr int digitsOfWords = 46;

std::string valueWithUnit(const estimate::Explanation& figure) {
    return figure.unit.empty() || figure.shown.empty() ? figure.shown : figure.shown + " " + figure.unit;
}

}  // namespace

std::string textOfAll(const std::string& subject, const std::vector<estimate::Explanation>& figures) {
    std::string text = "Por qué este precio: " + subject + "\n";
    const estimate::Explanation* before = nullptr;
    for (const estimate::Explanation& figure : figures) {
        if (before == nullptr || before->topic != figure.topic) {
            text += "\n" + std::string(wordsOf(figure.topic)) + "\n";
        }
        text += "\n" + estimate::textOf(figure) + "\n";
        before = &figure;
    }
    return text;
}

PriceExplanationForm::PriceExplanationForm(platform::Desk& desk, std::string subject,
                                           std::vector<estimate::Explanation> figures)
    : Form("frmPorque"), desk_(desk), subject_(std::move(subject)), explained_(std::move(figures)) {
    setCaption("¿Por qué este precio? " + subject_);
    arrange();
    wire();
    list();
}

void PriceExplanationForm::arrange() {
    dbgCifras_.setAccessibleName("Cifras de la propuesta");
    dbgCifras_.setColumns({{.field = 0, .caption = "Apartado", .width = 1900},
                           {.field = 1, .caption = "Cifra", .width = 2900},
                           {.field = 2, .caption = "Valor", .width = 1700, .right = true},
                           {.field = 3, .caption = "Cómo está", .width = 1700}});
    txtPorque_.setMultiLine(true);
    txtPorque_.setLocked(true);
    cmdCopiar_.setCaption("&Copiar todo");
    cmdImprimir_.setCaption("&Imprimir");
    cmdEscala_.setCaption("&Escala de precios…");
    cmdSalir_.setCaption("&Salir (ESC)");
    cmdImprimir_.setEnabled(false);
    cmdEscala_.setEnabled(false);
    setLayout(
        lay::column(lay::row(lay::plain(dbgCifras_).stretched(),
                             lay::field("Por qué", txtPorque_, digitsOfWords).tall(linesOfWords).above().stretched())
                        .stretched(),
                    lay::row(lay::plain(cmdCopiar_), lay::plain(cmdImprimir_), lay::plain(cmdEscala_), lay::space(),
                             lay::plain(cmdSalir_))));
    setTabOrder({&dbgCifras_, &txtPorque_, &cmdCopiar_, &cmdImprimir_, &cmdEscala_, &cmdSalir_});
}

void PriceExplanationForm::wire() {
    rows_.onMoveComplete = [this] { showCurrent(); };
    cmdCopiar_.onClick = [this] { copyAll(); };
    cmdImprimir_.onClick = [this] { print_(); };
    cmdEscala_.onClick = [this] { showLadder_(); };
    cmdSalir_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& key) { passKeysOfSideWindow(key); };
}

void PriceExplanationForm::list() {
    std::vector<sql::Row> rows;
    for (const estimate::Explanation& figure : explained_) {
        rows.push_back({std::string(wordsOf(figure.topic)), figure.title, valueWithUnit(figure),
                        std::string(wordsOf(figure.origin))});
    }
    rows_ = sql::Recordset(sql::rowsInMemory({{"Apartado"}, {"Cifra"}, {"Valor"}, {"Estado"}}, std::move(rows)));
    dbgCifras_.bind(*rows_);
}

void PriceExplanationForm::choose(const screen::TextBox& field) {
    const auto found = std::ranges::find(explained_, &field, &estimate::Explanation::field);
    if (found != explained_.end()) {
        rows_->moveTo(static_cast<std::size_t>(found - explained_.begin()));
    }
}

void PriceExplanationForm::showCurrent() {
    const std::optional<std::size_t> current = rows_->position();
    txtPorque_.setText(current ? runtime::Replace(estimate::textOf(explained_[*current]), "\n", "\r\n") : "");
}

void PriceExplanationForm::setPrinting(std::function<void()> print) {
    print_ = std::move(print);
    cmdImprimir_.setEnabled(static_cast<bool>(print_));
}

void PriceExplanationForm::setLadder(std::function<void()> showLadder) {
    showLadder_ = std::move(showLadder);
    cmdEscala_.setEnabled(static_cast<bool>(showLadder_));
}

void PriceExplanationForm::copyAll() {
    if (desk_.services.copyToClipboard(textOfAll(subject_, explained_))) {
        status().tellDeed("Copiado al portapapeles");
    } else {
        status().tellNote("No se ha podido copiar: no hay portapapeles");
    }
}

}  // namespace velmora::proposal
