# Cross-compiles for Windows on x86_64 with the distribution's compiler. The runtime libraries of the compiler are linked
# in, so that a file of ours needs no other beside it.
set(VELMORA_WINDOWS_TRIPLET x86_64-w64-mingw32)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
