# What "cmake --install" and the Debian package put where.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/packwright)

install(TARGETS packwright-build packwright-setup RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES packaging/man/packwright-build.1 packaging/man/packwright-setup.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# bash looks for a file of each program's name.
foreach(program IN ITEMS packwright-build packwright-setup)
  install(FILES packaging/completion/packwright
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME ${program})
endforeach()
install(FILES README.md CHANGELOG.md docs/checking-setups.md docs/file-formats.md
        docs/headless-builds.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(TARGET packwright)
  install(TARGETS packwright RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES packaging/man/packwright.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  file(GLOB pictures CONFIGURE_DEPENDS docs/*.png)
  install(FILES ${PACKWRIGHT_GUIDE} ${pictures} DESTINATION ${CMAKE_INSTALL_DOCDIR})
  cmake_path(GET PACKWRIGHT_GUIDE PARENT_PATH guide)
  install(DIRECTORY ${guide}/kapitel DESTINATION ${CMAKE_INSTALL_DOCDIR})

  set(linux ${PROJECT_SOURCE_DIR}/packaging/linux)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES ${linux}/packwright.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${linux}/packwright-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
          RENAME packwright.xml)
  install(FILES ${linux}/org.packwright.Packwright.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES resources/icons/packwright.svg DESTINATION ${icons}/scalable/apps)
  install(FILES ${linux}/packwright-symbolic.svg DESTINATION ${icons}/symbolic/apps)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME packwright)
set(CPACK_PACKAGE_VENDOR Quillon)
set(CPACK_PACKAGE_CONTACT "Packwright maintainers <packwright@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "authoring tool for software installers")
set(CPACK_PACKAGE_DESCRIPTION
    "Describes software products - versions, components, files, registry keys - and builds a
version into a setup for the Tessel runtime. With packwright-build, which builds without a display.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(TARGET packwright)
  # Loaded at run time: German texts of Qt's own dialogs.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-translations-l10n)
endif()
include(CPack)
