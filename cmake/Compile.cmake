# What every C++ target of the project is compiled with; nothing of it reaches a consumer of the installed library.
add_library(rti1516e_compile INTERFACE)
target_include_directories(rti1516e_compile INTERFACE ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR})
target_compile_options(rti1516e_compile INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  # The published interface hands out std::auto_ptr, so the library has to name it.
  -Wno-deprecated-declarations
  # Calls within and between the libraries go straight to where they are bound for.
  -fno-plt -fno-semantic-interposition
  $<$<BOOL:${RTI1516E_DEVELOPER}>:-Werror>)
if(RTI1516E_SANITIZE)
  add_compile_options(-fsanitize=${RTI1516E_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${RTI1516E_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # What the sanitizers add to the code confuses this warning of g++, down to the standard library's headers.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()

# Leaves a shared library no other exported names than those of a version script.
function(rti1516e_export_only target script)
  target_link_options(${target} PRIVATE LINKER:--version-script=${script})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()
