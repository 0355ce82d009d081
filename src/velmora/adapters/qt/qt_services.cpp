#include "velmora/adapters/qt/qt_services.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QUrl>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {

constexpr int opened = 33;
constexpr int fileNotFound = 2;
constexpr int accessDenied = 5;
constexpr int noAssociation = 31;

/// How long to wait for the desktop's opener to report that it found no program. If it is still running then, it has
/// passed the file on or is the program itself.
constexpr int patience = 2000;  // ms

/// Openers that are still running, most likely the programs themselves. They are never terminated, not even when this
/// program ends, and therefore never destroyed while they run.
QSet<QProcess*>& atWork() {
    static auto& all = *new QSet<QProcess*>;
    return all;
}

/// Runs the desktop's own opener, which unlike the toolkit's function reports whether a program opened the file.
int openWith(const QString& opener, const QString& path) {
    auto* process = new QProcess;
    QObject::connect(process, &QProcess::finished, process, [process] {
        atWork().remove(process);
        process->deleteLater();
    });
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(opener, {path});
    if (!process->waitForStarted()) {
        delete process;
        return noAssociation;
    }
    if (!process->waitForFinished(patience)) {
        atWork().insert(process);
        return opened;
    }
    if (process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0) {
        return opened;
    }
    return process->exitCode() == fileNotFound ? fileNotFound : noAssociation;
}

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
    const auto folder = folder_.path();
    return folder ? folder->string() + "/" : std::string();
}

std::optional<std::string> QtServices::openFileDialog(const system::OpenFileRequest& request) {
    QWidget* parent = QApplication::activeModalWidget();
    QFileDialog dialog(parent != nullptr ? parent : QApplication::activeWindow(), toQt(request.title));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(request.filter));
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("&Abrir"));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("&Cancelar"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo:"));
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Buscar en:"));
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
    if (!file.isReadable()) {
        return accessDenied;
    }
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty()) {
        return openWith(opener, file.absoluteFilePath());
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath())) ? opened : noAssociation;
}

bool QtServices::copyToClipboard(std::string_view text) {
    QApplication::clipboard()->setText(toQt(text));
    return true;
}

}  // namespace velmora::qt
