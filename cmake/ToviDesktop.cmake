# What a desktop needs to offer the viewer: its entry, its icon and what a software centre tells of it.
set(TOVI_DESKTOP_ID jp.tovi.Viewer)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/${TOVI_DESKTOP_ID}.desktop
        DESTINATION share/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/desktop/${TOVI_DESKTOP_ID}.metainfo.xml
        DESTINATION share/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/data/pictures/tovi-viewer.svg
        DESTINATION share/icons/hicolor/scalable/apps RENAME ${TOVI_DESKTOP_ID}.svg)
