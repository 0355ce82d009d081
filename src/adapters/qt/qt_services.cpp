#include "velmora/adapters/qt/qt_services.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {
constexpr int opened = 33;
constexpr int fileNotFound = 2;
constexpr int noAssociation = 31;
}  // namespace

QStringList nameFilters(std::string_view filter) {
    const QStringList parts = toQt(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i];
        if (const qsizetype patterns = name.indexOf(QLatin1String(" (")); patterns >= 0) {
            name.truncate(patterns);
        }
        QString masks = parts[i + 1];
        masks.replace(QLatin1Char(';'), QLatin1Char(' '));
        // "*.*" means every file, also one without an extension.
        masks.replace(QLatin1String("*.*"), QLatin1String("*"));
        filters.append(name + QLatin1String(" (") + masks + QLatin1Char(')'));
    }
    return filters;
}

std::string QtServices::temporaryFolder() const {
    return fromQt(QDir::toNativeSeparators(QDir::tempPath() + QLatin1Char('/')));
}

std::optional<std::string> QtServices::openFileDialog(const system::OpenFileRequest& request) {
    QWidget* parent = QApplication::activeModalWidget();
    QFileDialog dialog(parent != nullptr ? parent : QApplication::activeWindow(), toQt(request.title));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(request.filter));
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("&Abrir"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("&Cancelar"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("&Tipo:"));
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("&Buscar en:"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return fromQt(QDir::toNativeSeparators(dialog.selectedFiles().front()));
}

int QtServices::openWithAssociatedProgram(std::string_view path) {
    const QFileInfo file(toQt(path));
    if (!file.exists()) {
        return fileNotFound;
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath())) ? opened : noAssociation;
}

}  // namespace velmora::qt
