# Compiler and linker options of all targets.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

# Warnings are errors in the presets only: another compiler may have more of them.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow)
# A library may inline its own exported functions.
add_compile_options(-fno-semantic-interposition)
# RUNPATH instead of RPATH: libraries are searched in LD_LIBRARY_PATH first, then beside the library.
add_link_options(-Wl,--enable-new-dtags)

if(STYLEATLAS_SANITIZE)
  add_compile_options(-fsanitize=${STYLEATLAS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${STYLEATLAS_SANITIZE})
elseif(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
  # Builds for users are hardened. FORTIFY_SOURCE needs optimised code; sanitizers have checks of their own.
  add_compile_options(-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  add_link_options(-Wl,-z,relro,-z,now)
  include(CheckPIESupported)
  check_pie_supported()
endif()
