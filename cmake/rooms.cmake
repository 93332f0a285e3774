# murala_room(NAME FOLDER [SEES room...] [USES library...])
#
# One static library from the .cpp files of a folder and of its platform folder for this home, which
# may have folders of its own. Only the rooms that are named (and those that they see) can be
# included: every room puts its own folder, and nothing else, on the include path of others.
function(murala_room name folder)
  cmake_parse_arguments(ROOM "" "" "SEES;USES" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${folder}/*.cpp")
  file(GLOB_RECURSE platform_sources CONFIGURE_DEPENDS "${folder}/${MURALA_HOME}/*.cpp")
  add_library(murala_${name} STATIC ${sources} ${platform_sources})
  platform_folders("${folder}" folders)
  target_include_directories(murala_${name} PRIVATE ${folders})
  target_include_directories(murala_${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/${folder}")
  foreach(room IN LISTS ROOM_SEES)
    target_link_libraries(murala_${name} PUBLIC murala_${room})
  endforeach()
  target_link_libraries(murala_${name} PRIVATE ${ROOM_USES})
endfunction()

# platform_folders(FOLDER VARIABLE): the folders below FOLDER that hold this home's headers.
function(platform_folders folder variable)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS "${folder}/${MURALA_HOME}/*.h")
  list(TRANSFORM headers REPLACE "/[^/]*$" "")
  list(REMOVE_DUPLICATES headers)
  set(${variable} ${headers} PARENT_SCOPE)
endfunction()

# windows_resources(TARGET FILE.rc): gives a program the resources of the file and the manifest beside
# it, with the project's version in both.
function(windows_resources target file)
  get_filename_component(folder "${file}" DIRECTORY)
  get_filename_component(name "${file}" NAME_WE)
  foreach(ending rc manifest)
    configure_file("${folder}/${name}.${ending}" "${CMAKE_BINARY_DIR}/resources/${name}.${ending}" @ONLY)
  endforeach()
  target_sources(${target} PRIVATE "${CMAKE_BINARY_DIR}/resources/${name}.rc")
endfunction()
