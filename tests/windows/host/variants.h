#pragma once
// Values and texts between the engine and COM.

#include <cstdint>
#include <string>
#include <string_view>

#include "velmora/platform/sql/value.h"

#include "wine_com.h"

namespace velmora::wine_host {

std::string textOf(const OLECHAR* text, std::size_t length);
std::string textOfBstr(BSTR text);
std::u16string wide(std::string_view utf8);
BSTR newBstr(std::string_view utf8);

/// References are followed. Error 13 for what no column has.
sql::Value valueOf(const VARIANT& value);
/// Fills in an empty variant; binary as an array of bytes, whole numbers as VT_I4 where they fit.
void give(VARIANT& out, const sql::Value& value);
void giveObject(VARIANT& out, IDispatch* object);
/// Null for Nothing; error 13 when it is no object. Not counted.
IDispatch* objectOf(const VARIANT& value);
/// Writes the caller's variable of this type; nothing when it was given by value.
void assignTo(VARIANT& argument, const sql::Value& value);

}  // namespace velmora::wine_host
