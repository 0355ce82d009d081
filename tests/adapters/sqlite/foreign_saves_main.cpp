// The other process of the tests of open sets.

#include "support/foreign_saves.h"

int main(int argc, char** argv) {
    return velmora::test::runForeignSaves(argc, argv).value_or(2);
}
