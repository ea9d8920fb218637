# Install layout of a Linux desktop program, and the .deb made from it.
include(GNUInstallDirs)

set(VELMORA_ID org.velmora.Velmora)
set(VELMORA_HOMEPAGE "https://velmora.github.io" CACHE STRING "Home page named in the package and the AppStream file")
set(VELMORA_SCREENSHOT_URL "${VELMORA_HOMEPAGE}/docs/screenshot.png" CACHE STRING "Where the AppStream screenshot is published")
set(VELMORA_MAINTAINER "Velmora developers <velmora@users.noreply.github.com>" CACHE STRING "Package maintainer")
set(desktop ${PROJECT_SOURCE_DIR}/data/desktop)
set(gen ${CMAKE_BINARY_DIR}/install)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The programs find their shipped files in ../share/velmora beside bin.
install(TARGETS velmora-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES data/puzzles.vlm data/all.col data/velmora.htm DESTINATION ${CMAKE_INSTALL_DATADIR}/velmora)
install(FILES ${desktop}/velmora-cli.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME velmora-cli)

# Debian wants man pages and the changelog compressed without a time stamp.
set(gzipped)
foreach(f velmora.6 velmora-cli.6 changelog)
  add_custom_command(OUTPUT ${gen}/${f}.gz COMMAND ${CMAKE_COMMAND} -E make_directory ${gen}
                     COMMAND gzip -9n -c ${desktop}/${f} > ${gen}/${f}.gz DEPENDS ${desktop}/${f} VERBATIM)
  list(APPEND gzipped ${gen}/${f}.gz)
endforeach()
add_custom_target(velmora_install_files ALL DEPENDS ${gzipped})
install(FILES ${gen}/velmora-cli.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
install(FILES ${desktop}/copyright ${gen}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(TARGET velmora)
  install(TARGETS velmora RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${gen}/velmora.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
  install(FILES ${desktop}/${VELMORA_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${desktop}/${VELMORA_ID}.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
          RENAME ${VELMORA_ID}.xml)
  configure_file(${desktop}/${VELMORA_ID}.metainfo.xml.in ${gen}/${VELMORA_ID}.metainfo.xml @ONLY)
  install(FILES ${gen}/${VELMORA_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  # The icon is drawn by hand as SVG; the bitmap size is rendered from it.
  find_program(RSVG_CONVERT rsvg-convert REQUIRED)
  add_custom_command(OUTPUT ${gen}/${VELMORA_ID}.png
                     COMMAND ${RSVG_CONVERT} -w 256 -h 256 -o ${gen}/${VELMORA_ID}.png ${desktop}/${VELMORA_ID}.svg
                     DEPENDS ${desktop}/${VELMORA_ID}.svg VERBATIM)
  add_custom_target(velmora_icon ALL DEPENDS ${gen}/${VELMORA_ID}.png)
  install(FILES ${desktop}/${VELMORA_ID}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES ${gen}/${VELMORA_ID}.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/256x256/apps)
endif()

# Debian keeps games in /usr/games: the package's staging install moves them
# there (the programs find ../share/velmora from either folder).
install(CODE [[
  set(staged "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
  if(staged MATCHES "/_CPack_Packages/Linux/DEB/" AND IS_DIRECTORY "${staged}/bin")
    file(RENAME "${staged}/bin" "${staged}/games")
  endif()
]])

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VENDOR "Velmora developers")
set(CPACK_PACKAGE_CONTACT "${VELMORA_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "logic puzzle played with playing cards")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "A 7 by 7 grid takes 49 of the 52 cards of a deck: no rank repeats in a row\n"
    "or column, and orthogonal neighbours never share a suit nor hold consecutive\n"
    "ranks. Velmora creates, plays, solves, checks, stores and prints these\n"
    "puzzles, and velmora-cli does the same work in bulk from the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${VELMORA_HOMEPAGE}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt finds its window-system plugins at run time; no linked library names them.
# SQLite keeps the player's store; shlibdeps finds the library, this names the
# version whose features it uses (SQLITE_OPEN_NOFOLLOW came with 3.31).
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, libqt6svg6, libsqlite3-0 (>= 3.31)")
include(CPack)
