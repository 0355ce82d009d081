#include "velmora/adapters/sqlite/emitters/emitter.h"

#include <utility>
#include <variant>

#include "velmora/adapters/tsql/parser.h"

namespace velmora::sqlite {

using namespace tsql;

Translation Emitter::statement(const StatementTree& tree) {
    struct Visitor {
        Emitter& emitter;
        Translation operator()(const std::unique_ptr<Select>& parsed) const {
            EmittedSelect rows = emitter.select(*parsed, nullptr);
            Translation result;
            result.countStatement = "SELECT count(*) FROM (" + rows.sql.substr(0, rows.orderAt) + ")";
            if (!parsed->top) {
                result.laterRowsStatement = rows.sql + laterRows;
            }
            for (Output& output : rows.outputs) {
                result.columns.push_back({std::move(output.name)});
                result.types.push_back(std::move(output.type));
            }
            result.steps.push_back(std::move(rows.sql));
            result.walkStatement = std::move(rows.walkSql);
            result.keysStatement = std::move(rows.keysSql);
            result.origin = emitter.origin(*parsed);
            result.parameters = emitter.parameters_.take();
            return result;
        }
        Translation operator()(const Insert& parsed) const { return emitter.insert(parsed); }
        Translation operator()(const Update& parsed) const { return emitter.update(parsed); }
        Translation operator()(const Delete& parsed) const { return emitter.remove(parsed); }
        Translation operator()(const CreateTable& parsed) const { return emitter.createTable(parsed); }
        Translation operator()(const AddColumns& parsed) const { return emitter.addColumns(parsed); }
        Translation operator()(const AddKey& parsed) const { return emitter.addKey(parsed); }
        Translation operator()(const DropColumn& parsed) const { return emitter.dropColumn(parsed); }
        Translation operator()(const DropTable& parsed) const { return emitter.dropTable(parsed); }
        Translation operator()(const CreateIndex& parsed) const { return emitter.createIndex(parsed); }
        Translation operator()(const DropIndex& parsed) const { return emitter.dropIndex(parsed); }
        Translation operator()(const AllowGivenKeys& parsed) const { return emitter.allowGivenKeys(parsed); }
    };
    return std::visit(Visitor{*this}, tree);
}

Translation translate(std::string_view statement, Catalog& catalog) {
    const StatementTree tree = parse(statement);
    return Emitter(catalog).statement(tree);
}

Translation translate(std::string_view statement, Catalog& catalog, const Shape& shape) {
    const StatementTree tree = parse(statement);
    return Emitter(catalog, Parameters(shape)).statement(tree);
}

}  // namespace velmora::sqlite
