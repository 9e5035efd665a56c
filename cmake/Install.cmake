# What "cmake --install" puts where.
if(WIN32)
  include(InstallWindows)
else()
  include(InstallUnix)
endif()
