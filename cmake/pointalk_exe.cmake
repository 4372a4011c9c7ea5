# The program for Windows.
enable_language(RC)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
pointalk_program(Pointalk SOURCES win32/win_main.cpp packaging/pointalk.rc LIBRARIES pointalk_win32)
set_target_properties(Pointalk PROPERTIES WIN32_EXECUTABLE ON)
target_compile_definitions(Pointalk PRIVATE POINTALK_MAJOR=${PROJECT_VERSION_MAJOR}
                           POINTALK_MINOR=${PROJECT_VERSION_MINOR} POINTALK_PATCH=${PROJECT_VERSION_PATCH})
set_source_files_properties(packaging/pointalk.rc PROPERTIES INCLUDE_DIRECTORIES ${packaging}
                            OBJECT_DEPENDS "${packaging}/pointalk.manifest;${packaging}/pointalk.ico")
