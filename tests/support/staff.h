#pragma once
// Machines and their operators for the tests of labour.

#include "velmora/platform/sql/connection.h"

namespace velmora::support {

/// Machines 10 (Ana, 30 €), 11 (Begoña assigned at 39,5, Ana at 33, Carlos at 0), 12 (no section, Dora at 24) and 13
/// (nobody); sections Torno and Corte.
inline void addStaff(sql::Connection& database) {
    for (const char* row : {
             "INSERT INTO RSEC (RSEC_ID,RSEC_NOM) VALUES (1,N'Torno')",
             "INSERT INTO RSEC (RSEC_ID,RSEC_NOM) VALUES (2,N'Corte')",
             "INSERT INTO MAQ (MAQ_ID,MAQ_NOM,MAQ_SEC) VALUES (10,N'Torno CNC',1)",
             "INSERT INTO MAQ (MAQ_ID,MAQ_NOM,MAQ_SEC) VALUES (11,N'Sierra',2)",
             "INSERT INTO MAQ (MAQ_ID,MAQ_NOM,MAQ_SEC) VALUES (12,N'Prensa',NULL)",
             "INSERT INTO MAQ (MAQ_ID,MAQ_NOM,MAQ_SEC) VALUES (13,N'Robot',2)",
             "INSERT INTO OPE (OPE_ID,OPE_NOM,OPE_VENTA,OPE_MAD) VALUES (1,N'Ana',30,10)",
             "INSERT INTO OPE (OPE_ID,OPE_NOM,OPE_VENTA,OPE_MAD) VALUES (2,N'Begoña',36,11)",
             "INSERT INTO OPE (OPE_ID,OPE_NOM,OPE_VENTA,OPE_MAD) VALUES (3,N'Carlos',20,NULL)",
             "INSERT INTO OPE (OPE_ID,OPE_NOM,OPE_VENTA,OPE_MAD) VALUES (4,N'Dora',24,12)",
             "INSERT INTO OBM (OBM_OPE,OBM_MAQ,OBM_PTR) VALUES (1,11,33)",
             "INSERT INTO OBM (OBM_OPE,OBM_MAQ,OBM_PTR) VALUES (2,11,39.5)",
             "INSERT INTO OBM (OBM_OPE,OBM_MAQ,OBM_PTR) VALUES (3,11,0)",
         }) {
        database.execute(row);
    }
}

}  // namespace velmora::support
