// Holds the precompiled header of the test programs (tests/CMakeLists.txt).
int main() {
    return 0;
}
