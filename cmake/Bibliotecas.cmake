# The small development packages of OpenCV and matio bring no CMake configuration of their own.
# Of imgproc a few functions are used; taken from its archive, they need not be looked up among
# thousands at every start.
find_library(OPENCV_imgproc_LIBRARY NAMES libopencv_imgproc.a opencv_imgproc REQUIRED)
find_path(OPENCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4 REQUIRED)
foreach(parte core imgproc imgcodecs)
  find_library(OPENCV_${parte}_LIBRARY opencv_${parte} REQUIRED)
  add_library(opencv_${parte} INTERFACE)
  target_include_directories(opencv_${parte} SYSTEM INTERFACE ${OPENCV_INCLUDE_DIR})
  target_link_libraries(opencv_${parte} INTERFACE ${OPENCV_${parte}_LIBRARY})
endforeach()

find_library(MATIO_LIBRARY matio REQUIRED)
find_path(MATIO_INCLUDE_DIR matio.h REQUIRED)
add_library(matio INTERFACE)
target_include_directories(matio SYSTEM INTERFACE ${MATIO_INCLUDE_DIR})
target_link_libraries(matio INTERFACE ${MATIO_LIBRARY})

set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)
