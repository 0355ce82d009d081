# Cross-compiles for Windows on i686. Arithmetic in SSE2 registers: the older floating-point unit rounds results to 80
# bits on the way, which changes last digits.
set(VELMORA_WINDOWS_TRIPLET i686-w64-mingw32)
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
