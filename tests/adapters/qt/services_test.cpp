#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "velmora/adapters/qt/picture.h"
#include "velmora/adapters/qt/qt_services.h"

#include "qt_bench.h"
#include "sample_form.h"

namespace velmora::testing {
namespace {

TEST(Services, TheTemporaryFolderExistsAndEndsInASeparator) {
    const std::string folder = qt::QtServices().temporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(folder.back(), '/');
    EXPECT_TRUE(QDir(QString::fromStdString(folder)).exists());
}

TEST(Services, TheTemporaryFolderIsTheProgramsOwnAndClosedToOthers) {
    const QTemporaryDir root;
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", root.path().toUtf8());
    const qt::QtServices services;
    const QString folder = QString::fromStdString(services.temporaryFolder());
    EXPECT_TRUE(folder.startsWith(root.path() + "/velmora-")) << folder.toStdString();
    EXPECT_EQ(QFile::permissions(folder) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                                            QFile::WriteOther | QFile::ExeOther),
              QFile::Permissions());
    EXPECT_EQ(services.temporaryFolder(), folder.toStdString());
    qputenv("TMPDIR", "/no/such/folder");
    EXPECT_EQ(services.temporaryFolder(), "") << "neither the current folder nor any other";
    before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
}

class ServicesOnAScreen : public ::testing::Test, protected QtHand {};

TEST_F(ServicesOnAScreen, ATextIsCopiedToTheClipboard) {
    EXPECT_TRUE(qt::QtServices().copyToClipboard("Ø Primitivo: 153,79 mm"));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Ø Primitivo: 153,79 mm"));
}

TEST(Services, AMissingFileIsAFailureCode) {
    EXPECT_EQ(qt::QtServices().openWithAssociatedProgram("/no/such/file.pdf"), 2);
}

/// Replaces the desktop's opener by the given script for the duration of its lifetime.
class DesktopWithOpener {
  public:
    explicit DesktopWithOpener(const char* script) : before_(qgetenv("PATH")) {
        QFile opener(folder_.filePath("xdg-open"));
        EXPECT_TRUE(opener.open(QIODevice::WriteOnly));
        opener.write(QByteArray("#!/bin/sh\n") + script + "\n");
        opener.close();
        opener.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        QFile document(folder_.filePath("plano 7ª.pdf"));
        EXPECT_TRUE(document.open(QIODevice::WriteOnly));
        qputenv("PATH", folder_.path().toUtf8() + ":" + before_);
    }
    ~DesktopWithOpener() { qputenv("PATH", before_); }
    DesktopWithOpener(const DesktopWithOpener&) = delete;
    DesktopWithOpener& operator=(const DesktopWithOpener&) = delete;

    int open() const {
        return qt::QtServices().openWithAssociatedProgram(folder_.filePath("plano 7ª.pdf").toStdString());
    }
    bool was(const char* name) const { return QFile::exists(folder_.filePath(name)); }

  private:
    QTemporaryDir folder_;
    QByteArray before_;
};

TEST(Services, WhatTheDesktopsOpenerSaysIsTheCode) {
    EXPECT_GT(DesktopWithOpener("exit 0").open(), 32);
    EXPECT_EQ(DesktopWithOpener("exit 2").open(), 2);
    EXPECT_EQ(DesktopWithOpener("exit 3").open(), 31);
    EXPECT_EQ(DesktopWithOpener("exit 4").open(), 31);
    EXPECT_EQ(DesktopWithOpener("kill -9 $$").open(), 31);
}

TEST(Services, TheOpenerIsGivenTheWholePath) {
    const DesktopWithOpener desktop("cp \"$1\" \"$(dirname \"$0\")/copia\"");
    EXPECT_GT(desktop.open(), 32);
    EXPECT_TRUE(desktop.was("copia"));
}

TEST(Services, AnOpenerThatStaysHasTheFile) {
    EXPECT_GT(DesktopWithOpener("exec sleep 4").open(), 32);
}

TEST(Services, FiltersAreReadInPairs) {
    EXPECT_EQ(qt::nameFilters("Todos (*.*)|*.*"), QStringList{"Todos (*)"});
    EXPECT_EQ(qt::nameFilters("Textos|*.txt;*.log|Todos (*.*)|*.*"),
              (QStringList{"Textos (*.txt *.log)", "Todos (*)"}));
    EXPECT_TRUE(qt::nameFilters("").isEmpty());
}

class Pictures : public QtBench {};

TEST_F(Pictures, AFormIsWrittenAtTheSizeAsked) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("form.png");
    SampleForm form;
    ASSERT_TRUE(qt::picture(*screen_, form, path.toStdString(), {1000, 700}));
    EXPECT_EQ(QImage(path).size(), QSize(1000, 700));
    EXPECT_FALSE(qt::picture(*screen_, form, "/no/such/folder/form.png"));
}

}  // namespace
}  // namespace velmora::testing
