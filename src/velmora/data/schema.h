#pragma once
// Every table that the program reads or writes, once: its own tables and those of the host. The script of a new
// database comes from here; a database of the host brings its own tables.

#include <span>
#include <string>
#include <string_view>

namespace velmora::data {

/// Whose table it is. In a host's database its tables exist before the program does.
enum class Owner { program, host };

/// Where the table lies: in the session's own catalogue, or in the documents' ("DOC" and the name of the former).
enum class Catalog { session, documents };

/// The types of the server that columns use. Measures, weights, times and amounts are `number`.
enum class ColumnType {
    integer,
    number,
    bit,
    text,
    date,
    binary,
    longKey,  ///< numeric(18, 0)
};

enum class Null { no, yes };

struct ColumnDefinition {
    std::string_view name;
    ColumnType type = ColumnType::number;
    int width = 0;  ///< of a text, in UTF-16 units
    Null null = Null::yes;
    std::string_view byDefault = {};  ///< an expression of the server; empty for none
    bool identity = false;            ///< assigned by the server, from 1
    /// What ALTER TABLE … ADD says where an older database lacks the column; empty for one that every database has.
    std::string_view addedAs = {};
};

struct TableDefinition {
    std::string_view name;
    Owner owner = Owner::program;
    std::span<const ColumnDefinition> columns;  ///< in physical order, which grids are bound by
    std::string_view key = {};                  ///< the primary key's column; empty for none
    Catalog catalog = Catalog::session;
};

/// What a list or a look-up of the program searches by, so that it stays quick over many rows.
struct IndexDefinition {
    std::string_view name;
    std::string_view table;    ///< of the session's catalogue
    std::string_view columns;  ///< separated by commas
};

/// All tables, in the order in which they are created.
std::span<const TableDefinition> tables();
std::span<const IndexDefinition> indexes();

/// The table of that name, in any case; nullptr when there is none.
const TableDefinition* findTable(std::string_view name);
/// The column of that name, in any case; nullptr when there is none.
const ColumnDefinition* findColumn(const TableDefinition& table, std::string_view name);

/// What stands before a table's name in a statement: nothing, or "DOC", the session's catalogue and ".dbo.".
std::string catalogPrefix(Catalog catalog, std::string_view sessionCatalog);

/// The gears' table and its key, to the letter as an older database gets them at the start of the program: a new
/// database must not differ from an upgraded one.
inline constexpr std::string_view createEng =
    "CREATE TABLE [dbo].[ENG] ("
    "[ENG_Id] [numeric](18, 0) IDENTITY (1, 1) NOT NULL ,"
    "[ENG_Tipo] [int] NOT NULL ,"
    "[ENG_Modulo] [float] NOT NULL ,"
    "[ENG_Z]   [float] NOT NULL,"
    "[ENG_Paso]  [float] NOT NULL ,"
    "[ENG_Dp]  [float] NOT NULL ,"
    "[ENG_Di] [float] NOT NULL,"
    "[ENG_De]  [float] NOT NULL ,"
    "[ENG_Dm] [float] NOT NULL ,"
    "[ENG_D1]  [float] NOT NULL ,"
    "[ENG_H] [float] NOT NULL,"
    "[ENG_A]  [float] NOT NULL ,"
    "[ENG_B] [float] NOT NULL ,"
    "[ENG_C] [float] NOT NULL "
    " ) ON [PRIMARY]";
inline constexpr std::string_view addKeyOfEng =
    "ALTER TABLE [dbo].[ENG] WITH NOCHECK ADD "
    "CONSTRAINT [PK_ENG] PRIMARY KEY  CLUSTERED "
    "( [ENG_Id] )  ON [PRIMARY]";

}  // namespace velmora::data
