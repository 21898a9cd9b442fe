include(${CMAKE_CURRENT_LIST_DIR}/klepur-targets.cmake)
