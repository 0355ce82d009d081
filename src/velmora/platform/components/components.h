#pragma once
// The components that the host provides: created by name and late-bound.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/errors.h"

namespace velmora::session {
class Session;
}
namespace velmora::screen {
class DataGrid;
}
namespace velmora::sql {
class Recordset;
}

namespace velmora::components {

class Component {
  public:
    virtual ~Component() = default;
};

/// Prints a proposal by its number: VELMORAIMP.VMORAIMP.
class Printing : public Component {
  public:
    virtual void setMyBd(session::Session& session) = 0;
    virtual void jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) = 0;
};

/// Shows a work order by its number: KOLTAR.KOLTARD.
class WorkOrders : public Component {
  public:
    virtual void setMyBd(session::Session& session) = 0;
    virtual void jLoad(std::int32_t number) = 0;
};

/// Writes a grid to a spreadsheet: LIMBAR.jLimbar.
class Spreadsheet : public Component {
  public:
    virtual void setTitulo(std::string_view sTitulo) = 0;
    virtual void GridToExcel(sql::Recordset& rows, const screen::DataGrid& grid) = 0;
};

/// Shows a purchase delivery note by its key: SORVEL.SORVELCOMP.
class DeliveryNotes : public Component {
  public:
    virtual void setMyBd(session::Session& session) = 0;
    virtual void jLoad(std::int32_t id, bool flag) = 0;
};

/// Scans a page into a file: MIRTOL.jMirtol.
class Scanner : public Component {
  public:
    virtual void setFichero(std::string_view path) = 0;
    virtual void jConfig() = 0;
    virtual bool resultado() const = 0;
};

/// Makes components by their ProgID (compared without regard to case).
class ComponentFactory {
  public:
    using Maker = std::function<std::unique_ptr<Component>()>;

    void add(std::string progId, Maker maker);
    std::vector<std::string> progIds() const;

    /// Error 429, with the ProgID in its description, when it is not registered or is of another kind.
    template <typename Kind>
    std::unique_ptr<Kind> create(std::string_view progId) const {
        std::unique_ptr<Component> made = make(progId);
        if (auto* kind = dynamic_cast<Kind*>(made.get())) {
            static_cast<void>(made.release());
            return std::unique_ptr<Kind>(kind);
        }
        refuse(progId);
    }

  private:
    std::unique_ptr<Component> make(std::string_view progId) const;
    [[noreturn]] static void refuse(std::string_view progId);
    std::map<std::string, Maker> makers_;
};

}  // namespace velmora::components
