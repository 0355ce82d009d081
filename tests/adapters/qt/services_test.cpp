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

TEST(Services, AMissingFileIsAFailureCode) {
    const int code = qt::QtServices().openWithAssociatedProgram("/no/such/file.pdf");
    EXPECT_GE(code, 0);
    EXPECT_LE(code, 32);
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
