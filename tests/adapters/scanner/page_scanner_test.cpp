#include "velmora/adapters/scanner/page_scanner.h"

#include <csignal>

#include <gmock/gmock.h>
#include <sys/resource.h>

#include "velmora/adapters/scanner/scan_process.h"

#include "adapters/sane/test_device.h"
#include "support/command_output.h"
#include "support/fake_screen.h"
#include "support/temporary_folder.h"

namespace velmora::scanner {
namespace {

using ::testing::HasSubstr;
using namespace std::chrono_literals;

class CancellingScreen final : public support::ScriptedScreen {
  public:
    std::unique_ptr<screen::Progress> progress(std::string_view) override {
        class Cancelled final : public screen::Progress {
          public:
            explicit Cancelled(bool cancelled) : cancelled_(cancelled) {}
            bool cancelled() override { return cancelled_; }

          private:
            bool cancelled_;
        };
        return std::make_unique<Cancelled>(cancels);
    }
    bool cancels = false;
};

/// A device that has nothing to say until it is cancelled.
class Silent final : public PageSource {
  public:
    std::vector<Device> devices(Watch&) override { return {{"silent", "Silent"}}; }
    std::optional<Image> scan(const std::string&, Watch& watch) override {
        while (!watch.cancelled()) {
            std::this_thread::sleep_for(5ms);
        }
        return std::nullopt;
    }
};

class PageScannerTest : public ::testing::Test {
  protected:
    PageScannerTest() { component.setFichero(path); }

    screen::ComboBox& list(screen::Form& form) { return dynamic_cast<screen::ComboBox&>(*form.find("cboEscaner")); }
    void press(screen::Form& form, const char* name) { dynamic_cast<screen::Button&>(*form.find(name)).onClick(); }
    std::string info() { return support::outputOf("LC_ALL=C pdfinfo '" + path + "'"); }

    support::TestDevice device;
    support::TemporaryFolder folder;
    std::string path = folder.path() / "DOC202601151000.pdf";
    CancellingScreen screen;
    std::shared_ptr<painting::Graphics> graphics = std::make_shared<painting::Graphics>();
    PageScanner component{screen, std::make_shared<ScanProcess>(VELMORA_SCAN_PROGRAM), graphics};
};

TEST_F(PageScannerTest, AScannedPageIsAPdfOfItsTrueSize) {
    component.jConfig();
    EXPECT_TRUE(component.resultado());
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(folder.files(), std::vector<std::string>{"DOC202601151000.pdf"});
    // 80 by 100 mm are 226.8 by 283.5 points.
    EXPECT_THAT(info(), HasSubstr("Pages:           1"));
    EXPECT_THAT(info(), ::testing::ContainsRegex("Page size: +22[67](\\.[0-9]+)? x 28[34](\\.[0-9]+)? pts"));
    EXPECT_THAT(support::outputOf("LC_ALL=C pdfimages -list '" + path + "'"),
                ::testing::ContainsRegex("image +6(29|30) +78[78] +rgb +3 +8 +jpeg .* (199|200|201) +(199|200|201) "));
}

TEST_F(PageScannerTest, ABroadPageIsNotTurned) {
    device.set("number_of_devices 1\nhand-scanner true\n");
    component.jConfig();
    ASSERT_TRUE(component.resultado());
    const std::string images = support::outputOf("LC_ALL=C pdfimages -list '" + path + "'");
    EXPECT_THAT(images, ::testing::ContainsRegex(" (199|200|201) +(199|200|201) ")) << images << info();
}

TEST_F(PageScannerTest, WithSeveralDevicesTheUserChooses) {
    device.set("number_of_devices 2\n");
    screen.queueModal([this](screen::Form& form) {
        EXPECT_EQ(form.name(), "frmEscaner");
        EXPECT_EQ(list(form).items(),
                  (std::vector<std::string>{"Noname frontend-tester (test:0)", "Noname frontend-tester (test:1)"}));
        EXPECT_EQ(list(form).listIndex(), 0);
        list(form).setListIndex(1);
        press(form, "cmdEscanear");
        EXPECT_TRUE(form.isUnloaded());
    });
    component.jConfig();
    EXPECT_TRUE(component.resultado());
}

TEST_F(PageScannerTest, TheUserWhoLeavesTheChoiceScansNothing) {
    device.set("number_of_devices 2\n");
    screen.queueModal([this](screen::Form& form) { press(form, "cmdCancelar"); });
    component.jConfig();
    EXPECT_FALSE(component.resultado());
    screen.queueModal([](screen::Form& form) {
        screen::KeyDown escape{screen::Key::escape};
        form.onKeyDown(escape);
        EXPECT_TRUE(form.isUnloaded());
    });
    component.jConfig();
    EXPECT_FALSE(component.resultado());
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_TRUE(folder.files().empty());
}

TEST_F(PageScannerTest, TheUsersOwnDeviceIsTakenWithoutAQuestion) {
    device.set("number_of_devices 2\n");
    ::setenv("SANE_DEFAULT_DEVICE", "test:1", 1);
    component.jConfig();
    EXPECT_TRUE(component.resultado());
}

TEST_F(PageScannerTest, NoDeviceIsTold) {
    device.unplug();
    component.jConfig();
    EXPECT_FALSE(component.resultado());
    ASSERT_EQ(screen.messages.size(), 1u);
    EXPECT_EQ(screen.messages[0].text, "No se encuentra ningún escáner.");
    EXPECT_EQ(screen.messages[0].icon, screen::Icon::critical);
}

TEST_F(PageScannerTest, AFailureOnTheWayIsToldAndLeavesNoFile) {
    component.jConfig();
    ASSERT_TRUE(component.resultado());
    std::filesystem::remove(path);
    device.set("number_of_devices 1\nread-status-code \"SANE_STATUS_JAMMED\"\n");
    component.jConfig();
    EXPECT_FALSE(component.resultado());
    EXPECT_EQ(screen.messageTexts(), std::vector<std::string>{"El papel está atascado en el escáner."});
    EXPECT_TRUE(folder.files().empty());
}

TEST_F(PageScannerTest, ACancelledScanLeavesNothingAndSaysNothing) {
    device.set("number_of_devices 1\nread-delay true\nread-delay-duration 200000\n");
    ::setenv("SANE_DEFAULT_DEVICE", "test:0", 1);
    screen.cancels = true;
    component.jConfig();
    EXPECT_FALSE(component.resultado());
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_TRUE(folder.files().empty());
}

TEST_F(PageScannerTest, ADeviceThatSaysNothingDoesNotFreezeTheProgram) {
    PageScanner impatient(screen, std::make_shared<Silent>(), graphics, {.silence = 100ms, .grace = 1000ms});
    impatient.setFichero(path);
    impatient.jConfig();
    EXPECT_FALSE(impatient.resultado());
    EXPECT_EQ(screen.messageTexts(), std::vector<std::string>{"El escáner no responde."});
}

TEST_F(PageScannerTest, AProgramThatIsMissingOrCrashesIsToldAndLeavesNoFile) {
    const std::string crash = (folder.path() / "crash").string();
    std::ofstream(crash) << "#!/bin/sh\nprintf 'velmora-scan\\t1\\n'\nkill -SEGV $$\n";
    std::filesystem::permissions(crash, std::filesystem::perms::owner_all);
    for (const std::string& program : {crash, std::string("/missing/velmora-scan")}) {
        PageScanner broken(screen, std::make_shared<ScanProcess>(program), graphics);
        broken.setFichero(path);
        broken.jConfig();
        EXPECT_FALSE(broken.resultado());
    }
    ASSERT_EQ(screen.messages.size(), 2u);
    EXPECT_EQ(screen.messages[0].text, "El programa que habla con el escáner ha terminado de forma inesperada.");
    EXPECT_THAT(screen.messages[1].text, HasSubstr("/missing/velmora-scan"));
    EXPECT_EQ(folder.files(), std::vector<std::string>{"crash"});
}

/// While it lives, the process cannot write a file beyond this size, as on a disk that is full.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : handler_(::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &saved_);
        const rlimit low{.rlim_cur = bytes, .rlim_max = saved_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &low);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &saved_);
        ::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit saved_{};
    void (*handler_)(int);
};

TEST_F(PageScannerTest, AFullDiskIsToldAndLeavesNoFile) {
    {
        const FullDisk full(1000);
        component.jConfig();
    }
    EXPECT_FALSE(component.resultado());
    ASSERT_EQ(screen.messages.size(), 1u);
    EXPECT_THAT(screen.messages[0].text, HasSubstr("No se puede escribir el fichero"));
    EXPECT_TRUE(folder.files().empty());
}

TEST_F(PageScannerTest, AFileThatCannotBeWrittenIsTold) {
    component.setFichero((folder.path() / "missing" / "a.pdf").string());
    component.jConfig();
    EXPECT_FALSE(component.resultado());
    ASSERT_EQ(screen.messages.size(), 1u);
    EXPECT_THAT(screen.messages[0].text, HasSubstr("No se puede escribir el fichero"));
}

}  // namespace
}  // namespace velmora::scanner
