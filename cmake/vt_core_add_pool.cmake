# vt_core_add_pool: compiles a pool description into a target.
#
#   vt_core_add_pool(<target> <description>
#                    [NAME <name>]                  # namespace and file names (default: the
#                                                   # description's name, e.g. "work" for work.xml)
#                    [TERMINAL <vtpool options>...] # the screen it is compiled for, e.g.
#                                                   # TERMINAL --design-size 480x480 --mask-size 240
#                    [DEPENDS <files>...])          # files the description reads (its pictures)
#
# At build time `vtpool source` writes <name>.cpp and its ID header <name>.h into
# ${CMAKE_CURRENT_BINARY_DIR}/vt_core_pools, both are added to <target>, the folder is put on
# its include path and the target is linked with vt_core. Application code includes "<name>.h":
# constexpr ids (<name>::speed) and <name>::objects(), the pool's objects in pool order.
#
# vtpool is found as ${VT_CORE_VTPOOL} when set (a path or a target), else as the target
# vt_core::vtpool (an installed package) or vtpool (the vt_core build tree); the library as
# vt_core::vt_core or vt_core.

function(vt_core_add_pool target description)
  cmake_parse_arguments(PARSE_ARGV 2 pool "" "NAME" "TERMINAL;DEPENDS")
  if(pool_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "vt_core_add_pool: unexpected arguments: ${pool_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT TARGET ${target})
    message(FATAL_ERROR "vt_core_add_pool: no target '${target}'")
  endif()
  get_filename_component(description "${description}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
  if(NOT pool_NAME)
    get_filename_component(pool_NAME "${description}" NAME_WE)
    string(MAKE_C_IDENTIFIER "${pool_NAME}" pool_NAME)
  endif()

  if(VT_CORE_VTPOOL)
    set(vtpool "${VT_CORE_VTPOOL}")
  elseif(TARGET vt_core::vtpool)
    set(vtpool vt_core::vtpool)
  elseif(TARGET vtpool)
    set(vtpool vtpool)
  else()
    message(FATAL_ERROR "vt_core_add_pool: vtpool not found; set VT_CORE_VTPOOL to its path")
  endif()
  if(TARGET ${vtpool})
    set(vtpool_command "$<TARGET_FILE:${vtpool}>")
    set(vtpool_depends ${vtpool})
  else()
    set(vtpool_command "${vtpool}")
    set(vtpool_depends "${vtpool}")
  endif()

  set(dir "${CMAKE_CURRENT_BINARY_DIR}/vt_core_pools")
  set(source "${dir}/${pool_NAME}.cpp")
  set(header "${dir}/${pool_NAME}.h")
  add_custom_command(OUTPUT "${source}" "${header}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${dir}"
    COMMAND ${vtpool_command} source "${description}" -o "${source}" --header "${header}"
            --namespace ${pool_NAME} ${pool_TERMINAL}
    DEPENDS "${description}" ${pool_DEPENDS} ${vtpool_depends}
    COMMENT "Compiling the pool ${pool_NAME} from ${description}"
    VERBATIM)
  target_sources(${target} PRIVATE "${source}" "${header}")
  target_include_directories(${target} PRIVATE "${dir}")
  if(TARGET vt_core::vt_core)
    target_link_libraries(${target} PRIVATE vt_core::vt_core)
  elseif(TARGET vt_core)
    target_link_libraries(${target} PRIVATE vt_core)
  endif()
endfunction()
