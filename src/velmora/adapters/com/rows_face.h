#pragma once
// A set of the program as others see it: an object with the members of an ADO Recordset that are needed to read it.

#include "velmora/adapters/com/automation_object.h"
#include "velmora/adapters/com/collection.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::com {

/// Shares the cursor of the set. The fields follow the current row. Errors of its members: those of sql::Recordset.
class RowsFace final : public AutomationObject<RowsFace> {
  public:
    explicit RowsFace(sql::Recordset rows);
    static std::span<const Member<RowsFace>> members();

  private:
    void fields(Call& call);
    void eof(Call& call);
    void bof(Call& call);
    void recordCount(Call& call);
    void state(Call& call);
    void moveFirst(Call& call);
    void moveLast(Call& call);
    void moveNext(Call& call);
    void movePrevious(Call& call);
    void clone(Call& call);
    void close(Call& call);

    sql::Recordset rows_;
    Ref<Collection> fields_;
};

}  // namespace velmora::com
