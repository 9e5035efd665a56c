# One folder that runs from anywhere: the programs, the DLLs they need beside them, Qt's plugins and
# German texts, documents. packaging/windows/licences.sh adds the licences.
foreach(library IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                  OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
  list(APPEND runtime_libraries ${path})
endforeach()

install(TARGETS packwright-build packwright-setup RUNTIME DESTINATION .)
install(FILES ${runtime_libraries} DESTINATION .)
install(FILES README.md CHANGELOG.md DESTINATION .)
file(GLOB documents CONFIGURE_DEPENDS docs/*.md docs/*.png)
install(FILES ${documents} DESTINATION docs)

if(TARGET packwright)
  cmake_path(GET PACKWRIGHT_GUIDE PARENT_PATH guide)
  install(FILES ${PACKWRIGHT_GUIDE} DESTINATION docs)
  install(DIRECTORY ${guide}/kapitel DESTINATION docs)
  install(TARGETS packwright RUNTIME DESTINATION .)
  foreach(module IN ITEMS Core Gui Widgets)
    install(FILES $<TARGET_FILE:Qt6::${module}> DESTINATION .)
  endforeach()
  install(FILES ${PACKWRIGHT_QT}/plugins/platforms/qwindows.dll DESTINATION platforms)
  install(FILES ${PACKWRIGHT_QT}/plugins/styles/qwindowsvistastyle.dll DESTINATION styles)
  install(FILES packaging/windows/qt.conf DESTINATION .)
  # Qt's own texts do not depend on the platform; the version is the same.
  install(FILES /usr/share/qt6/translations/qtbase_de.qm DESTINATION translations)
endif()
