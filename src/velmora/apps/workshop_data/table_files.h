#pragma once
// Importing a file into a table and exporting the table, with the windows that this takes.

#include <functional>
#include <optional>
#include <string>

#include "velmora/apps/workshop_data/csv_transfer.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"

namespace velmora::workshop_data {

/// Asks the user where a file is to be written, with this title, and proposes a name. nullopt when cancelled.
using ChooseTarget = std::function<std::optional<std::string>(const std::string& title, const std::string& fileName)>;

class TableFiles {
  public:
    /// All must outlive this object.
    TableFiles(session::Session& session, platform::Desk& desk, const TableStore& store, ChooseTarget chooseTarget)
        : session_(session), desk_(desk), store_(store), chooseTarget_(std::move(chooseTarget)) {}

    /// The user chooses a file, sees what it would do, and has it done or not. Returns what to say of it; empty when
    /// nothing was written. Errors of the file and the database are shown.
    std::string importFile();
    /// The same for the file that the table is written to.
    std::string exportFile();

  private:
    std::string importContent(const CsvContent& content, const std::string& fileName);
    void refuse(const std::string& words) const;

    session::Session& session_;
    platform::Desk& desk_;
    const TableStore& store_;
    ChooseTarget chooseTarget_;
};

}  // namespace velmora::workshop_data
