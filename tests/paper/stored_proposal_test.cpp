#include "velmora/paper/stored_proposal.h"

#include <gmock/gmock.h>

#include "paper/sample_proposals.h"

namespace velmora::paper {
namespace {

using ::testing::Optional;
using ::testing::SizeIs;

constexpr std::int32_t sprocket = 1;
constexpr std::int32_t rack = 14;

class StoredProposalTest : public ::testing::Test {
  protected:
    StoredProposal read(std::int32_t number) { return readProposal(proposals.connection(), number).value(); }
    std::string remarks(const std::string& stored) {
        proposals.set(sprocket, "DPI_Obser='" + stored + "'");
        return read(sprocket).remarks;
    }

    support::SampleProposals proposals;
};

TEST_F(StoredProposalTest, ANumberThatNoProposalHasIsNone) {
    EXPECT_EQ(readProposal(proposals.connection(), 99999), std::nullopt);
}

TEST_F(StoredProposalTest, TheHubsCutIsWhatItsAmountLeaves) {
    // 9.09 is 3.02 kg at 1.52 €, rounded to 4.59, and a cut of 4.50.
    EXPECT_THAT(read(sprocket).hub.value().cut, Optional(4.5));
}

TEST_F(StoredProposalTest, ARacksCutIsWhatItsAmountLeaves) {
    // 26.26 is 12.49 kg at 1.31 €, rounded to 16.36, and a cut of 9.90.
    proposals.set(rack, "DPI_CosteCorteDisco=77");
    EXPECT_THAT(read(rack).disc.cut, Optional(9.9));
}

TEST_F(StoredProposalTest, OfAnAmountWithoutItsWeightNothingIsKnownOfTheCut) {
    proposals.set(sprocket, "DPI_CubCortPESO=NULL");
    EXPECT_EQ(read(sprocket).hub.value().cut, std::nullopt);
}

TEST_F(StoredProposalTest, AHubWithoutWeightAndAmountIsNone) {
    proposals.set(sprocket, "DPI_CubCortPESO=0, DPI_CubImporte=NULL");
    EXPECT_EQ(read(sprocket).hub.has_value(), false);
    proposals.set(sprocket, "DPI_CubImporte=1");
    EXPECT_EQ(read(sprocket).hub.has_value(), true);
}

TEST_F(StoredProposalTest, ARackKeepsItsMeasuresInColumnsThatMeanAnotherThingOfAWheel) {
    const StoredProposal p = read(rack);
    EXPECT_THAT(p.measures.toothHeight, Optional(9.0));
    EXPECT_THAT(p.measures.height, Optional(40.0));
    EXPECT_THAT(p.measures.length, Optional(1000.0));
    EXPECT_THAT(p.measures.width, Optional(30.0));
    EXPECT_THAT(p.disc.thickness, Optional(45.0));
    EXPECT_EQ(p.measures.exterior, std::nullopt);
    EXPECT_EQ(p.chainWidth, std::nullopt);
}

TEST_F(StoredProposalTest, TheNamesOfWhatItRefersToComeWithIt) {
    const StoredProposal p = read(sprocket);
    EXPECT_EQ(p.disc.material, "Disco hierro S275JR");
    EXPECT_EQ(p.disc.printed, "Hierro S275JR");
    EXPECT_EQ(p.disc.articleCode, "DIS-S275");
    ASSERT_THAT(p.labour, SizeIs(2));
    EXPECT_EQ(p.labour[1].section + "/" + p.labour[1].machine + "/" + p.labour[1].worker,
              "Tallado/Fresadora madre 1/Eneko S.");
}

TEST_F(StoredProposalTest, WhatItRefersToAndIsNotThereHasNoName) {
    proposals.set(sprocket, "DPI_IdParDisco=99, DPI_ArtDisco=NULL");
    proposals.connection().execute("DELETE FROM OPE");
    const StoredProposal p = read(sprocket);
    EXPECT_EQ(p.disc.material + p.disc.printed + p.disc.articleCode + p.disc.article, "");
    EXPECT_EQ(p.labour[0].worker, "");
    EXPECT_EQ(p.labour[0].machine, "Torno CNC 1");
}

TEST_F(StoredProposalTest, AnEmptyRowIsRead) {
    proposals.connection().execute("INSERT INTO DPI (DPI_Tipo) VALUES (NULL)");
    const StoredProposal p = read(16);
    EXPECT_EQ(p.type, -1);
    EXPECT_EQ(p.measures.exterior, std::nullopt);
    EXPECT_EQ(p.total, std::nullopt);
    EXPECT_EQ(p.customerName, "");
    EXPECT_THAT(p.labour, SizeIs(0));
}

TEST_F(StoredProposalTest, RemarksKeepTheirTabsAndTheirIndentation) {
    EXPECT_EQ(remarks("\r\n   sangrada\r\nprimera\r\n\ttabulada \r\n\r\n"), "   sangrada\r\nprimera\r\n\ttabulada");
}

TEST_F(StoredProposalTest, RemarksOfBlanksAloneAreNone) {
    EXPECT_EQ(remarks(" \r\n\t \r\n"), "");
}

}  // namespace
}  // namespace velmora::paper
