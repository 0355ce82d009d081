#include "velmora/apps/workshop_data/column_sheet.h"

#include <cstdint>

#include "velmora/apps/workshop_data/tables.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::workshop_data {

namespace {

constexpr const char* introduction =
    "# Los datos del taller en archivos CSV\n"
    "\n"
    "Cada tabla del menú «Datos» se exporta a un archivo CSV y se importa de él: clientes, artículos, máquinas… Sirve "
    "para\n"
    "llenar un taller vacío con lo que ya está en una hoja de cálculo, y para cambiar muchas filas de una vez.\n"
    "\n"
    "- Los valores van separados por punto y coma, los decimales llevan coma y los miles nada: `1234,5`.\n"
    "- Un valor con punto y coma o comillas va entre comillas, y sus comillas son dobles: `\"Cadena 1/2\"\"\"`.\n"
    "- La primera fila dice las columnas, por su nombre en la pantalla o en la base de datos, en cualquier orden.\n"
    "- Las letras son UTF-8, con marca o sin ella, o Windows-1252, como las escriben las hojas de cálculo.\n"
    "- Una fila se reconoce por su clave (**en negrita**). La que ya está se cambia; la que no está se añade. Las "
    "filas\n"
    "  de la tabla que el archivo no trae se quedan como están, y también las columnas que no trae.\n"
    "- Antes de grabar se ve qué haría el archivo. Con un solo error no se graba nada; cada uno dice su línea, su "
    "columna\n"
    "  y su motivo. Se graba todo o nada, también si se va la luz.\n"
    "\n"
    "Un taller vacío se llena en el orden de esta página: una tabla va detrás de las que nombra. Lo que se exporta de "
    "un\n"
    "taller deja otro, vacío, con los mismos datos.\n";

std::string textOf(double number) {
    return runtime::CStr(number);
}

std::string wordsOf(const Column& column) {
    std::string all;
    for (const Choice& choice : column.choices) {
        all += (all.empty() ? "" : ", ") + std::string(choice.words) + " (" + textOf(choice.value) + ")";
    }
    return all;
}

std::string kindOf(const Table& table, const Column& column) {
    const std::string unit = column.unit.empty() ? "" : " en " + std::string(column.unit);
    switch (column.kind) {
        case Kind::text:
            return "texto, hasta " + textOf(widthOf(table, column)) + " letras";
        case Kind::wholeNumber:
            return "número entero, de " + textOf(column.least) + " a " + textOf(column.most);
        case Kind::number:
            return "número" + unit + ", desde " + textOf(column.least);
        case Kind::flag:
        case Kind::presence:
            return "Sí o No";
        case Kind::choice:
            return wordsOf(column);
        case Kind::reference:
            return std::string(column.reference->codeCaption) + " de «" +
                   std::string(findTable(column.reference->table)->title) + "»";
    }
    return {};
}

std::string lineOf(const Table& table, const Column& column) {
    const std::string mark = isKey(table, column) ? "**" : "";
    const std::string begins =
        column.onNew.empty() ? (column.required ? "sí" : "") : "si falta: " + std::string(column.onNew);
    return "| " + mark + std::string(column.caption) + mark + " | `" + std::string(column.name) + "` | " +
           kindOf(table, column) + " | " + begins + " | " + std::string(column.explanation) + " |\n";
}

}  // namespace

std::string columnSheet() {
    std::string sheet = introduction;
    for (const Table& table : allTables()) {
        sheet += "\n## " + std::string(table.title) + "\n\n`" + std::string(table.fileName) +
                 ".csv`\n\n| columna | en la base de datos | valor | obligatoria | |\n|---|---|---|---|---|\n";
        for (const Column& column : table.columns) {
            sheet += lineOf(table, column);
        }
    }
    return sheet;
}

}  // namespace velmora::workshop_data
