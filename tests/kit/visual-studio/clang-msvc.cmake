# Compiles C as Visual Studio does, without any of Visual Studio: clang knows its conventions, lld-link
# its linker's, and no header or library but the kit's is used.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER clang)
set(CMAKE_C_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_RC_COMPILER llvm-rc)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_C_FLAGS_INIT -ffreestanding)
set(CMAKE_C_STANDARD_LIBRARIES "")
set(CMAKE_MSVC_RUNTIME_LIBRARY "")
