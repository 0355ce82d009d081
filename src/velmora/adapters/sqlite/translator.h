#pragma once
// Statements to what the engine runs, each shape once.

#include <functional>
#include <memory>
#include <string_view>

#include "velmora/adapters/sqlite/emitters/catalog.h"
#include "velmora/adapters/sqlite/link.h"
#include "velmora/adapters/sqlite/statement_cache.h"
#include "velmora/adapters/tsql/statement_shape.h"

namespace velmora::sqlite {

/// Keeps what it has translated until the tables change. Changes of rows are kept by their shape alone, since their
/// values differ each time; all other statements by their text too.
class Translator {
  public:
    /// What it works with. All of it must outlive the translator.
    struct Surroundings {
        Catalog& catalog;
        std::function<Link&()> link;         ///< on which the statements run
        std::function<bool()> forgetTables;  ///< of the catalog; false when it knew none
    };

    Translator(Surroundings surroundings, const Options& options)
        : with_(std::move(surroundings)), byShape_(options.preparesByShape), cache_(options.cachedStatements) {}

    /// Errors: those of translate().
    std::shared_ptr<CachedStatement> statementOf(std::string_view text);
    void forget() { cache_.clear(); }

  private:
    std::shared_ptr<CachedStatement> known(std::string_view text);
    std::shared_ptr<CachedStatement> translated(std::string_view text, const tsql::Shape& shape);
    std::shared_ptr<CachedStatement> ofShape(std::string_view text, const tsql::Shape& shape);
    std::shared_ptr<CachedStatement> made(std::string_view text, Translation translation);

    Surroundings with_;
    bool byShape_;
    StatementCache cache_;
};

}  // namespace velmora::sqlite
