# What the library links besides the standard library.
#
#   ZOR_EXTERNAL_LIBRARIES   to link, also by programs made of the layers' objects (tests, benchmarks)
#   ZOR_EXTERNAL_PACKAGES    CMake packages that a user of the static library has to find
#   ZOR_EXTERNAL_MODULES     the same for pkg-config
#   ZOR_HAVE_PNG, ZOR_HAVE_JPEG   true if found; then also defined for the sources

find_package(Threads REQUIRED)
set(ZOR_EXTERNAL_LIBRARIES Threads::Threads)
set(ZOR_EXTERNAL_PACKAGES "")
set(ZOR_EXTERNAL_MODULES "")

foreach(format PNG JPEG)
  set(ZOR_HAVE_${format} FALSE)
  if(ZOR_WITH_${format})
    find_package(${format})
    if(${format}_FOUND)
      set(ZOR_HAVE_${format} TRUE)
      string(TOLOWER lib${format} module)
      list(APPEND ZOR_EXTERNAL_LIBRARIES ${format}::${format})
      list(APPEND ZOR_EXTERNAL_PACKAGES ${format})
      list(APPEND ZOR_EXTERNAL_MODULES ${module})
    endif()
  endif()
endforeach()
