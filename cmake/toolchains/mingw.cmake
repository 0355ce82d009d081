# What both sizes of Windows share; VELMORA_WINDOWS_TRIPLET names the compiler. The variant with POSIX threads is the one
# whose standard library has std::thread and std::mutex.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER "${VELMORA_WINDOWS_TRIPLET}-gcc-posix")
set(CMAKE_CXX_COMPILER "${VELMORA_WINDOWS_TRIPLET}-g++-posix")
set(CMAKE_RC_COMPILER "${VELMORA_WINDOWS_TRIPLET}-windres")
set(CMAKE_FIND_ROOT_PATH "/usr/${VELMORA_WINDOWS_TRIPLET}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Static libraries of the compiler, which bring std::thread too.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../scripts/wine.sh")
