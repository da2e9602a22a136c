# What a desktop needs to offer the viewer: its entry, the type of file that it opens, its icon and what a
# software centre tells of it.
set(TOVI_DESKTOP_ID jp.tovi.viewer)
set(desktop ${PROJECT_SOURCE_DIR}/data/desktop/${TOVI_DESKTOP_ID})
install(FILES ${desktop}.desktop DESTINATION share/applications)
install(FILES ${desktop}.metainfo.xml DESTINATION share/metainfo)
install(FILES ${desktop}.xml DESTINATION share/mime/packages)

set(icon ${PROJECT_SOURCE_DIR}/data/pictures/tovi-viewer.svg)
install(FILES ${icon} DESTINATION share/icons/hicolor/scalable/apps RENAME ${TOVI_DESKTOP_ID}.svg)
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(icons)
foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
    set(folder icons/hicolor/${size}x${size}/apps)
    set(picture ${CMAKE_BINARY_DIR}/${folder}/${TOVI_DESKTOP_ID}.png)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/${folder})
    add_custom_command(OUTPUT ${picture}
        COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${picture} ${icon} DEPENDS ${icon})
    install(FILES ${picture} DESTINATION share/${folder})
    list(APPEND icons ${picture})
endforeach()
add_custom_target(tovi_icons ALL DEPENDS ${icons})
