#include "velmora/apps/desktop/settings_form.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "velmora/apps/settings/company_settings.h"

#include "support/fake_screen.h"
#include "support/fake_services.h"
#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SettingsFormTest : public ::testing::Test {
  protected:
    static screen::TextBox& box(screen::Form& form, const char* name) {
        return dynamic_cast<screen::TextBox&>(*form.find(name));
    }
    static void press(screen::Form& form, const char* button) {
        auto& found = dynamic_cast<screen::Button&>(*form.find(button));
        ASSERT_TRUE(found.enabled()) << button;
        found.onClick();
    }
    paper::Company saved() const { return settings::readCompany(tools.companyFile); }

    support::TemporaryFolder folder;
    support::StoppedClock clock;
    support::ScriptedScreen screen;
    support::FakeServices services;
    components::ComponentFactory components;
    platform::Desk desk{screen, components, services, clock};
    std::vector<int> sizes;
    SettingsTools tools{.companyFile = folder.path() / "taller.db.ajustes",
                        .companyFileIn = {},
                        .userFile = folder.path() / "usuario.ajustes",
                        .chooseFolder = [this] { return std::optional(folder.path().string()); },
                        .isPicture = [](const std::string& bytes) { return bytes == "a picture"; },
                        .setLetterSize = [this](int size) { sizes.push_back(size); }};
};

TEST_F(SettingsFormTest, WhatIsEnteredIsSavedAndShownTheNextTime) {
    SettingsForm form(desk, tools);
    box(form, "txtNombre").setText("Talleres Ejemplo, S.L.");
    box(form, "txtNif").setText("B00000000");
    box(form, "txtDireccion").setText("Calle del Torno, 3\r\n50001 Zaragoza");
    box(form, "txtTelefono").setText("976 000 000");
    box(form, "txtCorreo").setText("taller@ejemplo.invalid");
    box(form, "txtValidez").setText("30");
    box(form, "txtCondiciones").setText("Portes debidos.");
    form.keyDown(screen::Key::f5);
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_EQ(saved(), (paper::Company{.name = "Talleres Ejemplo, S.L.",
                                       .taxNumber = "B00000000",
                                       .address = "Calle del Torno, 3\n50001 Zaragoza",
                                       .telephone = "976 000 000",
                                       .email = "taller@ejemplo.invalid",
                                       .terms = "Portes debidos.",
                                       .validityDays = 30}));
    SettingsForm again(desk, tools);
    EXPECT_EQ(box(again, "txtDireccion").text(), "Calle del Torno, 3\r\n50001 Zaragoza");
    EXPECT_EQ(box(again, "txtValidez").text(), "30");
    EXPECT_THAT(sizes, IsEmpty()) << "the letters were not changed";
}

TEST_F(SettingsFormTest, EscLeavesWithoutSaving) {
    SettingsForm form(desk, tools);
    box(form, "txtNombre").setText("Talleres Ejemplo, S.L.");
    form.keyDown(screen::Key::escape);
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_FALSE(std::filesystem::exists(tools.companyFile));
}

TEST_F(SettingsFormTest, ALogoIsKeptWithTheCompanyUntilItIsTakenOff) {
    std::ofstream(folder.path() / "logo.png") << "a picture";
    SettingsForm form(desk, tools);
    EXPECT_FALSE(form.find("cmdQuitarLogotipo")->enabled());
    services.files.push_back(folder.file("logo.png"));
    press(form, "cmdElegirLogotipo");
    press(form, "cmdGuardar");
    std::filesystem::remove(folder.path() / "logo.png");
    EXPECT_EQ(saved().logo, "a picture");
    SettingsForm again(desk, tools);
    press(again, "cmdQuitarLogotipo");
    press(again, "cmdGuardar");
    EXPECT_EQ(saved().logo, "");
}

TEST_F(SettingsFormTest, WhatIsNoPictureIsRefusedWithItsName) {
    std::ofstream(folder.path() / "carta.txt") << "a letter";
    SettingsForm form(desk, tools);
    services.files.push_back(folder.file("carta.txt"));
    press(form, "cmdElegirLogotipo");
    EXPECT_THAT(screen.messageTexts(), ElementsAre(HasSubstr("carta.txt")));
    press(form, "cmdGuardar");
    EXPECT_EQ(saved().logo, "");
}

TEST_F(SettingsFormTest, TheFolderMustExist) {
    SettingsForm form(desk, tools);
    box(form, "txtCarpeta").setText("/no such folder");
    press(form, "cmdGuardar");
    EXPECT_FALSE(form.isUnloaded());
    EXPECT_THAT(screen.messageTexts(), ElementsAre(HasSubstr("/no such folder")));
    press(form, "cmdElegirCarpeta");
    press(form, "cmdGuardar");
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_EQ(settings::readUserSettings(tools.userFile).papersFolder, folder.path().string());
}

TEST_F(SettingsFormTest, OnAServerTheCompanyIsThatOfTheFolderThatUsersShare) {
    const auto shared = folder.path() / "compartida";
    std::filesystem::create_directory(shared);
    tools.companyFileIn = [this](const std::string& chosen) {
        return std::filesystem::path(chosen.empty() ? folder.path().string() : chosen) / "servidor.ajustes";
    };
    tools.companyFile = tools.companyFileIn("");
    {
        SettingsForm first(desk, tools);
        box(first, "txtNombre").setText("Talleres Ejemplo, S.L.");
        box(first, "txtCarpetaEmpresa").setText(shared.string());
        press(first, "cmdGuardar");
        EXPECT_TRUE(first.isUnloaded());
    }
    EXPECT_EQ(settings::readCompany(shared / "servidor.ajustes").name, "Talleres Ejemplo, S.L.");
    EXPECT_FALSE(std::filesystem::exists(tools.companyFile));
    EXPECT_EQ(settings::readUserSettings(tools.userFile).companyFolder, shared.string());

    // Another user, with a company of his own, meets that of the folder.
    tools.userFile = folder.path() / "otro.ajustes";
    settings::writeCompany(tools.companyFile, {.name = "Otra"});
    SettingsForm second(desk, tools);
    EXPECT_EQ(box(second, "txtNombre").text(), "Otra");
    box(second, "txtCarpetaEmpresa").setText(shared.string());
    box(second, "txtCarpetaEmpresa").onLostFocus();
    EXPECT_EQ(box(second, "txtNombre").text(), "Talleres Ejemplo, S.L.");
    press(second, "cmdGuardar");
    EXPECT_EQ(settings::readCompany(shared / "servidor.ajustes").name, "Talleres Ejemplo, S.L.");
    EXPECT_EQ(settings::readCompany(tools.companyFile).name, "Otra");
}

TEST_F(SettingsFormTest, AFileHasItsCompanyBesideItAndNoFolderToChoose) {
    SettingsForm form(desk, tools);
    EXPECT_FALSE(form.find("txtCarpetaEmpresa")->visible());
    EXPECT_FALSE(form.find("cmdElegirCarpetaEmpresa")->visible());
}

TEST_F(SettingsFormTest, AnotherSizeOfLettersIsSavedAndApplied) {
    SettingsForm form(desk, tools);
    auto& size = dynamic_cast<screen::ComboBox&>(*form.find("cboLetra"));
    EXPECT_EQ(size.text(), "100 %, la del escritorio");
    size.setText("125 %");
    press(form, "cmdGuardar");
    EXPECT_THAT(sizes, ElementsAre(125));
    EXPECT_EQ(settings::readUserSettings(tools.userFile).letterSize, 125);
}

TEST_F(SettingsFormTest, WhatCannotBeSavedStaysInTheForm) {
    std::filesystem::create_directory(tools.companyFile);
    SettingsForm form(desk, tools);
    box(form, "txtNombre").setText("Talleres Ejemplo, S.L.");
    press(form, "cmdGuardar");
    EXPECT_THAT(screen.messageTexts(), ElementsAre(HasSubstr("No se pueden guardar los ajustes")));
    EXPECT_FALSE(form.isUnloaded());
    EXPECT_EQ(box(form, "txtNombre").text(), "Talleres Ejemplo, S.L.");
}

TEST_F(SettingsFormTest, AValidityThatIsNoNumberOfDaysIsRefused) {
    SettingsForm form(desk, tools);
    box(form, "txtValidez").setText("1000");
    press(form, "cmdGuardar");
    EXPECT_FALSE(form.isUnloaded());
    EXPECT_THAT(screen.messageTexts(), ElementsAre(HasSubstr("número de días")));
}

}  // namespace
}  // namespace velmora::desktop
