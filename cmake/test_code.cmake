# How code is built that is there to test the library: without optimisation, as most of it runs once and takes
# four times as long to optimise. The library keeps its own flags. The fuzz targets are to be fast.
add_library(klepur_test_code INTERFACE)
target_compile_features(klepur_test_code INTERFACE cxx_std_20)
target_include_directories(klepur_test_code INTERFACE ${PROJECT_SOURCE_DIR})
target_link_libraries(klepur_test_code INTERFACE klepur_warnings)
if(NOT KLEPUR_FUZZ)
  target_compile_options(klepur_test_code INTERFACE -O0 $<$<CONFIG:Release,RelWithDebInfo>:-g0>)
endif()
