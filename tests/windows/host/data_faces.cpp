#include "data_faces.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/sql/db_error.h"

#include "variants.h"

namespace velmora::wine_host {

namespace {

using Rows = std::shared_ptr<sql::Recordset>;

constexpr int closedState = 0;
constexpr int openState = 1;

Object fieldOf(const Rows& rows, std::size_t column, const std::function<void(std::size_t, sql::Bytes)>& write) {
    std::vector<Member> members{
        {"name", isGet, [rows, column](Call& call) { give(call.result(), rows->columns()[column].name); }},
        {"value", isGet, [rows, column](Call& call) { give(call.result(), (*rows)[column]); }, true},
    };
    if (write) {
        members.push_back({"value", isPut,
                           [write, column](Call& call) { write(column, std::get<sql::Bytes>(call.value(0).raw())); }});
    }
    return makeFace(std::move(members));
}

std::shared_ptr<IDispatch> fieldsOf(const Rows& rows,
                                    const std::function<void(std::size_t, sql::Bytes)>& write = nullptr) {
    std::vector<Item> fields;
    if (rows->isOpen()) {
        for (std::size_t column = 0; column < rows->columns().size(); ++column) {
            fields.push_back({rows->columns()[column].name, shared(fieldOf(rows, column, write))});
        }
    }
    return shared(makeCollection(std::move(fields)));
}

/// The next rows, as an array of the fields by the rows. Moves behind them.
void takeRows(sql::Recordset& rows, std::size_t most, VARIANT& out) {
    std::vector<sql::Row> taken;
    const std::size_t columns = rows.columns().size();
    while (taken.size() < most && !rows.eof()) {
        sql::Row row;
        for (std::size_t column = 0; column < columns; ++column) {
            row.push_back(rows[column]);
        }
        taken.push_back(std::move(row));
        rows.moveNext();
    }
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(columns), 0}, {static_cast<ULONG>(taken.size()), 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 2, bounds);
    void* data = nullptr;
    if (array == nullptr || SafeArrayAccessData(array, &data) < 0) {
        throw std::bad_alloc();
    }
    auto* cell = static_cast<VARIANT*>(data);
    for (const sql::Row& row : taken) {
        for (const sql::Value& value : row) {
            give(*cell++, value);
        }
    }
    SafeArrayUnaccessData(array);
    V_VT(&out) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&out) = array;
}

/// What a set that is read and one that is written have alike.
std::vector<Member> readingMembers(const Rows& rows) {
    return {
        {"state", isGet, [rows](Call& call) { give(call.result(), rows->isOpen() ? openState : closedState); }},
        {"eof", isGet, [rows](Call& call) { give(call.result(), rows->eof()); }},
        {"bof", isGet, [rows](Call& call) { give(call.result(), rows->bof()); }},
        {"movenext", isMethod, [rows](Call&) { rows->moveNext(); }},
        {"movefirst", isMethod, [rows](Call&) { rows->moveFirst(); }},
        {"close", isMethod, [rows](Call&) { *rows = sql::Recordset(); }},
    };
}

/// The last error of a connection, as its collection Errors tells it.
struct LastError {
    bool isSet = false;
    sql::DbError::Details details{};
};

Object errorsOf(const LastError& last) {
    std::vector<Item> items;
    if (last.isSet) {
        items.push_back(
            {"",
             shared(makeFace({
                 {"nativeerror", isGet,
                  [details = last.details](Call& call) { give(call.result(), details.nativeCode); }},
                 {"sqlstate", isGet, [details = last.details](Call& call) { give(call.result(), details.sqlState); }},
             }))});
    }
    return makeCollection(std::move(items));
}

Object propertiesOf(sql::Connection& connection) {
    Object catalog = makeFace(
        {{"value", isGet, [&connection](Call& call) { give(call.result(), connection.currentCatalog()); }, true}});
    return makeCollection({{"Current Catalog", shared(std::move(catalog))}});
}

}  // namespace

bool isOfTheBorder(std::string_view statement) {
    return statement == "SET DATEFORMAT dmy" || statement == "SELECT 1 AS alive" || statement == "SELECT @@TRANCOUNT" ||
           statement.find("sp_getapplock") != std::string_view::npos;
}

Object makeSetFace(sql::Recordset opened) {
    const Rows rows = std::make_shared<sql::Recordset>(std::move(opened));
    std::vector<Member> members = readingMembers(rows);
    members.push_back(
        {"fields", isGet, [fields = fieldsOf(rows)](Call& call) { giveObject(call.result(), fields.get()); }});
    members.push_back({"getrows", isMethod, [rows](Call& call) {
                           takeRows(*rows, static_cast<std::size_t>(call.value(0).toLong()), call.result());
                       }});
    return makeFace(std::move(members));
}

Object makeConnectionFace(sql::Connection& connection) {
    const auto last = std::make_shared<LastError>();
    const auto watched = [last](const auto& work) {
        return [last, work](Call& call) {
            *last = {};
            try {
                work(call);
            } catch (const sql::DbError& e) {
                *last = {true, e.details()};
                throw;
            }
        };
    };
    return makeFace({
        {"execute", isMethod, watched([&connection](Call& call) {
             ++traffic().statements;
             const Object set = makeSetFace(connection.execute(call.text(0)));
             giveObject(call.result(), set.get());
         })},
        {"begintrans", isMethod, watched([&connection](Call&) { connection.beginTrans(); })},
        {"committrans", isMethod, watched([&connection](Call&) { connection.commitTrans(); })},
        {"rollbacktrans", isMethod, watched([&connection](Call&) { connection.rollbackTrans(); })},
        {"properties", isGet,
         [properties = shared(propertiesOf(connection))](Call& call) { giveObject(call.result(), properties.get()); }},
        {"errors", isGet,
         [last](Call& call) {
             const Object errors = errorsOf(*last);
             giveObject(call.result(), errors.get());
         }},
        {"state", isGet,
         [&connection](Call& call) { give(call.result(), connection.isAlive() ? openState : closedState); }},
    });
}

Object makeWritableSetFace(sql::Connection& connection) {
    const Rows rows = std::make_shared<sql::Recordset>();
    /// Column and content, kept until Update.
    const auto pending = std::make_shared<std::vector<std::pair<std::size_t, sql::Bytes>>>();
    std::vector<Member> members = readingMembers(rows);
    members.push_back({"open", isMethod, [rows, &connection](Call& call) {
                           ++traffic().statements;
                           *rows = connection.execute(call.text(0));
                       }});
    members.push_back({"fields", isGet, [rows, pending](Call& call) {
                           const auto fields = fieldsOf(rows, [pending](std::size_t column, sql::Bytes content) {
                               pending->emplace_back(column, std::move(content));
                           });
                           giveObject(call.result(), fields.get());
                       }});
    members.push_back({"update", isMethod, [rows, pending](Call&) {
                           for (auto& [column, content] : std::exchange(*pending, {})) {
                               rows->updateBinary(column, std::move(content));
                           }
                       }});
    return makeFace(std::move(members));
}

}  // namespace velmora::wine_host
