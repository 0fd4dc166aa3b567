# The library that C++ programs link: the folders in one, static or, with BUILD_SHARED_LIBS, shared.

get_property(folders GLOBAL PROPERTY DRALO_FOLDERS)
foreach(folder ${folders})
  target_sources(dralo PRIVATE $<TARGET_OBJECTS:${folder}>)
endforeach()
get_property(libraries GLOBAL PROPERTY DRALO_FOREIGN_LIBRARIES)
list(REMOVE_DUPLICATES libraries)
target_link_libraries(dralo PRIVATE ${libraries} ${CMAKE_DL_LIBS} $<BUILD_INTERFACE:dralo_options>)
