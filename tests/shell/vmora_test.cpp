#include "velmora/shell/vmora.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"
#include "velmora/tracking/frm_seguimiento.h"

#include "support/proposal_statements.h"
#include "support/proposal_workshop.h"

namespace velmora::shell {
namespace {

using proposal::frmBercialPiñones;
using ::testing::ElementsAre;
using velmora::support::ProposalWorkshop;
namespace statements = velmora::support::statements;

class VmoraTest : public ::testing::Test {
  protected:
    VmoraTest() { vmora.MyBd(&workshop.session); }

    /// What the user does on the main form that comes next.
    void onForm(std::function<void(frmBercialPiñones&)> user) {
        workshop.screen.queueModal([this, user = std::move(user)](screen::Form& form) {
            ++formsShown;
            user(dynamic_cast<frmBercialPiñones&>(form));
        });
    }
    long errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const runtime::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }

    ProposalWorkshop workshop;
    VMORA vmora{workshop.desk};
    int formsShown = 0;
};

TEST_F(VmoraTest, ExportReportIsGivenBackAndChangesNothing) {
    EXPECT_FALSE(vmora.bExportReport());
    vmora.bExportReport(true);
    EXPECT_TRUE(vmora.bExportReport());
    onForm([](frmBercialPiñones& form) { EXPECT_EQ(form.tag(), "e"); });
    vmora.jShow();
    EXPECT_TRUE(vmora.bExportReport());
    EXPECT_EQ(formsShown, 1);
}

TEST_F(VmoraTest, PrintingFromTheHostReturnsAtOnceWithAnyArgument) {
    for (std::int32_t number : {-1, 0, 1, 999999}) {
        for (bool order : {false, true}) {
            const std::int32_t given = number;
            const bool givenOrder = order;
            vmora.jPrintPropuesta(number, order);
            EXPECT_EQ(number, given);
            EXPECT_EQ(order, givenOrder);
        }
    }
    EXPECT_THAT(workshop.connection.log(), ElementsAre());
}

TEST_F(VmoraTest, ProposalZeroOrLessOpensNothing) {
    for (std::int32_t number : {0, -1}) {
        vmora.jShowPropuesta(number);
    }
    EXPECT_EQ(formsShown, 0);
    EXPECT_THAT(workshop.connection.log(), ElementsAre());
}

TEST_F(VmoraTest, WithoutASessionEveryOperationThatOpensAFormIsAnObjectError) {
    VMORA bare(workshop.desk);
    EXPECT_EQ(errorOf([&] { bare.jShow(); }), 91);
    EXPECT_EQ(errorOf([&] { bare.jShowParametros(); }), 91);
    EXPECT_EQ(errorOf([&] { bare.jShowSeguimiento(); }), 91);
    std::int32_t number = 1;
    EXPECT_EQ(errorOf([&] { bare.jShowPropuesta(number); }), 91);
    EXPECT_EQ(errorOf([&] { bare.MyBd(); }), 91);
}

TEST_F(VmoraTest, OperationsReachTheSessionOfTheInstanceMadeLast) {
    VMORA last(workshop.desk);
    EXPECT_EQ(errorOf([&] { vmora.jShow(); }), 91) << "the last one was given none";
    last.MyBd(&workshop.session);
    onForm([](frmBercialPiñones&) {});
    vmora.jShow();
    EXPECT_EQ(formsShown, 1);
}

TEST_F(VmoraTest, TheSessionOfTheInstanceMadeLastOutlivesIt) {
    VMORA first(workshop.desk);
    {
        VMORA last(workshop.desk);
        last.MyBd(&workshop.session);
    }
    onForm([](frmBercialPiñones&) {});
    first.jShow();
    EXPECT_EQ(formsShown, 1);
}

TEST_F(VmoraTest, ASharedSessionLivesAsLongAsItMayBeUsed) {
    const std::shared_ptr<session::Session> shared(std::shared_ptr<void>(new int), &workshop.session);
    {
        VMORA last(workshop.desk);
        last.MyBd(shared);
        EXPECT_EQ(shared.use_count(), 2);
    }
    EXPECT_EQ(shared.use_count(), 2) << "an older instance may still use it";
    onForm([&](frmBercialPiñones&) {
        gVMORA->MyBd.reset();
        EXPECT_EQ(shared.use_count(), 2) << "the running operation still uses it";
    });
    vmora.jShow();
    EXPECT_EQ(formsShown, 1);
    EXPECT_EQ(shared.use_count(), 1);
}

TEST_F(VmoraTest, StartOnAnUpToDateDatabaseRunsThreeChecksAndThenTheFormsOwnStatements) {
    onForm([](frmBercialPiñones&) {});
    vmora.jShow();
    const std::string emptyToothing = " WHERE DPI_Z = 0.00 And DPI_Pas = 0.00 And DPI_Ac = 0.00 And DPI_Rodillo = 0.00";
    EXPECT_THAT(workshop.connection.log(),
                ElementsAre("Select top 1 * from PARDPI", "Select top 1 * from dpi", "Select top 1 * from ENG",
                            statements::cutPrices,
                            statements::history(emptyToothing + " And Dpi_Tipo = -1 Order by DPI_Fecha DESC"),
                            statements::discs, statements::material("1"), statements::hubs, statements::material("2"),
                            statements::material("1"), statements::material("2"), statements::racks,
                            statements::material("5"), statements::material("5"),
                            statements::history(emptyToothing + " And Dpi_Tipo = 0 Order by DPI_Fecha DESC")));
}

TEST_F(VmoraTest, TheFormOpensAfterAFailedUpgradeWithItsMessage) {
    for (int look = 0; look < 2; ++look) {
        workshop.connection.refuse("Select top 1 * from ENG", sql::provider::missingTable);
    }
    workshop.connection.refuse("CREATE TABLE [dbo].[ENG]");
    onForm([](frmBercialPiñones&) {});
    vmora.jShow();
    EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre("Error Grave. No fué posible actualizar la tabla ENG"));
    EXPECT_EQ(formsShown, 1);
}

TEST_F(VmoraTest, AMissingTableOfProposalsReachesTheHost) {
    workshop.connection.refuse("Select top 1 * from dpi", sql::provider::missingTable);
    EXPECT_EQ(errorOf([&] { vmora.jShow(); }), sql::provider::missingTable);
    EXPECT_EQ(formsShown, 0);
}

TEST_F(VmoraTest, TheMaterialsFormIsShownModally) {
    std::string name;
    std::string tag;
    workshop.screen.queueModal([&](screen::Form& form) {
        name = form.name();
        tag = form.tag();
    });
    vmora.jShowParametros();
    EXPECT_EQ(name, "frmMaterias");
    EXPECT_EQ(tag, "e");
    EXPECT_EQ(workshop.connection.log().front(), "Select top 1 * from PARDPI");
}

TEST_F(VmoraTest, TheOtherOperationsCheckTheTableOfMaterialsAlone) {
    workshop.screen.queueModal([](screen::Form&) {});
    vmora.jShowParametros();
    EXPECT_THAT(workshop.connection.logged("Select top 1"), ElementsAre("Select top 1 * from PARDPI"));
    workshop.connection.clear();
    workshop.screen.queueModal([](screen::Form&) {});
    vmora.jShowSeguimiento();
    EXPECT_THAT(workshop.connection.logged("Select top 1"), ElementsAre("Select top 1 * from PARDPI"));
}

TEST_F(VmoraTest, TrackingOpensEmptyWithItsTagAfterOneCheckAndOneStatement) {
    workshop.saveNewProposal();
    workshop.connection.clear();
    workshop.screen.queueModal([this](screen::Form& form) {
        auto& tracking = dynamic_cast<tracking::frmSeguimiento&>(form);
        EXPECT_EQ(tracking.tag(), "e");
        EXPECT_EQ(tracking.fields().dbgDPI.rowCount(), 0u);
        EXPECT_EQ(workshop.connection.log().size(), 2u);
        ++formsShown;
    });
    vmora.jShowSeguimiento();
    EXPECT_EQ(formsShown, 1);
}

TEST_F(VmoraTest, OneProposalComesUpReadOnlyWithoutASchemaCheck) {
    workshop.saveNewProposal();
    workshop.connection.clear();
    onForm([](frmBercialPiñones& form) {
        EXPECT_TRUE(form.bConsulta);
        EXPECT_EQ(form.tag(), "e");
        EXPECT_EQ(form.fields().txtPesu(3).text(), "1");
        EXPECT_FALSE(form.fields().txtPesu(0).enabled());
        EXPECT_FALSE(form.fields().cboTipoPre.enabled());
        const auto& buttons = form.buttonsAndGrid();
        EXPECT_FALSE(buttons.XPGrabar.enabled());
        EXPECT_FALSE(buttons.XPImprime.enabled());
        EXPECT_TRUE(buttons.XPSalir.enabled());
        EXPECT_FALSE(buttons.cmdCambios.enabled());
        EXPECT_FALSE(buttons.cmdDuplicar.enabled());
        EXPECT_FALSE(buttons.cmdeliminarrPropuesta.enabled());
        EXPECT_EQ(form.activeControl(), &form.fields().cboFiltroHistorico);
    });
    std::int32_t number = 1;
    vmora.jShowPropuesta(number);
    EXPECT_EQ(formsShown, 1);
    EXPECT_EQ(number, 1);
    EXPECT_THAT(workshop.connection.logged("Select top 1"), ElementsAre());
}

TEST_F(VmoraTest, AnUnknownProposalOpensAnEmptyForm) {
    onForm([](frmBercialPiñones& form) {
        EXPECT_EQ(form.fields().txtPesu(3).text(), "");
        EXPECT_EQ(form.fields().txtPesu(1).text(), "");
        EXPECT_FALSE(form.fields().cboTipoPre.enabled());
        EXPECT_TRUE(form.fields().txtPesu(12).enabled());
        EXPECT_EQ(form.activeControl(), &form.fields().txtPesu(12));
    });
    std::int32_t number = 4711;
    vmora.jShowPropuesta(number);
    EXPECT_EQ(formsShown, 1);
}

}  // namespace
}  // namespace velmora::shell
