// Prints docs/datos-csv.md.

#include <iostream>

#include "velmora/apps/workshop_data/column_sheet.h"

int main() {
    std::cout << velmora::workshop_data::columnSheet();
}
