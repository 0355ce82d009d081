#include "velmora/adapters/documents/proposal_printing.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <variant>

#include <gmock/gmock.h>

#include "velmora/data/product_types.h"
#include "velmora/paper/papers.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/sketch_texts.h"

#include "adapters/documents/paper_workshop.h"
#include "paper/sample_proposals.h"
#include "support/command_output.h"
#include "support/fake_services.h"
#include "support/temporary_folder.h"

namespace velmora::documents {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// All words of a sheet, in no order: blocks, heading and foot, and of sketches the texts of the dimensions.
class WordsOfSheet {
  public:
    explicit WordsOfSheet(const paper::Sheet& sheet) {
        add(sheet.title);
        add(sheet.name);
        add(sheet.heading);
        for (const paper::Block& block : sheet.blocks) {
            std::visit([this](const auto& b) { add(b); }, block);
        }
    }
    const std::vector<std::string>& words() const { return words_; }

  private:
    void add(const std::string& text) {
        std::istringstream in(text);
        words_.insert(words_.end(), std::istream_iterator<std::string>(in), {});
    }
    void add(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            add(text);
        }
    }
    void add(const std::vector<paper::Field>& fields) {
        for (const paper::Field& field : fields) {
            add(field.caption);
            add(field.value);
        }
    }
    void add(const paper::Fields& block) {
        add(block.title);
        add(block.fields);
    }
    void add(const paper::Figures& block) { add(block.figures); }
    void add(const paper::Paragraph& block) {
        add(block.title);
        add(block.text);
    }
    void add(const paper::Table& block) {
        add(block.title);
        add(block.note);
        add(block.total);
        for (const paper::Column& column : block.columns) {
            add(column.caption);
        }
        for (const std::vector<std::string>& row : block.rows) {
            add(row);
        }
    }
    void add(const paper::SketchBlock& block) {
        for (const screen::Shape& shape : block.drawing.shapes) {
            const auto* dimension = std::get_if<screen::Dimension>(&shape);
            if (dimension != nullptr && block.labels.contains(dimension->label)) {
                add(toolkit::shownText(*dimension, block.labels));
            }
        }
    }

    std::vector<std::string> words_;
};

class ProposalPrintingTest : public ::testing::Test {
  protected:
    ProposalPrintingTest() { component.setMyBd(workshop.session); }

    /// The paths of the customer's paper and of the shop's.
    std::string customersPaper(std::int32_t number) {
        component.jPrintPropuesta(number, false);
        return services.opened.at(services.opened.size() - 2);
    }
    std::string shopsPaper(std::int32_t number) {
        component.jPrintPropuesta(number, false);
        return services.opened.back();
    }
    std::string ordersPaper(std::int32_t number) {
        component.jPrintPropuesta(number, true);
        return services.opened.back();
    }
    std::string pageText(const std::string& path, int page) {
        const std::string which = runtime::CStr(std::int64_t{page});
        return support::outputOf("pdftotext -layout -f " + which + " -l " + which + " '" + path + "' -");
    }
    std::string textOf(const std::string& path) { return support::outputOf("pdftotext -layout '" + path + "' -"); }
    struct Word {
        double left;
        double top;
        double right;
        double bottom;
        std::string text;
    };
    /// The words of the paper and where they stand, in points.
    static std::vector<Word> wordsOf(const std::string& path) {
        const std::string boxes = support::outputOf("pdftotext -bbox '" + path + "' -");
        const std::regex word(
            R"re(<word xMin="([0-9.-]+)" yMin="([0-9.-]+)" xMax="([0-9.-]+)" yMax="([0-9.-]+)">([^<]*)</word>)re");
        std::vector<Word> words;
        for (std::sregex_iterator at(boxes.begin(), boxes.end(), word), end; at != end; ++at) {
            words.push_back({runtime::Val((*at)[1].str()), runtime::Val((*at)[2].str()), runtime::Val((*at)[3].str()),
                             runtime::Val((*at)[4].str()), runtime::Replace((*at)[5].str(), "&apos;", "'")});
        }
        return words;
    }
    static Word wordOf(const std::vector<Word>& words, const std::string& text) {
        const auto found = std::ranges::find(words, text, &Word::text);
        EXPECT_NE(found, words.end()) << text;
        return found == words.end() ? Word{} : *found;
    }
    static std::map<std::string, int> countsOf(const std::vector<std::string>& words) {
        std::map<std::string, int> counts;
        for (const std::string& word : words) {
            ++counts[word];
        }
        return counts;
    }
    std::string info(const std::string& path) { return support::outputOf("LC_ALL=C pdfinfo '" + path + "'"); }
    void set(std::int32_t number, const std::string& assignment) {
        workshop.execute("UPDATE DPI SET " + assignment + " WHERE DPI_Id=" + runtime::CStr(std::int64_t{number}));
    }
    /// A plain sprocket with disc and hub, whose figures are all different.
    std::int32_t sprocket() {
        set(1,
            "DPI_Tipo=0, DPI_CodCliente=1013, DPI_NomCliente='LAVANDERÍAS ESPUMAÑUL SL', DPI_RefCli='REF-17-A', "
            "DPI_PedCliente='PC-77', DPI_FPedCliente='03/02/2026', DPI_FechaEntrega='20/02/2026', "
            "DPI_Obser='Taladros M8', DPI_Extra='Nota libre', DPI_ProTex='Aceros Consultados', DPI_Z=38, "
            "DPI_Pas=12.7, DPI_AC=7.75, DPI_Rodillo=8.51, DPI_Eje=25, DPI_Chav=8, DPI_Pri=2, DPI_DmPri=153.79, "
            "DPI_DmFon=145.28, DPI_DmExt=160, DPI_DmCub=95, DPI_Alt=7.36, DPI_AnchoTotal=50, DPI_Llanta=6, "
            "DPI_AnchoCubo=44, DPI_IdParDisco=4, DPI_ArtDisco=4, DPI_DisCortDM=165, DPI_DisCortAN=8, "
            "DPI_DmInterno=0, DPI_DisCortPESO=1.34, DPI_DisPVE=1.31, DPI_DisImporte=11.66, "
            "DPI_CosteCorteDisco=9.9, DPI_IdParCubo=3, DPI_ArtCubo=2, DPI_CubCortDM=102, DPI_CubCortAN=47, "
            "DPI_CuboDmInterno=0, DPI_CubCortPESO=3.02, DPI_CubPVE=1.52, DPI_CubImporte=9.09, DPI_FijoSierra=2.53, "
            "DPI_ImpMat=20.75, DPI_ImpMO=24.98, DPI_ImpTS=1031.17, DPI_ImpVA=1.05, DPI_ImpTP=1080.48, "
            "DPI_Unidades=20, DPI_Importe=21609.6, DPI_HERRAMIENTA='H7', DPI_Acopla=1");
        return 1;
    }

    support::PaperWorkshop workshop;
    support::TemporaryFolder folder;
    support::FakeServices services{folder};
    ProposalPrinting component{services, std::make_shared<painting::Graphics>()};
};

TEST_F(ProposalPrintingTest, CustomerAndShopHaveFilesOfTheirOwn) {
    component.jPrintPropuesta(7, false);
    const std::string customers = services.folder + "Propuesta_000007.pdf";
    const std::string shops = services.folder + "HojaCorte_000007.pdf";
    EXPECT_EQ(services.opened, (std::vector<std::string>{customers, shops}));
    EXPECT_THAT(folder.files(), ::testing::UnorderedElementsAre("Propuesta_000007.pdf", "HojaCorte_000007.pdf"));
    EXPECT_THAT(textOf(customers), Not(HasSubstr("Hoja de corte")));
    EXPECT_THAT(info(customers), Not(HasSubstr("Hoja de corte")));
    EXPECT_THAT(textOf(shops), HasSubstr("Hoja de corte 000007"));
    EXPECT_THAT(info(shops), HasSubstr("Hoja de corte 000007"));
}

TEST_F(ProposalPrintingTest, IsA4WithEmbeddedFontsAndLinesInPlaceOfImages) {
    const std::string path = customersPaper(sprocket());
    EXPECT_THAT(info(path), HasSubstr("(A4)"));
    EXPECT_THAT(info(path), HasSubstr("Pages:           1"));
    EXPECT_THAT(info(path), HasSubstr("Propuesta 000001"));
    const std::string fonts = support::outputOf("LC_ALL=C pdffonts '" + path + "'");
    EXPECT_THAT(fonts, HasSubstr("TrueType"));
    std::size_t families = 0;
    for (std::size_t at = fonts.find("Identity-H"); at != std::string::npos; at = fonts.find("Identity-H", at + 1)) {
        EXPECT_EQ(fonts.substr(at + 10, 30).find("yes"), 7u) << fonts;
        ++families;
    }
    EXPECT_EQ(families, 2u) << fonts;
    const std::string images = support::outputOf("LC_ALL=C pdfimages -list '" + path + "'");
    EXPECT_EQ(std::count(images.begin(), images.end(), '\n'), 2) << images;
}

TEST_F(ProposalPrintingTest, ManyLabourLinesGoOnUnderTheirCaptionsOnFurtherPages) {
    sprocket();
    for (int i = 1; i <= 100; ++i) {
        workshop.execute(
            "INSERT INTO MoDpi (MoDpi_Dpi, MoDpi_Ope, MoDpi_Maq, MoDpi_Minutos, MoDpi_Pvp, MoDpi_Tiempo, "
            "MoDpi_Importe) VALUES (1, 2, 201, " +
            runtime::CStr(std::int64_t{1000 + i}) + ", 39.5, 0.2733, 10.8)");
    }
    const std::string path = shopsPaper(1);
    const std::string facts = info(path);
    std::smatch pages;
    ASSERT_TRUE(std::regex_search(facts, pages, std::regex("Pages: +(\\d)")));
    const int count = pages[1].str()[0] - '0';
    ASSERT_GE(count, 3);
    std::string all;
    for (int page = 1; page <= count; ++page) {
        const std::string text = pageText(path, page);
        EXPECT_THAT(text, HasSubstr("Página " + runtime::CStr(std::int64_t{page}) + " de " +
                                    runtime::CStr(std::int64_t{count})));
        if (page > 1) {
            EXPECT_THAT(text, HasSubstr("Hoja de corte 000001 (continuación)"));
        }
        if (page < count) {
            EXPECT_THAT(text, HasSubstr("Operario"));
        }
        all += text;
    }
    for (int i = 1; i <= 100; ++i) {
        EXPECT_THAT(all, HasSubstr(runtime::Format(1000 + i, "#,##0.00")));
    }
}

TEST_F(ProposalPrintingTest, LongRemarksAreWrappedAndNoWordIsLost) {
    std::string remarks = "Primera\r\nsegunda";
    for (int i = 1; i <= 300; ++i) {
        remarks += " palabra" + runtime::CStr(std::int64_t{i});
    }
    remarks += " " + std::string(300, 'x') + " termina";
    set(sprocket(), "DPI_Obser='" + remarks + "'");
    const std::string path = customersPaper(1);
    std::string text = support::outputOf("pdftotext -f 1 -l 2 '" + path + "' -");
    for (const char* word : {"Primera\nsegunda palabra1 ", "palabra150", "palabra300", "termina"}) {
        EXPECT_THAT(text, HasSubstr(word));
    }
    EXPECT_GE(std::count(text.begin(), text.end(), 'x'), 300) << text;
    EXPECT_THAT(text, HasSubstr("Propuesta 000001 (continuación)"));
    // What would run over the edge stands outside the page's box.
    const std::string boxes = support::outputOf("pdftotext -bbox '" + path + "' -");
    const std::regex right("xMax=\"([0-9]+)");
    for (std::sregex_iterator at(boxes.begin(), boxes.end(), right), end; at != end; ++at) {
        EXPECT_LE(runtime::Val((*at)[1].str()), 595 - 45);
    }
}

TEST_F(ProposalPrintingTest, EveryWordOfASheetIsOnPaper) {
    support::SampleProposals proposals;
    adapters::StandInSession session(proposals.connection());
    component.setMyBd(session);
    for (const data::ProductType& type : data::productTypes) {
        const std::int32_t number = support::SampleProposals::numberOf(type.number);
        services.opened.clear();
        component.jPrintPropuesta(number, false);
        const std::vector<paper::Paper> papers = paper::papersOf(proposals.connection(), number, false);
        ASSERT_EQ(services.opened.size(), papers.size());
        for (std::size_t i = 0; i < papers.size(); ++i) {
            std::vector<std::string> painted;
            std::ranges::transform(wordsOf(services.opened[i]), std::back_inserter(painted), &Word::text);
            const std::map<std::string, int> there = countsOf(painted);
            for (const auto& [word, count] : countsOf(WordsOfSheet(papers[i].sheet).words())) {
                EXPECT_TRUE(there.contains(word) && there.at(word) >= count)
                    << papers[i].fileName << ": " << word << ", " << count << " times";
            }
        }
    }
}

TEST_F(ProposalPrintingTest, TheOrdersPaperIsTheShopsAlone) {
    const std::string path = ordersPaper(sprocket());
    EXPECT_EQ(path, services.folder + "HojaCorte_000001.pdf");
    EXPECT_EQ(folder.files(), std::vector<std::string>{"HojaCorte_000001.pdf"});
    EXPECT_THAT(info(path), HasSubstr("Pages:           1"));
    EXPECT_THAT(pageText(path, 1), HasSubstr("Hoja de corte 000001"));
}

TEST_F(ProposalPrintingTest, AnOrdinaryProposalOfAnyTypeIsOnePageForEach) {
    for (const data::ProductType& type : data::productTypes) {
        services.opened.clear();
        component.jPrintPropuesta(workshop.latestOfType(type.number), false);
        for (const std::string& path : services.opened) {
            EXPECT_THAT(info(path), HasSubstr("Pages:           1")) << type.number;
        }
    }
}

TEST_F(ProposalPrintingTest, NoNumberIsBrokenHoweverGreat) {
    // Whatever is made of nines alone is one of these numbers, or a piece of one.
    const std::set<std::string> whole{"99.999.999,99", "99999999,99", "99999999,99,", "99.999.999,9900"};
    const std::regex nines("9[9.,]*");
    for (const data::ProductType& type : data::productTypes) {
        const std::int32_t proposal = workshop.withGreatFigures(type.number);
        component.jPrintPropuesta(proposal, false);
        for (std::size_t paper = services.opened.size() - 2; paper < services.opened.size(); ++paper) {
            std::size_t great = 0;
            for (const Word& word : wordsOf(services.opened[paper])) {
                great += word.text == "99.999.999,99" ? 1U : 0U;
                EXPECT_TRUE(!std::regex_match(word.text, nines) || whole.contains(word.text))
                    << type.number << ": " << word.text;
                EXPECT_GE(word.left, 45) << word.text;
                EXPECT_LE(word.right, 595 - 45) << word.text;
            }
            EXPECT_GE(great, 2u) << type.number;
        }
    }
}

TEST_F(ProposalPrintingTest, GreatNumbersStandBesideEachOtherAndNotOnEachOther) {
    const std::string path = shopsPaper(workshop.withGreatFigures(0));
    std::vector<Word> numbers;
    std::ranges::copy_if(wordsOf(path), std::back_inserter(numbers),
                         [](const Word& word) { return word.text.find("99.999.999") != std::string::npos; });
    ASSERT_GE(numbers.size(), 20u);
    for (const Word& one : numbers) {
        for (const Word& other : numbers) {
            const bool sameLine = one.top < other.bottom && other.top < one.bottom;
            EXPECT_TRUE(&one == &other || !sameLine || one.right < other.left || other.right < one.left)
                << one.text << " " << one.left << "-" << one.right << ", " << other.left << "-" << other.right;
        }
    }
}

TEST_F(ProposalPrintingTest, OrdinaryNumbersLeaveTheLettersTheirSize) {
    const auto heightOf = [](const Word& word) { return word.bottom - word.top; };
    const auto ordinary = wordsOf(shopsPaper(sprocket()));
    const auto great = wordsOf(shopsPaper(workshop.withGreatFigures(0)));
    EXPECT_NEAR(heightOf(wordOf(ordinary, "Subcontratados")), heightOf(wordOf(ordinary, "Importe")), 0.01);
    EXPECT_LT(heightOf(wordOf(great, "Subcontratados")), heightOf(wordOf(great, "Importe")) - 1);
}

TEST_F(ProposalPrintingTest, RemarksKeepTheirTabsAndTheirIndentation) {
    set(sprocket(),
        "DPI_Obser='   sangrada" + std::string("\r\n") + "primera\r\n\ttabulada\r\nx\tuno\r\nxxxxx\tdos\r\n'");
    const std::vector<Word> words = wordsOf(customersPaper(1));
    const double left = wordOf(words, "primera").left;
    EXPECT_GT(wordOf(words, "sangrada").left, left + 4);
    EXPECT_GT(wordOf(words, "tabulada").left, wordOf(words, "sangrada").left + 4);
    EXPECT_NEAR(wordOf(words, "uno").left, wordOf(words, "tabulada").left, 0.1);
    EXPECT_NEAR(wordOf(words, "dos").left, wordOf(words, "tabulada").left, 0.1);
    EXPECT_NEAR(wordOf(words, "x").left, left, 0.1);
}

TEST_F(ProposalPrintingTest, WhatIsWrongIsToldAndNothingIsWritten) {
    const auto refusal = [this](std::int32_t number) {
        try {
            component.jPrintPropuesta(number, false);
        } catch (const runtime::RuntimeError& e) {
            return runtime::CStr(std::int64_t{e.number()}) + " " + e.description();
        }
        return std::string("no error");
    };
    EXPECT_EQ(refusal(99999), "5 No existe la propuesta 099999");
    const std::string there = services.folder;
    services.folder = there + "missing/";
    EXPECT_EQ(refusal(1),
              "75 No se puede escribir el fichero\n" + there + "missing/Propuesta_000001.pdf\n\nLa carpeta no existe.");
    services.folder.clear();
    EXPECT_EQ(refusal(1), "76 No hay carpeta temporal en la que escribir Propuesta_000001.pdf");
    services.folder = there;
    std::filesystem::create_directories(there + "Propuesta_000001.pdf/inside");
    EXPECT_EQ(refusal(1), "75 No se puede escribir el fichero\n" + there +
                              "Propuesta_000001.pdf\n\nHay una carpeta con ese nombre.");
    EXPECT_EQ(folder.files(), std::vector<std::string>{"Propuesta_000001.pdf"});
    EXPECT_TRUE(services.opened.empty());
    services.openingCode = 31;
    EXPECT_THAT(refusal(2), HasSubstr("Propuesta_000002.pdf"));
}

TEST_F(ProposalPrintingTest, AProposalIsNotPrintedWithoutASession) {
    ProposalPrinting orphan(services, std::make_shared<painting::Graphics>());
    EXPECT_THROW(orphan.jPrintPropuesta(1, false), runtime::RuntimeError);
}

}  // namespace
}  // namespace velmora::documents
