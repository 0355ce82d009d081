#pragma once
// The machine of a line, its operators, and the hourly price of each.

#include <cstdint>
#include <string>

#include "velmora/labour/line_fields.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"

namespace velmora::labour {

class MachineAndOperators {
  public:
    MachineAndOperators(LineFields& fields, session::Session& session, session::KestraUtil& util)
        : f_(fields), session_(session), oUtil_(util) {}

    /// Fills machine, section and operators, and selects the first operator; an unknown id clears the line. Errors: the
    /// database's.
    void msCargarMaquina(std::int32_t id);

    /// Opens the search window. 0 when nothing was chosen.
    std::int32_t msBuscarMaquina();

    /// Takes the price of the selected operator.
    void cboOperarios_Click();

    /// Selects the entry of an operator: the last of several; nothing changes when there is none.
    void choose(std::int32_t idOperator);

    /// On leaving a field of the line: a text that is not a number becomes "0"; the machine is loaded again, the
    /// minutes compute the amount. Errors: 6 for a machine beyond 32 bits; the database's.
    void txtLinea_LostFocus(int Index);

  private:
    void clearLine();
    void workOutAmount();
    void listOperators(std::int32_t idMachine);
    void add(const std::string& name, const std::string& entry);
    void replace(std::int32_t idOperator, const std::string& entry);

    LineFields& f_;
    session::Session& session_;
    session::KestraUtil& oUtil_;
};

}  // namespace velmora::labour
