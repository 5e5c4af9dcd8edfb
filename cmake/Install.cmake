# "make install" (cmake --install; PREFIX and DESTDIR honoured) and "make deb" (CPack): the
# executables in bin/, the program folder's shipped data in share/quillstone/, and what the desktop
# wants: the .desktop entry, the icon, the AppStream metainfo and the manual pages. An installed
# copy keeps each user's program folder in their own data folder (settings/InstalledCopy).
include(GNUInstallDirs)

install(TARGETS quillstone quillstone-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET quillstone-import)
  install(TARGETS quillstone-import RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/tools/import/mods.d
          DESTINATION ${CMAKE_INSTALL_DATADIR}/quillstone-import)
endif()

set(QS_SHARE ${CMAKE_INSTALL_DATADIR}/quillstone)
if(TARGET program_folder)
  # The imported works and the reference files; the executables, the user's own files and
  # anything a run of the program left behind stay out.
  install(DIRECTORY ${QS_PROGRAM_DIR}/ DESTINATION ${QS_SHARE}
          PATTERN "quillstone" EXCLUDE
          PATTERN "quillstone-cli" EXCLUDE
          PATTERN "quillstone-import" EXCLUDE
          PATTERN "window.ini" EXCLUDE
          PATTERN "general.cfg" EXCLUDE
          PATTERN "display.cfg" EXCLUDE
          PATTERN "bookmarks.dat" EXCLUDE
          PATTERN "export.txt" EXCLUDE
          REGEX "/\\.[^/]*$" EXCLUDE)
endif()
# The settings a new user starts from, as the sources have them.
install(FILES ${PROJECT_SOURCE_DIR}/data/window.ini ${PROJECT_SOURCE_DIR}/data/general.cfg
              ${PROJECT_SOURCE_DIR}/data/display.cfg ${PROJECT_SOURCE_DIR}/data/bookmarks.dat
        DESTINATION ${QS_SHARE})

set(QS_DESKTOP ${PROJECT_SOURCE_DIR}/data/desktop)
install(FILES ${QS_DESKTOP}/org.quillstone.quillstone.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${QS_DESKTOP}/org.quillstone.quillstone.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${QS_DESKTOP}/org.quillstone.quillstone.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${PROJECT_SOURCE_DIR}/docs/man/quillstone.1 ${PROJECT_SOURCE_DIR}/docs/man/quillstone-cli.1
              ${PROJECT_SOURCE_DIR}/docs/man/quillstone-import.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillstone)
set(CPACK_PACKAGE_VENDOR "The Quillstone developers")
set(CPACK_PACKAGE_CONTACT "The Quillstone developers <support@quillstone.example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Bible reader and study program")
set(CPACK_PACKAGE_DESCRIPTION "Read, search and study the Bible: notes, bookmarks, commentary, \
Strong's lexicon and concordance, topics and a verse of the day; SWORD Bible modules imported in \
any language and verse numbering.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The window needs a display plugin, which Debian packages apart from the Qt libraries.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-dejavu-core")
include(CPack)
