#include "adapters/com/fake_host.h"

namespace velmora::com {

namespace {

struct CannedRows {
    std::vector<std::string> columns;
    std::vector<sql::Row> rows;
    std::size_t position = 0;
};

constexpr HRESULT noCurrentRow = static_cast<HRESULT>(0x800A0BCDL);

HRESULT giveRows(FakeCall& call, CannedRows& canned) {
    const std::size_t wanted = static_cast<std::size_t>(call.value(0).toLong());
    const std::size_t given = std::min(wanted, canned.rows.size() - canned.position);
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(canned.columns.size()), 0}, {static_cast<ULONG>(given), 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 2, bounds);
    for (std::size_t row = 0; row < given; ++row) {
        for (std::size_t column = 0; column < canned.columns.size(); ++column) {
            LONG place[2] = {static_cast<LONG>(column), static_cast<LONG>(row)};
            Variant value = Variant::of(canned.rows[canned.position + row][column]);
            SafeArrayPutElement(array, place, value.address());
        }
    }
    canned.position += given;
    Variant block;
    block.address()->vt = VT_ARRAY | VT_VARIANT;
    block.address()->parray = array;
    return call.answer(std::move(block));
}

Ref<FakeObject> fakeField(const std::shared_ptr<SeenCalls>& seen, const std::shared_ptr<CannedRows>& canned,
                          std::size_t column) {
    const auto field = FakeObject::make(seen);
    field->onGet("Name", Variant::text(canned->columns[column]));
    field->on("Value", DISPATCH_PROPERTYGET, [canned, column](FakeCall& call) {
        if (canned->position >= canned->rows.size()) {
            return call.raise(noCurrentRow, "No hay fila actual", "Host.Data");
        }
        return call.answer(Variant::of(canned->rows[canned->position][column]));
    });
    return field;
}

}  // namespace

Ref<FakeObject> fakeSet(const std::shared_ptr<SeenCalls>& seen, const std::vector<std::string>& columns,
                        const std::vector<sql::Row>& rows, SetKind kind) {
    const auto canned = std::make_shared<CannedRows>(CannedRows{.columns = columns, .rows = rows});
    const auto fields = FakeObject::make(seen);
    fields->onGet("Count", Variant::longNumber(static_cast<std::int32_t>(columns.size())));
    fields->on("Item", DISPATCH_PROPERTYGET, [canned, seen](FakeCall& call) {
        return call.answer(fakeField(seen, canned, static_cast<std::size_t>(call.value(0).toLong()))->variant());
    });
    auto set = FakeObject::make(seen);
    set->onGet("Fields", fields->variant());
    set->on("EOF", DISPATCH_PROPERTYGET, [canned](FakeCall& call) {
        return call.answer(Variant::boolean(canned->position >= canned->rows.size()));
    });
    set->on("MoveNext", DISPATCH_METHOD, [canned](FakeCall&) {
        ++canned->position;
        return S_OK;
    });
    if (kind == SetKind::inBlocks) {
        set->onGet("State", Variant::longNumber(1));
        set->on("GetRows", DISPATCH_METHOD, [canned](FakeCall& call) { return giveRows(call, *canned); });
    }
    return set;
}

Ref<FakeObject> fakeClosedSet(const std::shared_ptr<SeenCalls>& seen) {
    auto set = FakeObject::make(seen);
    set->onGet("State", Variant::longNumber(0));
    return set;
}

FakeConnection::FakeConnection(std::shared_ptr<SeenCalls> shared)
    : object(FakeObject::make(shared)), seen(std::move(shared)) {
    object->on("Execute", DISPATCH_METHOD, [this](FakeCall& call) { return execute(call); });
    for (const char* step : {"BeginTrans", "CommitTrans", "RollbackTrans"}) {
        object->on(step, DISPATCH_METHOD, [this, step](FakeCall&) {
            statements.push_back(step);
            return S_OK;
        });
    }
    refuse("DECLARE @answer", static_cast<HRESULT>(0x80040E14L), "No se conoce sp_getapplock");
}

HRESULT FakeConnection::execute(FakeCall& call) {
    const std::string statement = call.value(0).toText();
    statements.push_back(statement);
    const Answer* answer = nullptr;
    for (const auto& [beginning, known] : answers_) {
        answer = statement.starts_with(beginning) ? &known : answer;
    }
    return answer != nullptr ? (*answer)(call) : call.answer(fakeClosedSet(seen)->variant());
}

void FakeConnection::answerRows(const std::string& beginning, const std::vector<std::string>& columns,
                                const std::vector<sql::Row>& rows) {
    answer(beginning,
           [this, columns, rows](FakeCall& call) { return call.answer(fakeSet(seen, columns, rows)->variant()); });
}

void FakeConnection::refuse(const std::string& beginning, HRESULT code, const std::string& description) {
    answer(beginning, [code, description](FakeCall& call) { return call.raise(code, description, "Host.Provider"); });
}

void FakeConnection::grantLock(int granted) {
    answerRows("DECLARE @answer", {"answer"}, {{granted}});
    answerRows("SELECT @@TRANCOUNT", {"open_transactions"}, {{1}});
}

void needCom() {
    static const HRESULT entered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    static_cast<void>(entered);
}

}  // namespace velmora::com
