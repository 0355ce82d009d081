#include "velmora/adapters/qt/save_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

std::optional<std::string> chooseTarget(const std::string& title, const std::string& fileName) {
    const QString ending = QFileInfo(toQt(fileName)).suffix();
    QWidget* parent = QApplication::activeModalWidget();
    QFileDialog dialog(parent != nullptr ? parent : QApplication::activeWindow(), toQt(title),
                       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(
        {ending.toUpper() + QStringLiteral(" (*.") + ending + QStringLiteral(")"), QStringLiteral("Todos (*)")});
    dialog.setDefaultSuffix(ending);
    dialog.selectFile(toQt(fileName));
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("&Guardar"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("&Cancelar"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo:"));
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Guardar en:"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return fromQt(QDir::toNativeSeparators(dialog.selectedFiles().front()));
}

}  // namespace velmora::qt
