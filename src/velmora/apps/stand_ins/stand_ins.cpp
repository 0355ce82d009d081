#include "velmora/apps/stand_ins/stand_ins.h"

#include <memory>
#include <string>
#include <utility>

#include "velmora/adapters/documents/grid_spreadsheet.h"
#include "velmora/adapters/documents/proposal_printing.h"
#include "velmora/adapters/documents/sheet_printer.h"
#include "velmora/adapters/host/delivery_notes.h"
#include "velmora/adapters/host/work_orders.h"
#include "velmora/adapters/scanner/page_scanner.h"
#include "velmora/adapters/scanner/scan_process.h"
#include "velmora/adapters/scanner/scan_program.h"

namespace velmora::stand_ins {

void registerStandIns(components::ComponentFactory& factory, screen::Screen& screen, system::Services& services,
                      const system::Clock& clock, documents::PaperChoices papers) {
    factory.add("KOLTAR.KOLTARD", [&screen] { return std::make_unique<host::WorkOrderViewer>(screen); });
    factory.add("SORVEL.SORVELCOMP", [&screen] { return std::make_unique<host::DeliveryNoteViewer>(screen); });
    // Created when the first paper is printed; lives as long as the factory.
    const auto graphics = std::make_shared<painting::Graphics>();
    factory.add(paper::SheetPrinting::progId, [&services, graphics, papers] {
        return std::make_unique<documents::SheetPrinter>(services, graphics, papers);
    });
    factory.add("VELMORAIMP.VMORAIMP", [&services, graphics, choices = std::move(papers)] {
        return std::make_unique<documents::ProposalPrinting>(services, graphics, choices);
    });
    factory.add("LIMBAR.jLimbar",
                [&] { return std::make_unique<documents::GridSpreadsheet>(screen, services, clock); });
    factory.add("MIRTOL.jMirtol", [&screen, graphics] {
        const std::string program = scanner::scanProgram(scanner::ownFolder());
        return std::make_unique<scanner::PageScanner>(screen, std::make_shared<scanner::ScanProcess>(program),
                                                      graphics);
    });
}

}  // namespace velmora::stand_ins
