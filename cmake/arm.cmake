# 32-bit ARM with hardware floating point, against a Debian sysroot that ./setup --arm makes.
# Qt's own tools (moc, rcc, qmlcachegen, lrelease) are the build machine's, of the same version.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

if(DEFINED ENV{PANEL_SYSROOT})
    set(CMAKE_SYSROOT $ENV{PANEL_SYSROOT})
else()
    get_filename_component(CMAKE_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/arm-sysroot" ABSOLUTE)
endif()
if(NOT EXISTS "${CMAKE_SYSROOT}/usr/lib/arm-linux-gnueabihf")
    message(FATAL_ERROR "There is no ARM sysroot at ${CMAKE_SYSROOT}; ./setup --arm makes one.")
endif()

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# lrelease runs on the build machine.
file(GLOB PANEL_LINGUIST_TOOLS /usr/lib/*-linux-gnu*/cmake/Qt5LinguistTools)
list(FILTER PANEL_LINGUIST_TOOLS EXCLUDE REGEX arm-linux-gnueabihf)
list(GET PANEL_LINGUIST_TOOLS 0 PANEL_LINGUIST_TOOLS)
set(Qt5LinguistTools_DIR "${PANEL_LINGUIST_TOOLS}" CACHE PATH "Of the build machine")

# Programs of the panel run under the emulator, which has to be called by name.
get_filename_component(PANEL_EMULATE "${CMAKE_CURRENT_LIST_DIR}/../tests/arm/emulate" ABSOLUTE)
set(CMAKE_CROSSCOMPILING_EMULATOR "${PANEL_EMULATE};--sysroot;${CMAKE_SYSROOT}")
