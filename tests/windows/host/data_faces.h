#pragma once
// The host's data as the component sees it: connection, result sets, and the set through which documents are written.

#include "velmora/platform/sql/connection.h"

#include "face.h"

namespace velmora::wine_host {

/// The members of an ADO Connection. The connection must outlive the face.
Object makeConnectionFace(sql::Connection& connection);

/// The members of an ADO Recordset, of which the component reads. A set keeps its own cursor.
Object makeSetFace(sql::Recordset rows);

/// ADODB.Recordset: opened on a connection of this host, given as the face of it; its binary columns can be written.
Object makeWritableSetFace(sql::Connection& connection);

/// True for a statement that the component sends of itself, to any connection.
bool isOfTheBorder(std::string_view statement);

}  // namespace velmora::wine_host
