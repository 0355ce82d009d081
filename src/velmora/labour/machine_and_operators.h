#pragma once
// The machine of a line, who can run it, and what an hour of each costs.

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

    /// Fills machine, section and operators, and chooses the first operator; an id that no machine has clears the
    /// line. Errors: the database's.
    void msCargarMaquina(std::int32_t id);

    /// The search window. 0 when nothing was chosen.
    std::int32_t msBuscarMaquina();

    /// Takes over the price of the operator chosen.
    void cboOperarios_Click();

    /// Chooses the entry of an operator; the last of several, nothing when there is none.
    void choose(std::int32_t idOperator);

    /// Leaving a field of the line: a text that is no number becomes "0"; the machine is loaded anew, the minutes
    /// work out the amount. Errors: 6 for a machine beyond 32 bits; the database's.
    void txtLinea_LostFocus(int Index);

  private:
    void clearLine();
    void workOutAmount();
    void listOperators(std::int32_t idMachine);
    void add(const std::string& name, std::string entry);
    void replace(std::int32_t idOperator, const std::string& entry);

    LineFields& f_;
    session::Session& session_;
    session::KestraUtil& oUtil_;
};

}  // namespace velmora::labour
