# The files that `cmake --install` installs, and the Debian package that `cpack` makes of them in
# the build folder. The program looks for its resources in ../share/vantora, relative to its own
# folder, so both paths are fixed.
install(TARGETS vantora RUNTIME DESTINATION bin)
if(TARGET vantora-robot)
  install(TARGETS vantora-robot RUNTIME DESTINATION bin)
endif()
install(DIRECTORY resources/ DESTINATION share/vantora)
install(FILES packaging/vantora.desktop DESTINATION share/applications)
install(FILES packaging/org.vantora.vantora.metainfo.xml DESTINATION share/metainfo)
install(FILES packaging/vantora-mime.xml DESTINATION share/mime/packages RENAME vantora.xml)
install(FILES resources/pictures/vantora.svg DESTINATION share/icons/hicolor/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES packaging/icons/vantora_${size}.png
          DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME vantora.png)
endforeach()
install(FILES packaging/man/vantora.1 packaging/man/vantora-robot.1 DESTINATION share/man/man1)
install(FILES packaging/man/es/vantora.1 DESTINATION share/man/es/man1)
install(FILES packaging/copyright packaging/changelog DESTINATION share/doc/vantora)
install(FILES packaging/lintian-overrides DESTINATION share/lintian/overrides RENAME vantora)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantora)
set(CPACK_PACKAGE_VENDOR Vantora)
set(CPACK_PACKAGE_CONTACT "Vantora maintainers <maintainers@vantora.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "make audio CDs at home")
set(CPACK_PACKAGE_DESCRIPTION
"Vantora keeps your music in catalogs and makes audio CDs from them: import
wave and MP3 files, record vinyl and tapes, copy CDs, edit and mend the sound,
let tracks fade into each other, burn the disc and print its cover. Without a
CD writer the disc is made as an image, a BIN file with its CUE sheet.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The libraries find their own packages. The plugin that opens windows on X is no library of the
# program's: before 6.3.1 it was in a package of its own.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6gui6 (>= 6.3.1) | qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, libasound2-plugins, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cups-client")  # for systems with printers
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/stage.cmake)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_SOURCE_DIR}/packaging/pack_time.cmake)
file(STRINGS packaging/changelog released REGEX "^ -- .*>  " LIMIT_COUNT 1)
string(REGEX REPLACE ".*>  " "" released ${released})
execute_process(COMMAND date --date=${released} +%s OUTPUT_VARIABLE CPACK_VANTORA_RELEASE_SECONDS
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
include(CPack)

if(BUILD_TESTING)
  add_test(NAME image_checker COMMAND python3 ${CMAKE_SOURCE_DIR}/tests/demo/check_image_test.py)
  if(TARGET vantora-robot)
    set(scratch ${CMAKE_BINARY_DIR}/Testing/scratch)
    add_test(NAME package COMMAND ${CMAKE_SOURCE_DIR}/packaging/check_package.sh
             ${CMAKE_BINARY_DIR} ${scratch}/package)
    add_test(NAME demo_makes_a_disc
      COMMAND sh -c "rm -rf ${scratch}/demo && mkdir -p ${scratch}/demo && exec ${CMAKE_SOURCE_DIR}/demo/make_disc.sh $<TARGET_FILE:vantora-robot> ${scratch}/demo")
    set_tests_properties(package demo_makes_a_disc PROPERTIES TIMEOUT 120)
  endif()
endif()
