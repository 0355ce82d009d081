#pragma once
// Proposals that are found by their number, their customer, their texts and their toothing.

#include <string>

#include "velmora/data/new_database.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::finding {

/// Proposals 1 to 8.
inline void fillProposals(sql::Connection& database) {
    data::createDatabase(database);
    for (const char* row : {
             "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER) VALUES (1,1001,N'Talleres Fernández, S.L.',N'Ferñán')",
             "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER) VALUES (2,1002,N'Harinas d''Ebre',NULL)",
             "INSERT INTO CLI (CLI_ID,CLI_COD,CLI_NOM,CLI_COMER) VALUES (3,NULL,N'Talleres sin código',NULL)",
         }) {
        database.execute(row);
    }
    const std::string columns =
        "INSERT INTO DPI (DPI_Tipo,DPI_Z,DPI_Pas,Dpi_Modulo,DPI_CodCliente,DPI_NomCliente,DPI_RefCli,DPI_PedCliente,"
        "DPI_Unidades,DPI_Importe,DPI_FAcepta,DPI_Orden) VALUES ";
    for (const char* row : {
             "(0,38,12.7,0,1001,N'Talleres Fernández, S.L.',N'P-100',NULL,3,300.5,NULL,NULL)",
             "(1,38,9.53,0,1002,N'Harinas d''Ebre',N'50% [urgente]',NULL,1,80,'20260110',57)",
             "(8,20,6.28,2,1002,N'Harinas d''Ebre',N'eje_7',N'PC-2122',1,90,'20260111',NULL)",
             "(0,38,12.7,0,3333,N'Cervecera LA CIGÜEÑA',NULL,NULL,1,70,NULL,NULL)",
             "(13,0,6.28,2,1001,N'Talleres Fernández, S.L.',N'1002',NULL,1,60,NULL,NULL)",
             "(3,0,0,0,0,N'Sin número',N'polea',NULL,1,50,NULL,NULL)",
             "(NULL,NULL,NULL,0,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL)",
             // Before the customer's name was changed.
             "(0,15,25.4,0,1001,N'Fdez. hijos',N'vieja',NULL,1,40,NULL,NULL)",
         }) {
        database.execute(columns + row);
    }
}

}  // namespace velmora::finding
